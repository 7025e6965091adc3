#include "vbnum.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "errors.h"

namespace zv {

namespace {

template <typename T> T checked(int64_t v) {
  if (v < std::numeric_limits<T>::min() || v > std::numeric_limits<T>::max())
    raise(errOverflow);
  return static_cast<T>(v);
}

// Rounds half even and checks the range; NaN and infinities overflow too.
int64_t roundInRange(double v, double lo, double hi) {
  double r = roundHalfEven(v);
  if (!(r >= lo && r <= hi))
    raise(errOverflow);
  return static_cast<int64_t>(r);
}

bool isBlank(char c) {
  return c == ' ' || c == '\t';
}

std::string_view trimBlanks(std::string_view s) {
  while (!s.empty() && isBlank(s.front()))
    s.remove_prefix(1);
  while (!s.empty() && isBlank(s.back()))
    s.remove_suffix(1);
  return s;
}

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

char lower(char c) {
  return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

bool equalsNoCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size())
    return false;
  for (size_t i = 0; i < a.size(); ++i)
    if (lower(a[i]) != lower(b[i]))
      return false;
  return true;
}

// Reads a plain decimal text ("[-]digits[.digits][e[+-]digits]") whatever
// the C locale says the decimal point is.
double decimalValue(std::string_view plain) {
  double d = 0;
  auto [ptr, ec] = std::from_chars(plain.data(), plain.data() + plain.size(), d);
  if (ec == std::errc::result_out_of_range) {
    // Beyond the double range: too small reads as 0, too large as infinity,
    // which the caller reports as an overflow.
    size_t e = plain.find('e');
    bool tiny = e != std::string_view::npos && e + 1 < plain.size() && plain[e + 1] == '-';
    bool negative = !plain.empty() && plain.front() == '-';
    double mag = tiny ? 0.0 : std::numeric_limits<double>::infinity();
    return negative ? -mag : mag;
  }
  if (ec != std::errc() || ptr != plain.data() + plain.size())
    raise(errTypeMismatch);
  return d;
}

// &H / &O forms take the type of the smallest of Integer and Long they fit,
// so &HFFFF is -1 and &HFFFFFFFF is -1, as literals of the language are.
double radixValue(std::string_view digits, int radix) {
  if (digits.empty())
    raise(errTypeMismatch);
  uint64_t v = 0;
  for (char c : digits) {
    int d;
    if (isDigit(c))
      d = c - '0';
    else if (radix == 16 && lower(c) >= 'a' && lower(c) <= 'f')
      d = lower(c) - 'a' + 10;
    else
      raise(errTypeMismatch);
    if (d >= radix)
      raise(errTypeMismatch);
    v = v * static_cast<uint64_t>(radix) + static_cast<uint64_t>(d);
    if (v > 0xFFFFFFFFull)
      raise(errOverflow);
  }
  if (v <= 0xFFFF)
    return static_cast<double>(static_cast<int16_t>(static_cast<uint16_t>(v)));
  return static_cast<double>(static_cast<int32_t>(static_cast<uint32_t>(v)));
}

} // namespace

int16_t add16(int32_t a, int32_t b) {
  return checked<int16_t>(int64_t{a} + b);
}
int16_t sub16(int32_t a, int32_t b) {
  return checked<int16_t>(int64_t{a} - b);
}
int16_t mul16(int32_t a, int32_t b) {
  return checked<int16_t>(int64_t{a} * b);
}
int16_t narrow16(int64_t v) {
  return checked<int16_t>(v);
}

int32_t add32(int64_t a, int64_t b) {
  int64_t r;
  if (__builtin_add_overflow(a, b, &r))
    raise(errOverflow);
  return checked<int32_t>(r);
}
int32_t sub32(int64_t a, int64_t b) {
  int64_t r;
  if (__builtin_sub_overflow(a, b, &r))
    raise(errOverflow);
  return checked<int32_t>(r);
}
int32_t mul32(int64_t a, int64_t b) {
  int64_t r;
  if (__builtin_mul_overflow(a, b, &r))
    raise(errOverflow);
  return checked<int32_t>(r);
}

