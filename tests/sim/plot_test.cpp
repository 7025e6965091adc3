// The plot's pure parts beyond what the plot script shows: percentages past
// 100, and the failure of a period register of -1.
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
  const auto plot = [](int16_t duty) {
    return [duty] { zv::plotWaveform({duty, -1, 0, 2500, 1400}); };
  };
  EXPECT_EQ(zvtest::errorOf(plot(0)), zv::errOverflow);
  EXPECT_EQ(zvtest::errorOf(plot(7)), zv::errDivisionByZero);
}

} // namespace
