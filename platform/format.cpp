// Number to text: CStr of Double and Single, and Format with number pictures.
// Everything goes through std::to_chars, so the C locale never changes the
// decimal point.
#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

#include "vbnum.h"

namespace zv {

namespace {

// The magnitude of a value as decimal digits: value = 0.digits * 10^point.
struct Decimal {
  std::string digits;
  int point = 0;
};

Decimal toDecimal(double magnitude, int significantDigits) {
  char buf[64];
  auto res = std::to_chars(buf, buf + sizeof buf, magnitude, std::chars_format::scientific,
                           significantDigits - 1);
  std::string_view text(buf, static_cast<size_t>(res.ptr - buf));
  size_t e = text.find('e');
  Decimal d;
  for (char c : text.substr(0, e))
    if (c != '.')
      d.digits += c;
  int exponent = 0;
  std::string_view exp = text.substr(e + 1);
  if (!exp.empty() && exp.front() == '+')
    exp.remove_prefix(1);
  std::from_chars(exp.data(), exp.data() + exp.size(), exponent);
  d.point = exponent + 1;
  return d;
}

// CStr: the shortest of the significant digits, plain notation unless the
// exponent is below -4 or reaches the digit count ("1E+15", "1E-05").
std::string generalText(double v, int significantDigits) {
  if (std::isnan(v))
    return "NaN";
  if (std::isinf(v))
    return v < 0 ? "-Inf" : "Inf";
  if (v == 0)
    return "0";
  Decimal d = toDecimal(std::fabs(v), significantDigits);
  while (d.digits.size() > 1 && d.digits.back() == '0')
    d.digits.pop_back();
  std::string out = v < 0 ? "-" : "";
  int exponent = d.point - 1;
  if (exponent < -4 || exponent >= significantDigits) {
    out += d.digits[0];
    if (d.digits.size() > 1)
      out.append(1, '.').append(d.digits, 1);
    out += exponent < 0 ? "E-" : "E+";
    std::string e = std::to_string(std::abs(exponent));
    if (e.size() < 2)
      e.insert(e.begin(), '0');
    return out + e;
  }
  if (d.point <= 0) {
    out += "0." + std::string(static_cast<size_t>(-d.point), '0') + d.digits;
  } else if (static_cast<size_t>(d.point) >= d.digits.size()) {
    out += d.digits + std::string(static_cast<size_t>(d.point) - d.digits.size(), '0');
  } else {
    out += d.digits.substr(0, static_cast<size_t>(d.point)) + "." +
           d.digits.substr(static_cast<size_t>(d.point));
  }
  return out;
}

// A number picture split into its parts. Placeholders are '0' and '#'; the
// first '.' is the decimal point; a ',' between integer placeholders groups
// thousands. Everything else is literal text around the number.
struct Picture {
  std::string prefix;
  std::string suffix;
  int minIntegerDigits = 0;
  int decimals = 0;         // placeholders after the point
  int requiredDecimals = 0; // up to the last '0' after the point
  bool hasPoint = false;
  bool grouping = false;
  bool percent = false;
};

bool isPlaceholder(char c) {
  return c == '0' || c == '#';
}

// Literal text: a backslash takes the next character as it is, double quotes
// enclose text taken as it is.
void appendLiteral(std::string& out, std::string_view s, bool& percent) {
  for (size_t i = 0; i < s.size(); ++i) {
    char c = s[i];
    if (c == '\\' && i + 1 < s.size()) {
      out += s[++i];
    } else if (c == '"') {
      size_t end = s.find('"', i + 1);
      if (end == std::string_view::npos)
        end = s.size();
      out += s.substr(i + 1, end - i - 1);
      i = end;
    } else {
      if (c == '%')
        percent = true;
      out += c;
    }
  }
}

Picture parsePicture(std::string_view picture) {
  Picture p;
  size_t begin = 0;
  // The number part starts at the first placeholder or point outside quotes.
  for (bool quoted = false; begin < picture.size(); ++begin) {
    char c = picture[begin];
    if (c == '"')
      quoted = !quoted;
    else if (!quoted && c == '\\')
      ++begin;
    else if (!quoted && (isPlaceholder(c) || c == '.'))
      break;
  }
  size_t end = begin;
  bool afterPoint = false;
  while (end < picture.size()) {
    char c = picture[end];
    if (isPlaceholder(c)) {
      if (afterPoint) {
        ++p.decimals;
        if (c == '0')
          p.requiredDecimals = p.decimals;
      } else if (c == '0' || p.minIntegerDigits > 0) {
        ++p.minIntegerDigits;
      }
    } else if (c == '.' && !afterPoint) {
      afterPoint = true;
      p.hasPoint = true;
    } else if (c == ',' && !afterPoint) {
      p.grouping = true;
    } else {
      break;
    }
    ++end;
  }
  appendLiteral(p.prefix, picture.substr(0, std::min(begin, picture.size())), p.percent);
  appendLiteral(p.suffix, picture.substr(std::min(end, picture.size())), p.percent);
  return p;
}

// Rounds the digits half away from zero to the given decimals; answers the
// integer digits and the fraction digits.
void roundDecimal(const Decimal& d, int decimals, std::string& integer, std::string& fraction) {
  std::string all = d.digits;
  int point = d.point;
  if (point < 0) {
    all.insert(0, static_cast<size_t>(-point), '0');
    point = 0;
  }
  size_t keep = static_cast<size_t>(point + decimals);
  if (all.size() < keep)
    all.append(keep - all.size(), '0');
  bool up = all.size() > keep && all[keep] >= '5';
  all.resize(keep);
  if (up) {
    size_t i = all.size();
    while (i > 0 && all[i - 1] == '9')
      all[--i] = '0';
    if (i == 0) {
      all.insert(all.begin(), '1');
      ++point;
    } else {
      ++all[i - 1];
    }
  }
  integer = all.substr(0, static_cast<size_t>(point));
  fraction = all.substr(static_cast<size_t>(point));
}

} // namespace

std::string strR8(double v) {
  return generalText(v, 15);
}

std::string strR4(float v) {
  return generalText(v, 7);
}

std::string formatPicture(double value, std::string_view picture, int significantDigits) {
  Picture p = parsePicture(picture);
  if (p.percent)
    value *= 100.0;
  if (!std::isfinite(value))
    return strR8(value);
  if (significantDigits < 1)
    significantDigits = 15;

  std::string integer;
  std::string fraction;
  if (value == 0) {
    fraction.assign(static_cast<size_t>(p.decimals), '0');
  } else {
    roundDecimal(toDecimal(std::fabs(value), significantDigits), p.decimals, integer, fraction);
  }
  size_t firstNonZero = integer.find_first_not_of('0');
  integer.erase(0, firstNonZero == std::string::npos ? integer.size() : firstNonZero);
  if (integer.size() < static_cast<size_t>(p.minIntegerDigits))
    integer.insert(0, static_cast<size_t>(p.minIntegerDigits) - integer.size(), '0');
  if (p.grouping)
    for (size_t i = integer.size(); i > 3; i -= 3)
      integer.insert(i - 3, 1, ',');
  while (fraction.size() > static_cast<size_t>(p.requiredDecimals) && fraction.back() == '0')
    fraction.pop_back();

  std::string out = value < 0 ? "-" : "";
  out += p.prefix;
  out += integer;
  if (p.hasPoint)
    out += "." + fraction;
  out += p.suffix;
  return out;
}

} // namespace zv
