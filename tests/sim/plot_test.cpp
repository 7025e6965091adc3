// The plot's pure parts beyond what the plot script shows: percentages past
// 100, the failure of a period register of -1, and a period with a fraction.
#include <gtest/gtest.h>

#include "platform/errors.h"
#include "sim/plot_geometry.h"
#include "tests/common/error_of.h"

namespace {

TEST(Plot, DutyPercentRoundsHalfToEvenAndMayExceedHundred) {
  struct Case {
    int16_t duty, pr2, percent;
  } cases[] = {{5, 255, 2}, {1, 7, 12}, {3, 7, 38}, {5, 7, 62}, {200, 99, 200}, {1, 0, 100}};
  for (const Case& c : cases)
    EXPECT_EQ(zv::dutyPercent(c.duty, c.pr2), c.percent) << c.duty << "/" << c.pr2;
}

TEST(Plot, PeriodRegisterOfMinusOneRaises) {
  EXPECT_EQ(zvtest::errorOf([] { zv::plotWaveform({0, -1, 0, 2500, 1400}); }), zv::errOverflow);
  EXPECT_EQ(zvtest::errorOf([] {
              zv::plotWaveform({7, -1, 0, 2500, 1400});
            }),
            zv::errDivisionByZero);
}

TEST(Plot, ReadOutTexts) {
  EXPECT_EQ(zv::periodText(26.04167f), "Period =  26.04 us");
  EXPECT_EQ(zv::dutyText(202), "Dutycycle =  100 %");
}

} // namespace
