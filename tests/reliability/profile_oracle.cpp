// A Windows program that answers profile lookups with the system functions,
// so that our own functions can be compared against them. Input lines:
//   F <path>                      the file of the following lookups
//   L <section> <key> <default>   one lookup; each field is hex, "." for empty
// Output, one line per lookup: <count> <answer in hex or "."> <int answer>.
#include <windows.h>

#include <cstdio>
#include <string>

namespace {

std::string unhex(const std::string& h) {
  if (h == ".")
    return {};
  std::string out;
  for (size_t i = 0; i + 1 < h.size(); i += 2)
    out += static_cast<char>(std::stoi(h.substr(i, 2), nullptr, 16));
  return out;
}

std::string hex(const char* s, DWORD n) {
  if (n == 0)
    return ".";
  static const char digits[] = "0123456789abcdef";
  std::string out;
  for (DWORD i = 0; i < n; ++i) {
    const auto c = static_cast<unsigned char>(s[i]);
    out += digits[c >> 4];
    out += digits[c & 15];
  }
  return out;
}

} // namespace

int main() {
  static char line[1 << 16];
  std::string file;
  while (std::fgets(line, sizeof line, stdin)) {
    std::string l(line);
    while (!l.empty() && (l.back() == '\n' || l.back() == '\r'))
      l.pop_back();
    if (l.rfind("F ", 0) == 0) {
      file = l.substr(2);
      continue;
    }
    char section[1 << 13], key[1 << 13], def[1 << 13];
    if (std::sscanf(l.c_str(), "L %8191s %8191s %8191s", section, key, def) != 3)
      return 2;
    const std::string s = unhex(section), k = unhex(key), d = unhex(def);
    char buffer[255];
    const DWORD n =
        GetPrivateProfileStringA(s.c_str(), k.c_str(), d.c_str(), buffer, 255, file.c_str());
    const UINT i = GetPrivateProfileIntA(s.c_str(), k.c_str(), -7, file.c_str());
    std::printf("%lu %s %d\n", static_cast<unsigned long>(n), hex(buffer, n).c_str(),
                static_cast<int>(i));
  }
  return 0;
}
