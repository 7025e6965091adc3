#include "lexer.h"

#include <cctype>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <vector>

#include "platform/ansi_text.h"

namespace zvhost {

namespace {

bool isBlank(char c) {
  return c == ' ' || c == '\t';
}
bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

int hexDigit(char c) {
  if (isDigit(c))
    return c - '0';
  if (c >= 'a' && c <= 'f')
    return c - 'a' + 10;
  if (c >= 'A' && c <= 'F')
    return c - 'A' + 10;
  return -1;
}

[[noreturn]] void badLiteral(std::string_view text) {
  throw ScriptError("bad literal: " + std::string(text));
}

// A number too large or too small for its type reads as no number at all.
template <class T> T real(std::string_view text, const char* first, const char* last) {
  T value = 0;
  const auto r = std::from_chars(first, last, value);
  if (r.ec == std::errc::result_out_of_range)
    throw ScriptError("number out of range: " + std::string(text));
  if (r.ec != std::errc() || r.ptr != last)
    badLiteral(text);
  return value;
}

// [-]digits[.digits][e[+-]digits][%|&|!]
zv::Variant number(std::string_view text) {
  size_t i = 0;
  if (i < text.size() && text[i] == '-')
    ++i;
  const size_t digitsFrom = i;
  while (i < text.size() && isDigit(text[i]))
    ++i;
  if (i == digitsFrom)
    badLiteral(text);
  bool decimal = false;
  if (i < text.size() && text[i] == '.') {
    decimal = true;
    ++i;
    while (i < text.size() && isDigit(text[i]))
      ++i;
  }
  if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
    decimal = true;
    ++i;
    if (i < text.size() && (text[i] == '+' || text[i] == '-'))
      ++i;
    const size_t expFrom = i;
    while (i < text.size() && isDigit(text[i]))
      ++i;
    if (i == expFrom)
      badLiteral(text);
  }
  const std::string_view body = text.substr(0, i);
  const std::string_view suffix = text.substr(i);
  if (suffix.size() > 1)
    badLiteral(text);
  const char s = suffix.empty() ? '\0' : suffix[0];
  const char* first = body.data();
  const char* last = body.data() + body.size();

  if (s == '!')
    return zv::Variant::r4(real<float>(text, first, last));
  if (decimal) {
    if (s != '\0')
      badLiteral(text);
    return zv::Variant::r8(real<double>(text, first, last));
  }
  int64_t n = 0;
  auto r = std::from_chars(first, last, n);
  const bool fits64 = r.ec == std::errc() && r.ptr == last;
  const bool fits16 = fits64 && n >= INT16_MIN && n <= INT16_MAX;
  const bool fits32 = fits64 && n >= INT32_MIN && n <= INT32_MAX;
  if (s == '%') {
    if (!fits16)
      throw ScriptError("16-bit integer out of range: " + std::string(text));
    return zv::Variant::i2(static_cast<int16_t>(n));
  }
  if (s == '&') {
    if (!fits32)
      throw ScriptError("32-bit integer out of range: " + std::string(text));
    return zv::Variant::i4(static_cast<int32_t>(n));
  }
  if (s != '\0')
    badLiteral(text);
  if (fits16)
    return zv::Variant::i2(static_cast<int16_t>(n));
  if (fits32)
    return zv::Variant::i4(static_cast<int32_t>(n));
  return zv::Variant::r8(real<double>(text, first, last));
}

} // namespace

std::string ansiText(std::string_view utf8) {
  std::string ansi;
  size_t badAt = 0;
  if (zv::ansiFromUtf8(utf8, ansi, badAt))
    return ansi;
  char32_t c = 0;
  if (zv::decodeUtf8(utf8.substr(badAt), c) == 0)
    throw ScriptError("text that is not UTF-8 at byte " + std::to_string(badAt));
  char code[16];
  std::snprintf(code, sizeof code, "U+%04X", static_cast<unsigned>(c));
  throw ScriptError(std::string("no Windows-1252 character for ") + code);
}

zv::Variant parseLiteral(std::string_view text) {
  LineScanner scanner(text);
  zv::Variant v = scanner.value();
  if (!scanner.atEnd())
    badLiteral(text);
  return v;
}

void LineScanner::skipBlanks() {
  while (pos_ < line_.size() && isBlank(line_[pos_]))
    ++pos_;
}

bool LineScanner::atEnd() {
  skipBlanks();
  return pos_ >= line_.size();
}

