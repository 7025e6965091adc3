#include "fixture.h"

namespace zvtest {
namespace {

TEST_F(ComponentTest, DeviceFileGivesThreeNumbers) {
  auto pwm = createWith({});
  struct Case {
    const char* what;
    std::string file; // empty: no such file
    bool ok;
    int16_t pwmCount, hasAlt, divider;
    int32_t maxPwm;
  };
  const std::vector<Case> cases{
      {"one channel", "[Device]\r\nPWMCount=1\r\nHasAltPWM=0\r\nClockDivider=1\r\n", true, 1, 0, 1,
       257},
      {"two channels", "[Device]\r\nPWMCount=2\r\nHasAltPWM=3\r\nClockDivider=4\r\n", true, 2, 3, 4,
       1026},
      {"low byte of a count", "[Device]\r\nPWMCount=300\r\n", true, 300, 0, 0, 44},
      {"no section", "[Other]\r\nPWMCount=2\r\n", true, 0, 0, 0, 0},
      {"missing file", "", true, 0, 0, 0, 0},
      {"beyond 16 bits", "[Device]\r\nPWMCount=2\r\nHasAltPWM=40000\r\nClockDivider=4\r\n", false,
       2, 0, 0, 2},
  };
  for (const Case& c : cases) {
    const std::string path =
        c.file.empty() ? folder.path() + "/none.zvd" : folder.write("device.zvd", c.file);
    zv::Status s = pwm->put_ZvdFilename(path);
    EXPECT_EQ(s.number, c.ok ? 0 : int{zv::errOverflow}) << c.what;
    EXPECT_EQ(pwm->iPwmCount, c.pwmCount) << c.what;
    EXPECT_EQ(pwm->iHasAltPin, c.hasAlt) << c.what;
    EXPECT_EQ(pwm->iClockDivider, c.divider) << c.what;
    EXPECT_EQ(pwm->MaxPwm(), c.maxPwm) << c.what;
  }
  pwm->iClockDivider = 128;
  EXPECT_THROW(pwm->MaxPwm(), zv::RuntimeError);
}

TEST_F(ComponentTest, ClockSpeedSetsTickPeriod) {
  auto pwm = createWith({});
  ASSERT_TRUE(pwm->put_ClockSpeed(19660800).ok());
  EXPECT_EQ(pwm->lClockSpeed, 19660800);
  EXPECT_FLOAT_EQ(pwm->fTickPeriod, 5.0862631e-8f);
  zv::Status s = pwm->put_ClockSpeed(0);
  EXPECT_EQ(s.number, zv::errDivisionByZero);
  EXPECT_EQ(pwm->lClockSpeed, 0);
  EXPECT_FLOAT_EQ(pwm->fTickPeriod, 5.0862631e-8f);
}

} // namespace
} // namespace zvtest
