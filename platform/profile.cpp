#include "profile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <bit>
#include <cstring>
#include <memory>
#include <optional>

namespace zv {

namespace {

bool isBlank(char c) {
  return c == ' ' || c == '\t' || c == '\v';
}
bool isLineEnd(char c) {
  return c == '\r' || c == '\n';
}

std::string_view trim(std::string_view s) {
  while (!s.empty() && isBlank(s.front()))
    s.remove_prefix(1);
  while (!s.empty() && isBlank(s.back()))
    s.remove_suffix(1);
  return s;
}

char fold(char c) {
  return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c;
}

bool sameName(std::string_view a, std::string_view b) {
  if (a.size() != b.size())
    return false;
  for (size_t i = 0; i < a.size(); ++i)
    if (fold(a[i]) != fold(b[i]))
      return false;
  return true;
}

// The whole file in memory. A small file is read into the object itself with
// one call; a larger one, once it shows itself a regular file, into one
// block of its size. Nothing waits or runs on: a FIFO is opened without
// blocking, a folder reads nothing, and an endless device is cut off.
class FileBytes {
public:
  // `regular`, when asked for, tells whether the path named a regular file.
  explicit FileBytes(const std::string& path, bool* regular = nullptr) {
    int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (regular) {
      struct stat st {};
      *regular = fd >= 0 && ::fstat(fd, &st) == 0 && S_ISREG(st.st_mode);
    }
    if (fd < 0)
      return;
    ssize_t got = ::read(fd, small_, sizeof small_);
    if (got > 0 && static_cast<size_t>(got) < sizeof small_) {
      text_ = std::string_view(small_, static_cast<size_t>(got));
    } else if (got > 0) {
      readLarge(fd, static_cast<size_t>(got));
    }
    ::close(fd);
  }
  FileBytes(const FileBytes&) = delete;
  FileBytes& operator=(const FileBytes&) = delete;

  std::string_view text() const { return text_; }

private:
  void readLarge(int fd, size_t already) {
    struct stat st {};
    if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode))
      return;
    size_t want = std::max(static_cast<size_t>(st.st_size), already);
    large_ = std::make_unique_for_overwrite<char[]>(want);
    std::memcpy(large_.get(), small_, already);
    size_t size = already;
    while (size < want) {
      ssize_t got = ::read(fd, large_.get() + size, want - size);
      if (got <= 0)
        break;
      size += static_cast<size_t>(got);
    }
    text_ = std::string_view(large_.get(), size);
  }

  char small_[32768];
  std::unique_ptr<char[]> large_;
  std::string_view text_;
};

// The first CR or LF at or after p, eight bytes at a time where the byte
// order allows it: each word is tested for a byte equal to CR or to LF.
const char* findLineEnd(const char* p, const char* end) {
  if constexpr (std::endian::native == std::endian::little) {
    constexpr uint64_t kOnes = 0x0101010101010101ull;
    constexpr uint64_t kHighs = 0x8080808080808080ull;
    while (end - p >= 8) {
      uint64_t w;
      std::memcpy(&w, p, 8);
      uint64_t cr = w ^ (kOnes * '\r');
      uint64_t lf = w ^ (kOnes * '\n');
      // The lowest flagged byte of each test is exact; only higher ones may be false.
      uint64_t hit = (((cr - kOnes) & ~cr) | ((lf - kOnes) & ~lf)) & kHighs;
      if (hit)
        return p + (std::countr_zero(hit) >> 3);
      p += 8;
    }
  }
  while (p < end && !isLineEnd(*p))
    ++p;
  return p;
}

// The next section header at or after p: a '[' that only blanks separate
// from the start of its line. memchr skips the lines between headers.
const char* findHeader(const char* begin, const char* p, const char* end) {
  while (p < end) {
    const char* bracket =
        static_cast<const char*>(std::memchr(p, '[', static_cast<size_t>(end - p)));
    if (!bracket)
      return end;
    const char* q = bracket;
    while (q > begin && isBlank(q[-1]))
      --q;
    if (q == begin || isLineEnd(q[-1]))
      return bracket;
    p = bracket + 1;
  }
  return end;
}

// The raw value of the first key of that name in the first section of that
// name, trimmed; nullopt when the section or the key isn't there. No copies:
// lines are views into the file's bytes.
std::optional<std::string_view> findValue(std::string_view text, std::string_view section,
                                          std::string_view key) {
  const char* const begin = text.data();
  const char* const end = begin + text.size();
  // Find the first header of that name.
  const char* p = begin;
  for (;;) {
    p = findHeader(begin, p, end);
    if (p == end)
      return std::nullopt;
    const char* lineEnd = findLineEnd(p, end);
    std::string_view name(p + 1, static_cast<size_t>(lineEnd - p - 1));
    p = lineEnd;
    if (sameName(trim(name.substr(0, name.find(']'))), section))
      break;
  }
  // Its key lines, up to the next header: only the first such section counts.
  while (p < end) {
    while (p < end && (isLineEnd(*p) || isBlank(*p)))
      ++p;
    if (p == end || *p == '[')
      break;
    const char* start = p;
    p = findLineEnd(p, end);
    // Most lines of a long section differ from the key in their first letter.
    if (*start == ';' || (!key.empty() && fold(*start) != fold(key.front())))
      continue;
    std::string_view line = trim(std::string_view(start, static_cast<size_t>(p - start)));
    size_t eq = line.find('=');
    if (eq != std::string_view::npos && sameName(trim(line.substr(0, eq)), key))
      return trim(line.substr(eq + 1));
  }
  return std::nullopt;
}

std::string_view unquote(std::string_view v) {
  if (v.size() >= 2 && (v.front() == '"' || v.front() == '\'') && v.back() == v.front())
    return v.substr(1, v.size() - 2);
  return v;
}

uint32_t copyCut(std::string_view v, std::string& out, uint32_t size) {
  size_t n = size == 0 ? 0 : std::min<size_t>(v.size(), size - 1);
  out.assign(v.substr(0, n));
  return static_cast<uint32_t>(n);
}

} // namespace

uint32_t getPrivateProfileString(std::string_view section, std::string_view key,
                                 std::string_view defaultValue, std::string& out, uint32_t size,
                                 const std::string& path, bool* fileFound) {
  FileBytes file(path, fileFound);
  if (auto value = findValue(file.text(), trim(section), trim(key)))
    return copyCut(unquote(*value), out, size);
  while (!defaultValue.empty() && defaultValue.back() == ' ')
    defaultValue.remove_suffix(1);
  return copyCut(defaultValue, out, size);
}

int32_t getPrivateProfileInt(std::string_view section, std::string_view key, int32_t defaultValue,
                             const std::string& path) {
  // The value goes through a small buffer first, as the system function's does.
  std::string text;
  if (getPrivateProfileString(section, key, "", text, 30, path) == 0)
    return defaultValue;
  size_t i = 0;
  while (i < text.size() && static_cast<unsigned char>(text[i]) <= ' ')
    ++i;
  bool negative = false;
  if (i < text.size() && (text[i] == '+' || text[i] == '-'))
    negative = text[i++] == '-';
  uint32_t value = 0;
  for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i)
    value = value * 10u + static_cast<uint32_t>(text[i] - '0');
  if (negative)
    value = 0u - value;
  return static_cast<int32_t>(value);
}

} // namespace zv