double roundHalfEven(double v) {
  if (!std::isfinite(v))
    return v;
  double r = std::round(v); // halves away from zero
  if (std::fabs(r - v) == 0.5 && std::fmod(r, 2.0) != 0.0)
    r -= std::copysign(1.0, v);
  return r;
}

int16_t cint(double v) {
  return static_cast<int16_t>(roundInRange(v, -32768.0, 32767.0));
}
int32_t clng(double v) {
  return static_cast<int32_t>(roundInRange(v, -2147483648.0, 2147483647.0));
}
uint8_t cbyte(double v) {
  return static_cast<uint8_t>(roundInRange(v, 0.0, 255.0));
}

double textToNumber(std::string_view text) {
  std::string_view s = trimBlanks(text);
  bool negative = false;
  bool signSeen = false;
  bool currencySeen = false;
  if (s.size() >= 2 && s.front() == '(' && s.back() == ')') {
    negative = true;
    signSeen = true;
    s = trimBlanks(s.substr(1, s.size() - 2));
  }
  // Leading sign and currency sign, in either order, blanks after each.
  for (;;) {
    if (!s.empty() && !signSeen && (s.front() == '+' || s.front() == '-')) {
      negative = s.front() == '-';
      signSeen = true;
    } else if (!s.empty() && !currencySeen && s.front() == '$') {
      currencySeen = true;
    } else {
      break;
    }
    s = trimBlanks(s.substr(1));
  }
  if (!signSeen && !s.empty() && (s.back() == '+' || s.back() == '-')) {
    negative = s.back() == '-';
    signSeen = true;
    s = trimBlanks(s.substr(0, s.size() - 1));
  }
  if (s.empty())
    raise(errTypeMismatch);

  double value;
  if (s.front() == '&') {
    if (s.size() >= 2 && lower(s[1]) == 'h')
      value = radixValue(s.substr(2), 16);
    else if (s.size() >= 2 && lower(s[1]) == 'o')
      value = radixValue(s.substr(2), 8);
    else
      value = radixValue(s.substr(1), 8);
  } else {
    // Gather a plain form: digits (separators dropped), point, exponent.
    std::string plain;
    plain.reserve(s.size() + 1);
    size_t i = 0;
    size_t mantissaDigits = 0;
    while (i < s.size() && (isDigit(s[i]) || (s[i] == ',' && mantissaDigits > 0))) {
      if (s[i] != ',') {
        plain += s[i];
        ++mantissaDigits;
      }
      ++i;
    }
    if (i < s.size() && s[i] == '.') {
      plain += '.';
      ++i;
      while (i < s.size() && isDigit(s[i])) {
        plain += s[i++];
        ++mantissaDigits;
      }
    }
    if (mantissaDigits == 0)
      raise(errTypeMismatch);
    if (i < s.size() && (lower(s[i]) == 'e' || lower(s[i]) == 'd')) {
      plain += 'e';
      ++i;
      if (i < s.size() && (s[i] == '+' || s[i] == '-'))
        plain += s[i++];
      size_t expDigits = 0;
      while (i < s.size() && isDigit(s[i])) {
        plain += s[i++];
        ++expDigits;
      }
      if (expDigits == 0)
        raise(errTypeMismatch);
    }
    if (i != s.size())
      raise(errTypeMismatch);
    if (plain.front() == '.')
      plain.insert(plain.begin(), '0');
    value = decimalValue(plain);
    if (std::isinf(value))
      raise(errOverflow);
  }
  return negative ? -value : value;
}

bool textToBool(std::string_view text) {
  if (equalsNoCase(text, "true"))
    return true;
  if (equalsNoCase(text, "false"))
    return false;
  return textToNumber(text) != 0.0;
}

