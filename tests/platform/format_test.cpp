#include <gtest/gtest.h>

#include "platform/vbnum.h"

namespace zv {
namespace {

struct PictureRow {
  double value;
  const char* picture;
  int digits;
  const char* text;
};

// The panel and page read-outs are pinned where they are made; these are the
// picture's own rules.
TEST(FormatPicture, DigitsRoundingLiteralsAndGrouping) {
  const PictureRow rows[] = {
      {1.66667, "00.00 ms", 7, "01.67 ms"},
      {1e6, "00.00", 15, "1000000.00"},
      {50, "0", 15, "50"},
      {2.5, "0", 15, "3"},
      {125.245, "0.00", 15, "125.25"},
      {-0.001, "00.00", 15, "-00.00"},
      {-12.345, "00.00 us", 15, "-12.35 us"},
      {0.1234565, "0.0#####", 15, "0.123457"},
      {5e-7, "0.0#####", 15, "0.000001"},
      {1e-7, "0.0#####", 15, "0.0"},
      {0.5, "0 %", 15, "50 %"},
      {1234567, "#,##0", 15, "1,234,567"},
      {5, "0.##", 15, "5."},
      {0.5, "#.00", 15, ".50"},
      {7, "\"x=\"0", 15, "x=7"},
      {7, "0\\#", 15, "7#"},
      {0, "#", 15, ""},
      {-5, "$0", 15, "-$5"},
      {9.9999999, "0.0#####", 15, "10.0"},
  };
  for (const auto& r : rows)
    EXPECT_EQ(formatPicture(r.value, r.picture, r.digits), r.text) << r.value << " " << r.picture;
}

TEST(CStr, DoubleAndSingleDigits) {
  std::string doubles;
  for (double v : {0.0, -2.5, 0.1, 1.0 / 3, 123456789012345.0, 1e15, 0.0001, 0.00001, -1.5e-7})
    doubles += strR8(v) + " ";
  EXPECT_EQ(doubles, "0 -2.5 0.1 0.333333333333333 123456789012345 1E+15 0.0001 1E-05 -1.5E-07 ");
  EXPECT_EQ(strR4(0.1f), "0.1");
  EXPECT_EQ(strR4(1.0f / 3), "0.3333333");
  EXPECT_EQ(strR4(65.536f), "65.536");
  EXPECT_EQ(strR4(16777216.0f), "1.677722E+07");
}

} // namespace
} // namespace zv
