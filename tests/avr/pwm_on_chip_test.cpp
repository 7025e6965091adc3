#include <algorithm>
#include <string>
#include <tuple>

#include "scenario.h"

namespace zvavr {
namespace {

struct ClockSource {
  long code;
  const char* name;
};
void PrintTo(const ClockSource& c, std::ostream* os) {
  *os << c.name;
}
const ClockSource kClocks[] = {{1, "clk1"}, {2, "clk8"}, {3, "clk64"}, {5, "clk1024"}, {0, "none"}};
const long kPr2s[] = {0, 99, 255};

std::string testName() {
  const auto* info = testing::UnitTest::GetInstance()->current_test_info();
  std::string name = std::string(info->test_suite_name()) + "." + info->name();
  std::replace(name.begin(), name.end(), '/', '_');
  return name;
}

// Duties in pairs, one per channel: off, the smallest, a spread, and one
// above a whole period where the register leaves room for it.
std::vector<std::pair<long, long>> dutyPairs(long pr2) {
  return {{0, 1}, {64, 128}, {255, std::min(pr2 + 2, 255L)}};
}

using Case = std::tuple<Device, long, ClockSource>;

class OnChipMatrix : public testing::TestWithParam<Case> {};

TEST_P(OnChipMatrix, PinsShowThePeriodAndDutyOfTheModel) {
  const auto& [device, pr2, clock] = GetParam();
  int run = 0;
  for (const auto& [duty1, duty2] : dutyPairs(pr2)) {
    SCOPED_TRACE("duties " + std::to_string(duty1) + ", " + std::to_string(duty2));
    Scenario s(device);
    ASSERT_TRUE(s.start().ok());
    ASSERT_TRUE(s.call(Enable, {1}).ok());
    ASSERT_TRUE(s.call(Enable, {2}).ok());
    ASSERT_TRUE(s.call(ChangePeriod, {pr2, clock.code}).ok());
    ASSERT_TRUE(s.call(SetDuty, {1, duty1}).ok());
    ASSERT_TRUE(s.call(SetDuty, {2, duty2}).ok());
    EXPECT_TRUE(s.boxes().empty());
    const Expected one = s.expected(1), two = s.expected(2);
    Measurement m = runOnChip(s, testName() + "_" + std::to_string(run++), device.bit1, device.bit2,
                              windowFor(one, two));
    if (!m.ok)
      continue;
    EXPECT_TRUE(shows(m.a, one)) << "channel 1";
    EXPECT_TRUE(shows(m.b, two)) << "channel 2";
  }
}

std::string caseName(const testing::TestParamInfo<Case>& info) {
  const auto& [device, pr2, clock] = info.param;
  return device.name + "_pr" + std::to_string(pr2) + "_" + clock.name;
}

INSTANTIATE_TEST_SUITE_P(Devices, OnChipMatrix,
                         testing::Combine(testing::ValuesIn(allDevices()), testing::ValuesIn(kPr2s),
                                          testing::ValuesIn(kClocks)),
                         caseName);

class OnChip : public testing::TestWithParam<Device> {};

TEST_P(OnChip, SettingsFromThePageStartTheTimer) {
  const Device& device = GetParam();
  Scenario s(device);
  s.pwm().setPr2(99);
  s.pwm().setPrescaler(8);
  ASSERT_TRUE(s.start().ok());
  ASSERT_TRUE(s.call(Enable, {1}).ok());
  ASSERT_TRUE(s.call(Enable, {2}).ok());
  ASSERT_TRUE(s.call(SetDuty, {1, 30}).ok());
  ASSERT_TRUE(s.call(SetDuty, {2, 70}).ok());
  const Expected one = s.expected(1), two = s.expected(2);
  EXPECT_EQ(one.period, 1600u);
  Measurement m = runOnChip(s, testName(), device.bit1, device.bit2, windowFor(one, two));
  if (m.ok) {
    EXPECT_TRUE(shows(m.a, one));
    EXPECT_TRUE(shows(m.b, two));
  }
}

TEST_P(OnChip, DisabledChannelGoesLowAndTheOtherRunsOn) {
  const Device& device = GetParam();
  Scenario s(device);
  ASSERT_TRUE(s.start().ok());
  ASSERT_TRUE(s.call(ChangePeriod, {49, 1}).ok());
  for (long channel : {1, 2}) {
    ASSERT_TRUE(s.call(Enable, {channel}).ok());
    ASSERT_TRUE(s.call(SetDuty, {channel, 20}).ok());
  }
  ASSERT_TRUE(s.call(Disable, {2}).ok());
  const Expected one = s.expected(1), two = s.expected(2);
  ASSERT_TRUE(two.steady);
  Measurement m = runOnChip(s, testName(), device.bit1, device.bit2, windowFor(one, two));
  if (m.ok) {
    EXPECT_TRUE(shows(m.a, one));
    EXPECT_TRUE(shows(m.b, two));
  }
}

INSTANTIATE_TEST_SUITE_P(Devices, OnChip, testing::ValuesIn(allDevices()),
                         [](const testing::TestParamInfo<Device>& info) {
                           return info.param.name;
                         });

std::vector<Device> withAlternativePin() {
  std::vector<Device> out;
  for (const Device& d : allDevices())
    if (d.hasAlt)
      out.push_back(d);
  return out;
}

class OnChipAlternative : public testing::TestWithParam<Device> {};

TEST_P(OnChipAlternative, CarriesChannelTwo) {
  const Device& device = GetParam();
  if (!device.simavrAlt)
    GTEST_SKIP() << "simavr does not drive OC1C on " << device.core;
  Scenario s(device);
  s.pwm().setUseAltPin(-1);
  ASSERT_TRUE(s.start().ok());
  ASSERT_TRUE(s.call(ChangePeriod, {99, 1}).ok());
  for (long channel : {1, 2}) {
    ASSERT_TRUE(s.call(Enable, {channel}).ok());
    ASSERT_TRUE(s.call(SetDuty, {channel, channel * 30}).ok());
  }
  const Expected one = s.expected(1), two = s.expected(2);
  const Window w = windowFor(one, two);
  Measurement m = runOnChip(s, testName(), device.bit1, device.bitAlt, w);
  if (!m.ok)
    return;
  EXPECT_TRUE(shows(m.a, one));
  EXPECT_TRUE(shows(m.b, two));
  // OC1B is left alone: an input, and no waveform.
  Measurement b = measure(device, device.bit2, device.bitAlt,
                          buildDir() + "/tests/avr-work/" + testName() + "/pwm.elf", 16000000, w);
  ASSERT_TRUE(b.ok) << b.error;
  EXPECT_EQ(b.a.ddr, 0);
  EXPECT_TRUE(b.a.steady);
}

INSTANTIATE_TEST_SUITE_P(Devices, OnChipAlternative, testing::ValuesIn(withAlternativePin()),
                         [](const testing::TestParamInfo<Device>& info) {
                           return info.param.name;
                         });

Device byName(const std::string& name) {
  for (const Device& d : allDevices())
    if (d.name == name)
      return d;
  ADD_FAILURE() << "no device file for " << name;
  return {};
}

TEST(OnChipMacros, TenBitDutyIsReducedAsInTheSimulation) {
  struct Case {
    long high, low;
    long duty; // what the panel shows
  };
  const Case cases[] = {{1, 0, 64}, {1, 3, 64}, {0, 3, 0}, {2, 128, 160}, {7, 255, 255}, {0, 4, 1}};
  const Device device = byName("ATmega328P");
  int run = 0;
  for (const Case& c : cases) {
    SCOPED_TRACE("high " + std::to_string(c.high) + " low " + std::to_string(c.low));
    Scenario s(device);
    ASSERT_TRUE(s.start().ok());
    ASSERT_TRUE(s.call(ChangePeriod, {255, 1}).ok());
    ASSERT_TRUE(s.call(Enable, {1}).ok());
    ASSERT_TRUE(s.call(SetDutyHighLow, {1, c.high, c.low}).ok());
    EXPECT_EQ(s.pwm().aDuty[0], c.duty);
    const Expected one = s.expected(1), two = s.expected(2);
    Measurement m = runOnChip(s, testName() + "_" + std::to_string(run++), device.bit1, device.bit2,
                              windowFor(one, two));
    if (m.ok) {
      EXPECT_TRUE(shows(m.a, one));
    }
  }
}

// External clock codes count Timer1 on the T1 pin, on the falling (6) or the
// rising (7) edge; simavr feeds it a virtual clock, on some cores only.
TEST(OnChipMacros, ExternalClockCountsTheT1Pin) {
  const uint32_t t1Clock = 1000000;
  for (const Device& device : allDevices()) {
    if (!device.simavrT1)
      continue;
    for (long code : {6, 7}) {
      SCOPED_TRACE(device.name + " code " + std::to_string(code));
      Scenario s(device);
      ASSERT_TRUE(s.start().ok());
      ASSERT_TRUE(s.call(ChangePeriod, {99, code}).ok());
      ASSERT_TRUE(s.call(Enable, {1}).ok());
      ASSERT_TRUE(s.call(Enable, {2}).ok());
      ASSERT_TRUE(s.call(SetDuty, {1, 25}).ok());
      ASSERT_TRUE(s.call(SetDuty, {2, 75}).ok());
      const Expected one = s.expected(1, t1Clock), two = s.expected(2, t1Clock);
      EXPECT_EQ(one.period, 3200u);
      Window w = windowFor(one, two);
      w.t1Clock = t1Clock;
      Measurement m = runOnChip(s, testName() + "_" + device.name + "_" + std::to_string(code),
                                device.bit1, device.bit2, w);
      if (m.ok) {
        EXPECT_TRUE(shows(m.a, one));
        EXPECT_TRUE(shows(m.b, two));
      }
    }
  }
}

// Clock source codes above 7 keep the running clock, on chip and in the model.
TEST(OnChipMacros, UnknownClockCodeKeepsTheClock) {
  const Device device = byName("ATmega644");
  Scenario s(device);
  ASSERT_TRUE(s.start().ok());
  ASSERT_TRUE(s.call(ChangePeriod, {99, 2}).ok());
  ASSERT_TRUE(s.call(ChangePeriod, {49, 8}).ok());
  ASSERT_TRUE(s.call(Enable, {1}).ok());
  ASSERT_TRUE(s.call(SetDuty, {1, 10}).ok());
  const Expected one = s.expected(1), two = s.expected(2);
  EXPECT_EQ(one.period, 800u);
  Measurement m = runOnChip(s, testName(), device.bit1, device.bit2, windowFor(one, two));
  if (m.ok) {
    EXPECT_TRUE(shows(m.a, one));
  }
}

// One run of periods as a pin that shows nothing else.
Pin asPin(const Segment& g) {
  Pin p;
  p.ddr = 1;
  p.steady = false;
  p.periods = g.periods;
  p.period = g.period;
  p.high = g.high;
  return p;
}

// A period change while both channels run: the old waveform holds for a
// while, then the new one takes over, both as the model had them.
TEST(OnChipMacros, PeriodChangeWhileRunning) {
  for (const char* name : {"ATmega328P", "ATmega2560", "ATmega16"}) {
    SCOPED_TRACE(name);
    const Device device = byName(name);
    Scenario s(device);
    ASSERT_TRUE(s.start().ok());
    ASSERT_TRUE(s.call(ChangePeriod, {99, 2}).ok());
    ASSERT_TRUE(s.call(Enable, {1}).ok());
    ASSERT_TRUE(s.call(Enable, {2}).ok());
    ASSERT_TRUE(s.call(SetDuty, {1, 40}).ok());
    ASSERT_TRUE(s.call(SetDuty, {2, 90}).ok());
    const Expected before1 = s.expected(1), before2 = s.expected(2);
    ASSERT_TRUE(s.call(ChangePeriod, {199, 1}).ok());
    const Expected after1 = s.expected(1), after2 = s.expected(2);
    ASSERT_NE(before1.period, after1.period);

    // About 20 old periods of busy waiting before the last call.
    const std::string wait = "    for (volatile unsigned int wait = 0; wait < 2500; wait++) {}\n";
    const Window w{60000 + 10 * after1.period, 0, 8};
    Measurement m = runOnChip(s, testName() + "_" + name, device.bit1, device.bit2, w, wait);
    if (!m.ok)
      continue;
    struct Channel {
      const Pin& pin;
      Expected before, after;
    };
    for (const Channel& c : {Channel{m.a, before1, after1}, Channel{m.b, before2, after2}}) {
      EXPECT_TRUE(shows(c.pin, c.after));
      const bool oldRun = std::any_of(c.pin.segments.begin(), c.pin.segments.end(),
                                      [&](const Segment& g) { return shows(asPin(g), c.before); });
      EXPECT_TRUE(oldRun) << "no run of the old period " << c.before.period;
    }
  }
}

} // namespace
} // namespace zvavr
