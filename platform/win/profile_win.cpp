// The profile functions on Windows are the system's own.
#include <windows.h>

#include <vector>

#include "../profile.h"

namespace zv {

namespace {
// The system functions read up to the first NUL: a name holding one is cut there.
std::string cString(std::string_view s) {
  return std::string(s.substr(0, s.find('\0')));
}
} // namespace

uint32_t getPrivateProfileString(std::string_view section, std::string_view key,
                                 std::string_view defaultValue, std::string& out, uint32_t size,
                                 const std::string& path, bool* fileFound) {
  // Windows sets the same last error for a missing key as for a missing file.
  if (fileFound) {
    const DWORD attributes = GetFileAttributesA(path.c_str());
    *fileFound = attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
  }
  std::vector<char> buffer(size + 1u, '\0');
  const DWORD n =
      GetPrivateProfileStringA(cString(section).c_str(), cString(key).c_str(),
                               cString(defaultValue).c_str(), buffer.data(), size, path.c_str());
  out.assign(buffer.data(), n);
  return n;
}

int32_t getPrivateProfileInt(std::string_view section, std::string_view key, int32_t defaultValue,
                             const std::string& path) {
  return static_cast<int32_t>(GetPrivateProfileIntA(cString(section).c_str(), cString(key).c_str(),
                                                    defaultValue, path.c_str()));
}

} // namespace zv
