#include <gtest/gtest.h>

#include "fixture.h"
#include "platform/errors.h"
#include "tests/common/error_of.h"

namespace {

using zvtest::SimObject;

struct TimingCase {
  int32_t clock; // 0: no clock told, the default tick period applies
  int16_t pr2;
  int16_t prescaler;
  int16_t divider;
  float period;
};

class TimingTable : public ::testing::TestWithParam<TimingCase> {};

TEST_P(TimingTable, PeriodInMicroseconds) {
  const TimingCase& c = GetParam();
  SimObject o;
  zv::PWM& p = *o.pwm;
  p.fTickPeriod = c.clock ? static_cast<float>(1.0 / c.clock) : 0.0f;
  p.iPr2 = c.pr2;
  p.iPrescaler = c.prescaler;
  p.iClockDivider = c.divider;
  p.Calc_Period_Freq();
  EXPECT_NEAR(p.fPeriod, c.period, c.period * 1e-4f);
  // Without a clock the default is filled in, even for a prescaler that stops it.
  EXPECT_EQ(p.fTickPeriod, c.clock ? static_cast<float>(1.0 / c.clock) : 5.086263e-8f);
}

INSTANTIATE_TEST_SUITE_P(
    Clocks, TimingTable,
    // The plot script pins 8 MHz with prescalers 1, -1 and the external clocks.
    ::testing::Values(TimingCase{8000000, 255, 64, 1, 4096},
                      TimingCase{8000000, 255, 1024, 1, 65536}, TimingCase{8000000, 0, 1, 1, 0.25f},
                      TimingCase{19660800, 255, 1, 2, 52.0833f}, TimingCase{0, 255, 1, 1, 26.0417f},
                      TimingCase{0, 9, 0, 2, 40e6f}, TimingCase{0, 255, -1, 1, 0},
                      TimingCase{19660800, 255, -3, 1, 512e6f},
                      // Values the table doesn't hold count as their sign says.
                      TimingCase{8000000, 255, 2, 1, 128},
                      // No device data yet: no cycles, whatever the prescaler.
                      TimingCase{8000000, 255, 1024, 0, 0}, TimingCase{8000000, 255, -2, 0, 0}));

TEST(Timing, DividerOverflowFailsAndKeepsThePeriod) {
  SimObject o;
  zv::PWM& p = *o.pwm;
  p.fPeriod = 12.5f;
  p.iPr2 = 255;
  p.iClockDivider = 128; // 256 * 128 does not fit 16 bits
  EXPECT_EQ(zvtest::errorOf([&] { p.Calc_Period_Freq(); }), zv::errOverflow);
  EXPECT_EQ(p.fPeriod, 12.5f);
  p.iClockDivider = 127;
  EXPECT_NO_THROW(p.Calc_Period_Freq());
}

} // namespace
