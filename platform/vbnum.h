// VB-style numbers: checked 16/32-bit arithmetic (an overflow raises error 6,
// never wraps), banker's rounding, the conversions of a Variant or a text, and
// number formatting by picture.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "variant.h"

namespace zv {

// Checked integer arithmetic. Operands are widened, the result must fit.
int16_t add16(int32_t a, int32_t b);
int16_t sub16(int32_t a, int32_t b);
int16_t mul16(int32_t a, int32_t b);
int32_t add32(int64_t a, int64_t b);
int32_t sub32(int64_t a, int64_t b);
int32_t mul32(int64_t a, int64_t b);
int16_t narrow16(int64_t v); // error 6 outside -32768..32767

// Round to the nearest whole number, a tie going to the even neighbour.
double roundHalfEven(double v);

// CInt / CLng / CByte of a number: round half even, then range check (6).
int16_t cint(double v);
int32_t clng(double v);
uint8_t cbyte(double v);

// A Boolean held in 16 bits: -1 for true, 0 for false.
inline int16_t vbBool(bool b) {
  return b ? -1 : 0;
}

// Conversions of a Variant, as VB's CInt, CLng, CByte, CBool, CDbl, CSng, CStr.
// Empty is 0 / False / "". A text is read by textToNumber or textToBool.
// An array, or a text that doesn't read, raises 13; out of range raises 6.
int16_t toI2(const Variant& v);
int32_t toI4(const Variant& v);
uint8_t toUI1(const Variant& v);
bool toBool(const Variant& v);
double toR8(const Variant& v);
float toR4(const Variant& v);
std::string toStr(const Variant& v);
// Converts to the given element type (used by SafeArray::set and property bags).
Variant convertTo(const Variant& v, VarType t);

// The number of a text: blanks around, a sign, digits, a point, an exponent,
// &H / &O prefixes. Anything else (empty, "12abc", "1e", ".") raises 13.
double textToNumber(std::string_view text);
// The Boolean of a text: "True"/"False" in any case, else its number != 0.
bool textToBool(std::string_view text);
// The number a property page reads from a text box: optional sign, digits,
// optional fraction, optional exponent, blanks around. nullopt when it isn't one.
std::optional<double> readNumber(std::string_view text);

// CStr of numbers: 15 significant digits for a Double, 7 for a Single.
std::string strR8(double v);
std::string strR4(float v);

// VB Format(value, picture) for number pictures such as "00.00 us", "0",
// "0.0##### MHz". The value is first written with significantDigits digits
// (15 for a Double, 7 for a Single), then rounded half away from zero.
std::string formatPicture(double value, std::string_view picture, int significantDigits = 15);

} // namespace zv