std::optional<double> readNumber(std::string_view text) {
  std::string_view s = trimBlanks(text);
  size_t i = 0;
  bool negative = false;
  if (i < s.size() && (s[i] == '+' || s[i] == '-'))
    negative = s[i++] == '-';
  size_t start = i;
  size_t digits = 0;
  while (i < s.size() && isDigit(s[i]))
    ++i, ++digits;
  if (i < s.size() && s[i] == '.') {
    ++i;
    while (i < s.size() && isDigit(s[i]))
      ++i, ++digits;
  }
  if (digits == 0)
    return std::nullopt;
  if (i < s.size() && lower(s[i]) == 'e') {
    ++i;
    if (i < s.size() && (s[i] == '+' || s[i] == '-'))
      ++i;
    size_t expDigits = 0;
    while (i < s.size() && isDigit(s[i]))
      ++i, ++expDigits;
    if (expDigits == 0)
      return std::nullopt;
  }
  if (i != s.size())
    return std::nullopt;
  std::string plain(s.substr(start));
  if (plain.front() == '.')
    plain.insert(plain.begin(), '0');
  double v = decimalValue(plain);
  return negative ? -v : v;
}

namespace {

// A Variant's whole number as T: integers are range-checked, reals and texts
// rounded by the matching conversion; an array has none.
template <typename T> T wholeOf(const Variant& v, T (*fromReal)(double)) {
  if (v.isArray())
    raise(errTypeMismatch);
  switch (v.type()) {
  case VarType::I2:
  case VarType::I4:
  case VarType::UI1:
  case VarType::Bool:
    return checked<T>(v.rawI4());
  case VarType::R4:
  case VarType::R8:
  case VarType::BSTR:
    return fromReal(toR8(v));
  default:
    return 0;
  }
}

} // namespace

int16_t toI2(const Variant& v) {
  return wholeOf<int16_t>(v, cint);
}

int32_t toI4(const Variant& v) {
  return wholeOf<int32_t>(v, clng);
}

uint8_t toUI1(const Variant& v) {
  return wholeOf<uint8_t>(v, cbyte);
}

bool toBool(const Variant& v) {
  if (v.isArray())
    raise(errTypeMismatch);
  switch (v.type()) {
  case VarType::BSTR:
    return textToBool(v.rawStr());
  case VarType::R4:
  case VarType::R8:
    return v.rawR8() != 0.0;
  case VarType::Empty:
  case VarType::Variant:
    return false;
  default:
    return v.rawI4() != 0;
  }
}

double toR8(const Variant& v) {
  if (v.isArray())
    raise(errTypeMismatch);
  switch (v.type()) {
  case VarType::R4:
  case VarType::R8:
    return v.rawR8();
  case VarType::BSTR:
    return textToNumber(v.rawStr());
  case VarType::Empty:
  case VarType::Variant:
    return 0.0;
  default:
    return v.rawI4();
  }
}

float toR4(const Variant& v) {
  double d = toR8(v);
  if (std::isfinite(d) && std::fabs(d) > std::numeric_limits<float>::max())
    raise(errOverflow);
  return static_cast<float>(d);
}

std::string toStr(const Variant& v) {
  if (v.isArray())
    raise(errTypeMismatch);
  switch (v.type()) {
  case VarType::I2:
  case VarType::I4:
  case VarType::UI1:
    return std::to_string(v.rawI4());
  case VarType::Bool:
    return v.rawBool() != 0 ? "True" : "False";
  case VarType::R4:
    return strR4(v.rawR4());
  case VarType::R8:
    return strR8(v.rawR8());
  case VarType::BSTR:
    return v.rawStr();
  default:
    return "";
  }
}

Variant convertTo(const Variant& v, VarType t) {
  if (v.isArray() && t != VarType::Variant)
    raise(errTypeMismatch);
  switch (t) {
  case VarType::I2:
    return Variant::i2(toI2(v));
  case VarType::I4:
    return Variant::i4(toI4(v));
  case VarType::UI1:
    return Variant::ui1(toUI1(v));
  case VarType::Bool:
    return Variant::boolean(toBool(v));
  case VarType::R4:
    return Variant::r4(toR4(v));
  case VarType::R8:
    return Variant::r8(toR8(v));
  case VarType::BSTR:
    return Variant::str(toStr(v));
  case VarType::Empty:
    return Variant();
  case VarType::Variant:
    return v;
  }
  return v;
}

} // namespace zv