char LineScanner::peek() {
  skipBlanks();
  return pos_ < line_.size() ? line_[pos_] : '\0';
}

std::string LineScanner::rest() {
  skipBlanks();
  std::string_view r = line_.substr(pos_);
  while (!r.empty() && isBlank(r.back()))
    r.remove_suffix(1);
  pos_ = line_.size();
  return std::string(r);
}

std::string LineScanner::word() {
  if (atEnd())
    throw ScriptError("missing argument");
  if (line_[pos_] == '"')
    return stringLiteral(false);
  const size_t from = pos_;
  while (pos_ < line_.size() && !isBlank(line_[pos_]))
    ++pos_;
  return std::string(line_.substr(from, pos_ - from));
}

zv::Variant LineScanner::value() {
  if (atEnd())
    throw ScriptError("missing argument");
  if (line_[pos_] == '[')
    return arrayLiteral(1);
  if (line_[pos_] == '"')
    return zv::Variant::str(stringLiteral(true));
  return atom(false);
}

zv::Variant LineScanner::atom(bool inArray) {
  const size_t from = pos_;
  while (pos_ < line_.size() && !isBlank(line_[pos_]) &&
         !(inArray && (line_[pos_] == ',' || line_[pos_] == ']')))
    ++pos_;
  const std::string_view text = line_.substr(from, pos_ - from);
  if (text.empty())
    badLiteral(line_.substr(from, 1));
  if (text == "empty")
    return zv::Variant();
  if (text == "true")
    return zv::Variant::boolean(true);
  if (text == "false")
    return zv::Variant::boolean(false);
  if (text[0] == '-' || isDigit(text[0]))
    return number(text);
  badLiteral(text);
}

zv::Variant LineScanner::arrayLiteral(int depth) {
  if (depth > kMaxArrayNesting)
    throw ScriptError("arrays nested deeper than " + std::to_string(kMaxArrayNesting));
  ++pos_; // '['
  std::vector<zv::Variant> items;
  if (peek() == ']') {
    ++pos_;
  } else {
    for (;;) {
      if (atEnd())
        throw ScriptError("unterminated array");
      const char c = line_[pos_];
      if (c == '[')
        items.push_back(arrayLiteral(depth + 1));
      else if (c == '"')
        items.push_back(zv::Variant::str(stringLiteral(true)));
      else
        items.push_back(atom(true));
      const char next = peek();
      ++pos_;
      if (next == ']')
        break;
      if (next != ',')
        throw ScriptError(next == '\0' ? "unterminated array" : "expected , or ] in array");
    }
  }
  zv::SafeArray a(zv::VarType::Variant, 0, static_cast<int32_t>(items.size()) - 1);
  for (size_t i = 0; i < items.size(); ++i)
    a.set(static_cast<int32_t>(i), std::move(items[i]));
  return zv::Variant::array(std::move(a));
}

std::string LineScanner::stringLiteral(bool ansi) {
  ++pos_; // opening quote
  std::string out;
  size_t plainFrom = pos_; // the characters since the last escape, not yet in out
  auto flush = [&] {
    const std::string_view plain = line_.substr(plainFrom, pos_ - 1 - plainFrom);
    if (ansi)
      out += ansiText(plain);
    else
      out += plain;
  };
  while (pos_ < line_.size()) {
    const char c = line_[pos_++];
    if (c == '"') {
      flush();
      if (pos_ < line_.size() && !isBlank(line_[pos_]) && line_[pos_] != ',' && line_[pos_] != ']')
        throw ScriptError("text after a string literal");
      return out;
    }
    if (c != '\\')
      continue;
    flush();
    if (pos_ >= line_.size())
      break;
    const char e = line_[pos_++];
    switch (e) {
    case '\\':
      out += '\\';
      break;
    case '"':
      out += '"';
      break;
    case 'r':
      out += '\r';
      break;
    case 'n':
      out += '\n';
      break;
    case 't':
      out += '\t';
      break;
    case 'x': {
      const int hi = pos_ < line_.size() ? hexDigit(line_[pos_]) : -1;
      const int lo = pos_ + 1 < line_.size() ? hexDigit(line_[pos_ + 1]) : -1;
      if (hi < 0 || lo < 0)
        throw ScriptError("bad \\x escape in string");
      out += static_cast<char>(hi * 16 + lo);
      pos_ += 2;
      break;
    }
    default:
      throw ScriptError(std::string("bad escape \\") + e + " in string");
    }
    plainFrom = pos_;
  }
  throw ScriptError("unterminated string");
}

} // namespace zvhost
