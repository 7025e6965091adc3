#include <gtest/gtest.h>

#include "page_fixture.h"

namespace zv::test {
namespace {

struct ReadOutCase {
  int32_t clock;
  int16_t pr2, prescaler, divider;
  const char *clockText, *periodText, *frequencyText;
};

TEST(ReadOut, FormatsClockPeriodAndFrequency) {
  const ReadOutCase cases[] = {{8000000, 255, 1, 1, "8.0 MHz", "64.0 us", "15.625 KHz"},
                               {1000000, 249, 8, 1, "1.0 MHz", "4.0 ms", "250.0 Hz"},
                               // Exactly one kilohertz stays in microseconds and kilohertz.
                               {2000000, 124, 8, 1, "2.0 MHz", "1000.0 us", "1.0 KHz"},
                               {8000000, 99, -2, 1, "1.0 MHz", "200.0 us", "5.0 KHz"},
                               {8000000, 99, -1, 1, "8.0 MHz", "0.0 ms", "0.0 Hz"},
                               // Outside the table: 0 counts external pulses, 2 divides.
                               {8000000, 99, 0, 1, "1.0 MHz", "200.0 us", "5.0 KHz"},
                               {8000000, 99, 2, 1, "8.0 MHz", "50.0 us", "20.0 KHz"},
                               {999999, 99, -1, 1, "999.999 kHz", "0.0 ms", "0.0 Hz"},
                               // No clock: the page's own cycle time of 0.050862 us.
                               {0, 255, 1, 1, "0.0 kHz", "26.04134 us", "38.40047 KHz"},
                               {0, 255, -2, 1, "1.0 MHz", "512.0 us", "1.953125 KHz"},
                               // The float carries 65.536 and no more digits.
                               {8000000, 255, 1024, 1, "8.0 MHz", "65.536 ms", "15.25879 Hz"},
                               {3000000, 0, 1, 1, "3.0 MHz", "0.666667 us", "1500.0 KHz"},
                               {16000000, 255, 1, 2, "16.0 MHz", "64.0 us", "15.625 KHz"},
                               {8000000, 255, 64, 0, "8.0 MHz", "0.0 ms", "0.0 Hz"}};
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
