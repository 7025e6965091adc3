#include "platform/vbnum.h"
#include "tests/common/error_of.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

#include "platform/errors.h"

namespace zv {
namespace {

using zvtest::errorOf;

TEST(CheckedArithmetic, OverflowRaisesSixAtTheEdgesOfTheRange) {
  EXPECT_EQ(add16(32766, 1), 32767);
  EXPECT_EQ(sub16(-32767, 1), -32768);
  EXPECT_EQ(mul16(-256, 128), -32768);
  EXPECT_EQ(add32(2147483646, 1), 2147483647);
  EXPECT_EQ(mul32(-65536, 32768), std::numeric_limits<int32_t>::min());
  for (auto f : std::initializer_list<std::function<void()>>{
           [] { add16(32767, 1); }, [] { sub16(-32768, 1); }, [] { mul16(256, 128); },
           [] { narrow16(40000); }, [] { add32(2147483647, 1); }, [] { sub32(-2147483647 - 1, 1); },
           [] { mul32(65536, 32768); }, [] { mul32(std::numeric_limits<int64_t>::max(), 2); }})
    EXPECT_EQ(errorOf(f), errOverflow);
}

TEST(Rounding, TiesGoToTheEvenNeighbour) {
  const struct {
    double in, out;
  } rows[] = {{0.5, 0},     {1.5, 2},    {2.5, 2},    {-1.5, -2}, {-2.5, -2},
              {242.5, 242}, {2.4999, 2}, {2.5001, 3}, {-0.4, 0},  {1e15 + 1, 1e15 + 1}};
  for (auto r : rows)
    EXPECT_EQ(roundHalfEven(r.in), r.out) << r.in;
}

TEST(Rounding, IntegerConversionsCheckTheRangeAfterRounding) {
  EXPECT_EQ(cint(32767.4), 32767);
  EXPECT_EQ(cint(-32768.5), -32768);
  EXPECT_EQ(clng(2147483647.4), 2147483647);
  EXPECT_EQ(cbyte(-0.5), 0);
  EXPECT_EQ(cbyte(254.5), 254);
  for (auto f : std::initializer_list<std::function<void()>>{
           [] { cint(32767.5); }, [] { clng(2147483647.5); }, [] { cbyte(255.5); },
           [] { cbyte(-0.6); }, [] { cint(std::nan("")); }})
    EXPECT_EQ(errorOf(f), errOverflow);
}

TEST(TextToNumber, ReadsTheForms) {
  const struct {
    const char* text;
    double value;
  } rows[] = {
      {"12", 12},    {"  12  ", 12},  {"-12", -12},   {"+12", 12},        {"12-", -12},
      {"(12)", -12}, {"1,234", 1234}, {"$5", 5},      {"-$5", -5},        {"1.5", 1.5},
      {".5", 0.5},   {"5.", 5},       {"1e3", 1000},  {"1.5E-2", 0.015},  {"&H10", 16},
      {"&hff", 255}, {"&O17", 15},    {"&HFFFF", -1}, {"&H10000", 65536}, {"\t7\t", 7},
      {"- 3", -3},   {"007", 7},
  };
  for (auto r : rows)
    EXPECT_DOUBLE_EQ(textToNumber(r.text), r.value) << r.text;
}

TEST(TextToNumber, RejectsTextsThatAreNotWhollyANumber) {
  for (const char* text : {"", "  ", "abc", "12abc", "0x10", "1e", ".", "-", "1.2.3", "&H", "&HG",
                           "&O8", "1 2", ",1", "--1", "(1", "True"})
    EXPECT_EQ(errorOf([&] { textToNumber(text); }), errTypeMismatch) << '"' << text << '"';
  EXPECT_EQ(errorOf([] { textToNumber("1e999"); }), errOverflow);
}

TEST(TextToBool, WordsInAnyCaseElseTheNumber) {
  for (auto [text, value] :
       {std::pair{"tRUE", true}, {"FALSE", false}, {"-1", true}, {"0.5", true}, {" 0 ", false}})
    EXPECT_EQ(textToBool(text), value) << text;
  for (const char* text : {"Yes", " True", "On", ""})
    EXPECT_EQ(errorOf([&] { textToBool(text); }), errTypeMismatch) << text;
}

TEST(ReadNumber, PlainDecimalFormsOnly) {
  const struct {
    const char* text;
    double value;
  } rows[] = {{"07", 7}, {"12.5", 12.5}, {" 3 ", 3},       {"-0.1", -0.1},
              {"+4", 4}, {"1e2", 100},   {"2.5E-1", 0.25}, {".5", 0.5}};
  for (auto [text, value] : rows)
    EXPECT_EQ(readNumber(text), value) << text;
  for (const char* text : {"-", ".", "", "abc", "1e", "&H10", "1,000", "3-", "1 2"})
    EXPECT_EQ(readNumber(text), std::nullopt) << '"' << text << '"';
}

TEST(VariantConversion, EachTypeToEachTarget) {
  EXPECT_EQ(toI2(Variant::str(" 12.5 ")), 12);
  EXPECT_EQ(toI2(Variant::boolean(true)), -1);
  EXPECT_EQ(toI4(Variant::r8(-2.5)), -2);
  EXPECT_EQ(toUI1(Variant::r4(254.5f)), 254);
  EXPECT_TRUE(toBool(Variant::str("true")));
  EXPECT_TRUE(toBool(Variant::r8(0.1)));
  EXPECT_EQ(toR8(Variant::boolean(true)), -1.0);
  EXPECT_EQ(toR8(Variant::str("&H10")), 16.0);
  EXPECT_EQ(toStr(Variant::boolean(false)), "False");
  EXPECT_EQ(toStr(Variant::r8(0.1)), "0.1");
  EXPECT_EQ(errorOf([] { toI2(Variant::i4(40000)); }), errOverflow);
  EXPECT_EQ(errorOf([] { toUI1(Variant::i2(-1)); }), errOverflow);
  EXPECT_EQ(errorOf([] { toR4(Variant::r8(1e39)); }), errOverflow);
  EXPECT_EQ(errorOf([] { toI4(Variant::str("12abc")); }), errTypeMismatch);
}

TEST(VariantConversion, ArraysAreATypeMismatch) {
  Variant a = Variant::array(SafeArray(VarType::I2, 0, 1));
  for (auto f : std::initializer_list<std::function<void()>>{
           [&] { toI2(a); }, [&] { toI4(a); }, [&] { toUI1(a); }, [&] { toBool(a); },
           [&] { toR8(a); }, [&] { toStr(a); }, [&] { convertTo(a, VarType::I4); }})
    EXPECT_EQ(errorOf(f), errTypeMismatch);
  EXPECT_EQ(convertTo(a, VarType::Variant), a);
}

TEST(VariantConversion, EmptyConvertsToTheZeroOfEachType) {
  EXPECT_EQ(convertTo(Variant(), VarType::I2), Variant::i2(0));
  EXPECT_EQ(convertTo(Variant(), VarType::Bool), Variant::boolean(false));
  EXPECT_EQ(convertTo(Variant(), VarType::BSTR), Variant::str(""));
  EXPECT_EQ(convertTo(Variant(), VarType::R4), Variant::r4(0));
  EXPECT_EQ(convertTo(Variant::str("-1"), VarType::Bool), Variant::boolean(true));
  SafeArray bools(VarType::Bool, 1, 2);
  bools.set(2, Variant::str("True"));
  EXPECT_EQ(bools.at(1), Variant::boolean(false));
  EXPECT_EQ(bools.at(2).rawBool(), -1);
}

} // namespace
} // namespace zv
