#include "ansi_text.h"

#include <cstdint>

namespace zv {

namespace {

// The characters of 0x80..0x9F; the undefined five are their own numbers.
constexpr char32_t kHigh[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char32_t characterOf(unsigned char b) {
  return b >= 0x80 && b < 0xA0 ? kHigh[b - 0x80] : b;
}

int byteOf(char32_t c) {
  if (c < 0x80 || (c >= 0xA0 && c <= 0xFF))
    return static_cast<int>(c);
  for (int i = 0; i < 32; ++i)
    if (kHigh[i] == c)
      return 0x80 + i;
  return -1;
}

void appendCharacter(std::string& out, char32_t c) {
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += static_cast<char>(0xC0 | (c >> 6));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    out += static_cast<char>(0xE0 | (c >> 12));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  }
}

} // namespace

void appendUtf8FromAnsi(std::string& out, std::string_view ansi) {
  for (char b : ansi)
    appendCharacter(out, characterOf(static_cast<unsigned char>(b)));
}

std::string utf8FromAnsi(std::string_view ansi) {
  std::string out;
  out.reserve(ansi.size());
  appendUtf8FromAnsi(out, ansi);
  return out;
}

size_t decodeUtf8(std::string_view text, char32_t& c) {
  if (text.empty())
    return 0;
  const auto b0 = static_cast<unsigned char>(text[0]);
  c = b0;
  if (b0 < 0x80)
    return 1;
  size_t len = 0;
  unsigned char lo = 0x80, hi = 0xBF; // the allowed range of the second byte
  if (b0 >= 0xC2 && b0 <= 0xDF) {
    len = 2;
  } else if (b0 >= 0xE0 && b0 <= 0xEF) {
    len = 3;
    lo = b0 == 0xE0 ? 0xA0 : 0x80;
    hi = b0 == 0xED ? 0x9F : 0xBF;
  } else if (b0 >= 0xF0 && b0 <= 0xF4) {
    len = 4;
    lo = b0 == 0xF0 ? 0x90 : 0x80;
    hi = b0 == 0xF4 ? 0x8F : 0xBF;
  } else {
    return 0;
  }
  if (text.size() < len)
    return 0;
  const auto b1 = static_cast<unsigned char>(text[1]);
  if (b1 < lo || b1 > hi)
    return 0;
  for (size_t k = 2; k < len; ++k)
    if ((static_cast<unsigned char>(text[k]) & 0xC0) != 0x80)
      return 0;
  c = b0 & (0x3Fu >> (len - 1));
  for (size_t k = 1; k < len; ++k)
    c = (c << 6) | (static_cast<unsigned char>(text[k]) & 0x3F);
  return len;
}

bool ansiFromUtf8(std::string_view utf8, std::string& ansi, size_t& badAt) {
  ansi.clear();
  ansi.reserve(utf8.size());
  for (size_t i = 0; i < utf8.size();) {
    char32_t c = 0;
    const size_t len = decodeUtf8(utf8.substr(i), c);
    const int b = len == 0 ? -1 : byteOf(c);
    if (b < 0) {
      badAt = i;
      return false;
    }
    ansi += static_cast<char>(b);
    i += len;
  }
  return true;
}

} // namespace zv
