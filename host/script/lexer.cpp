#include "lexer.h"

#include <cctype>
#include <charconv>
#include <cstdint>
#include <vector>

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

  if (s == '!') {
    float f = 0;
    auto r = std::from_chars(first, last, f);
    if (r.ec != std::errc() || r.ptr != last)
      badLiteral(text);
    return zv::Variant::r4(f);
  }
  if (decimal) {
    if (s != '\0')
      badLiteral(text);
    double d = 0;
    auto r = std::from_chars(first, last, d);
    if (r.ec != std::errc() || r.ptr != last)
      badLiteral(text);
    return zv::Variant::r8(d);
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
  double d = 0;
  std::from_chars(first, last, d);
  return zv::Variant::r8(d);
}

} // namespace

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
    return stringLiteral();
  const size_t from = pos_;
  while (pos_ < line_.size() && !isBlank(line_[pos_]))
    ++pos_;
  return std::string(line_.substr(from, pos_ - from));
}

zv::Variant LineScanner::value() {
  if (atEnd())
    throw ScriptError("missing argument");
  if (line_[pos_] == '[')
    return arrayLiteral();
  if (line_[pos_] == '"')
    return zv::Variant::str(stringLiteral());
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

zv::Variant LineScanner::arrayLiteral() {
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
        items.push_back(arrayLiteral());
      else if (c == '"')
        items.push_back(zv::Variant::str(stringLiteral()));
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
    a.set(static_cast<int32_t>(i), items[i]);
  return zv::Variant::array(std::move(a));
}

std::string LineScanner::stringLiteral() {
  ++pos_; // opening quote
  std::string out;
  while (pos_ < line_.size()) {
    const char c = line_[pos_++];
    if (c == '"') {
      if (pos_ < line_.size() && !isBlank(line_[pos_]) && line_[pos_] != ',' && line_[pos_] != ']')
        throw ScriptError("text after a string literal");
      return out;
    }
    if (c != '\\') {
      out += c;
      continue;
    }
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
  }
  throw ScriptError("unterminated string");
}

} // namespace zvhost
