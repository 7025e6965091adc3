#include <cmath>
#include <gtest/gtest.h>

#include "host/calc/period_calc.h"

namespace {

using zvhost::DutyUnit;

TEST(PeriodCalc, BestSettingAndItsError) {
  struct Case {
    double clock, periodUs;
    DutyUnit unit;
    double duty;
    int pr2, code;
    double errorPercent;
    int dutyCounts;
    double dutyPercent;
  };
  const Case cases[] = {
      // Four settings give 512 cycles exactly; the finest register wins.
      {8e6, 64, DutyUnit::None, 0, 255, 1, 0, -1, 0},
      {16e6, 1000, DutyUnit::Percent, 25, 124, 3, 0, 31, 24.8},
      {16e6, 1000, DutyUnit::Microseconds, 250, 124, 3, 0, 31, 24.8},
      // 1 kHz at 1 MHz: 1000 cycles = 2 x 250 x 2 is no setting; 2 x 63 x 8 = 1008.
      {1e6, 1000, DutyUnit::None, 0, 62, 2, 0.8, -1, 0},
      // Shorter than the shortest period: two cycles.
      {1e6, 1, DutyUnit::None, 0, 0, 1, 100, -1, 0},
      // Longer than the longest: the register and the divider at their ends.
      {16e6, 1e6, DutyUnit::None, 0, 255, 5, (524288.0 / 16e6 * 1e6 - 1e6) / 1e4, -1, 0},
      // A whole period holds the pin high; at PR 255 the register stops at 255.
      {16e6, 1000, DutyUnit::Percent, 100, 124, 3, 0, 125, 100},
      {8e6, 64, DutyUnit::Percent, 100, 255, 1, 0, 255, 255 / 2.56},
      {8e6, 64, DutyUnit::Percent, 0, 255, 1, 0, 0, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.clock << " Hz, " << c.periodUs << " us");
    auto list = zvhost::closestSettings({c.clock, c.periodUs, c.unit, c.duty});
    ASSERT_EQ(list.size(), 5u);
    const auto& best = list.front();
    EXPECT_EQ(best.pr2, c.pr2);
    EXPECT_EQ(best.code, c.code);
    EXPECT_NEAR(best.errorPercent, c.errorPercent, 1e-9);
    EXPECT_EQ(best.cycles, 2ull * (best.pr2 + 1) * zvhost::prescalerOfCode(best.code));
    EXPECT_DOUBLE_EQ(best.periodUs, best.cycles * 1e6 / c.clock);
    EXPECT_EQ(best.duty, c.dutyCounts);
    EXPECT_NEAR(best.dutyPercent, c.dutyPercent, 1e-9);
    // Every source once, ordered by how far it falls from the wish.
    for (size_t i = 1; i < list.size(); ++i)
      EXPECT_LE(std::fabs(list[i - 1].errorPercent), std::fabs(list[i].errorPercent) + 1e-9);
  }
}

TEST(PeriodCalc, NothingToOfferWithoutAClockOrAPeriod) {
  EXPECT_TRUE(zvhost::closestSettings({0, 1000}).empty());
  EXPECT_TRUE(zvhost::closestSettings({8e6, 0}).empty());
  EXPECT_TRUE(zvhost::closestSettings({8e6, -5}).empty());
}

} // namespace
