#include <gtest/gtest.h>

#include "page_fixture.h"

namespace zv::test {
namespace {

struct ReadOutCase {
  int32_t clock;
  int16_t pr2, prescaler, divider;
  const char *clockText, *periodText, *frequencyText;
};

// The page script pins the read-out of the table's sources, the kHz and MHz
// forms, no clock and a divider of 0 or 2. Here prescalers outside the table
// (0 counts external pulses, 2 divides) and a period cut to six digits.
TEST(ReadOut, FormatsClockPeriodAndFrequency) {
  const ReadOutCase cases[] = {{8000000, 99, 0, 1, "1.0 MHz", "200.0 us", "5.0 KHz"},
                               {8000000, 99, 2, 1, "8.0 MHz", "50.0 us", "20.0 KHz"},
                               {3000000, 0, 1, 1, "3.0 MHz", "0.666667 us", "1500.0 KHz"}};
  for (const ReadOutCase& c : cases) {
    SCOPED_TRACE(&c - cases);
    Properties page;
    page.lPageClockSpeed = c.clock;
    page.iPagePr2 = c.pr2;
    page.iPagePrescaler = c.prescaler;
    page.iPageClockDivider = c.divider;
    page.Calc_Period_Freq();
    EXPECT_EQ(page.lblClockSpeed.Caption(), c.clockText);
    EXPECT_EQ(page.Lbl_period.Caption(), c.periodText);
    EXPECT_EQ(page.Lbl_frequency.Caption(), c.frequencyText);
  }
}

TEST(ReadOutLimits, CycleCountBeyondSixteenBitsFails) {
  Properties page;
  page.iPagePr2 = 255;
  page.iPageClockDivider = 128;
  EXPECT_THROW(page.Calc_Period_Freq(), RuntimeError);
}

} // namespace
} // namespace zv::test
