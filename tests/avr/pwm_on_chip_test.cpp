#include <algorithm>
#include <string>
#include <tuple>

#include "harness.h"

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

using Case = std::tuple<Device, long, ClockSource>;

class OnChipMatrix : public testing::TestWithParam<Case> {};

TEST_P(OnChipMatrix, PinsShowThePeriodAndDutyOfTheModel) {
  const auto& [device, pr2, clock] = GetParam();
  // Duties in pairs, one per channel: off, the smallest, a spread, and one
  // above a whole period where the register leaves room for it.
  const std::pair<long, long> duties[] = {{0, 1}, {64, 128}, {255, std::min(pr2 + 2, 255L)}};
  for (const auto& [duty1, duty2] : duties) {
    const std::string run = std::to_string(duty1) + "_" + std::to_string(duty2);
    SCOPED_TRACE("duties " + run);
    Scenario s(device);
    ASSERT_TRUE(s.run({{Enable, {1}},
                       {Enable, {2}},
                       {ChangePeriod, {pr2, clock.code}},
                       {SetDuty, {1, duty1}},
                       {SetDuty, {2, duty2}}}));
    EXPECT_TRUE(s.boxes.texts.empty());
    expectOnChip(s, {.suffix = run});
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
  Scenario s(GetParam());
  s.set("Pr2", zv::Variant::i2(99));
  s.set("Prescaler", zv::Variant::i2(8));
  ASSERT_TRUE(s.run({{Enable, {1}}, {Enable, {2}}, {SetDuty, {1, 30}}, {SetDuty, {2, 70}}}));
  EXPECT_EQ(s.expected(1).period, 1600u);
  expectOnChip(s);
}

TEST_P(OnChip, DisabledChannelGoesLowAndTheOtherRunsOn) {
  Scenario s(GetParam());
  ASSERT_TRUE(s.run({{ChangePeriod, {49, 1}},
                     {Enable, {1}},
                     {SetDuty, {1, 20}},
                     {Enable, {2}},
                     {SetDuty, {2, 20}},
                     {Disable, {2}}}));
  ASSERT_TRUE(s.expected(2).steady);
  expectOnChip(s);
}

class OnChipAlternative : public OnChip {};

// OC1C carries channel 2; OC1B is left alone: an input, and no waveform.
TEST_P(OnChipAlternative, PinCarriesChannelTwo) {
  const Device& device = GetParam();
  if (!device.simavrAlt)
    GTEST_SKIP() << "simavr does not drive OC1C on " << device.core;
  Scenario s(device);
  s.set("UseAltPin", zv::Variant::boolean(true));
  ASSERT_TRUE(s.run({{ChangePeriod, {99, 1}},
                     {Enable, {1}},
                     {SetDuty, {1, 30}},
                     {Enable, {2}},
                     {SetDuty, {2, 60}}}));
  const Measurement m = expectOnChip(s, {.bitB = device.bitAlt});
  const Measurement b = measure(device, device.bit2, device.bitAlt, m.elf, 16000000, {20000, 4000});
  ASSERT_TRUE(b.ok) << b.error;
  EXPECT_EQ(b.a.ddr, 0);
  EXPECT_TRUE(b.a.steady);
}

std::string deviceName(const testing::TestParamInfo<Device>& info) {
  return info.param.name;
}

std::vector<Device> withAlternativePin() {
  std::vector<Device> out = allDevices();
  std::erase_if(out, [](const Device& d) { return !d.hasAlt; });
  return out;
}

INSTANTIATE_TEST_SUITE_P(Devices, OnChip, testing::ValuesIn(allDevices()), deviceName);
INSTANTIATE_TEST_SUITE_P(Devices, OnChipAlternative, testing::ValuesIn(withAlternativePin()),
                         deviceName);

TEST(OnChipMacros, TenBitDutyIsReducedAsInTheSimulation) {
  struct Case {
    long high, low;
    long duty; // what the panel shows
  };
  const Case cases[] = {{1, 0, 64}, {1, 3, 64}, {0, 3, 0}, {2, 128, 160}, {7, 255, 255}, {0, 4, 1}};
  for (const Case& c : cases) {
    const std::string run = std::to_string(c.high) + "_" + std::to_string(c.low);
    SCOPED_TRACE("high, low " + run);
    Scenario s(byName("ATmega328P"));
    ASSERT_TRUE(
        s.run({{ChangePeriod, {255, 1}}, {Enable, {1}}, {SetDutyHighLow, {1, c.high, c.low}}}));
    EXPECT_EQ(zv::toI4(s.field("aDuty", 0)), c.duty);
    expectOnChip(s, {.suffix = run, .channel2 = false});
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
      ASSERT_TRUE(s.run({{ChangePeriod, {99, code}},
                         {Enable, {1}},
                         {Enable, {2}},
                         {SetDuty, {1, 25}},
                         {SetDuty, {2, 75}}}));
      EXPECT_EQ(s.expected(1, t1Clock).period, 3200u);
      expectOnChip(s, {.suffix = device.name + "_" + std::to_string(code), .t1Clock = t1Clock});
    }
  }
}

// Clock source codes above 7 keep the running clock, on chip and in the model.
TEST(OnChipMacros, UnknownClockCodeKeepsTheClock) {
  Scenario s(byName("ATmega644"));
  ASSERT_TRUE(
      s.run({{ChangePeriod, {99, 2}}, {ChangePeriod, {49, 8}}, {Enable, {1}}, {SetDuty, {1, 10}}}));
  EXPECT_EQ(s.expected(1).period, 800u);
  expectOnChip(s, {.channel2 = false});
}

// A period change while both channels run: the old waveform holds for a
// while, then the new one takes over, both as the model had them.
TEST(OnChipMacros, PeriodChangeWhileRunning) {
  for (const char* name : {"ATmega328P", "ATmega2560", "ATmega16"}) {
    SCOPED_TRACE(name);
    const Device device = byName(name);
    Scenario s(device);
    ASSERT_TRUE(s.run({{ChangePeriod, {99, 2}},
                       {Enable, {1}},
                       {Enable, {2}},
                       {SetDuty, {1, 40}},
                       {SetDuty, {2, 90}}}));
    const Expected before[] = {s.expected(1), s.expected(2)};
    ASSERT_TRUE(s.run({{ChangePeriod, {199, 1}}}, false));
    const Expected after[] = {s.expected(1), s.expected(2)};
    ASSERT_NE(before[0].period, after[0].period);

    // About 20 old periods of busy waiting before the last call; the pins
    // end on the new waveform, and hold a run of the old one before it.
    const Measurement m = expectOnChip(
        s, {.suffix = name,
            .window = {60000 + 10 * after[0].period, 0, 8},
            .edit = "    for (volatile unsigned int wait = 0; wait < 2500; wait++) {}\n"});
    for (int i = 0; m.ok && i < 2; ++i) {
      const Pin& pin = i ? m.b : m.a;
      const bool oldRun =
          std::any_of(pin.segments.begin(), pin.segments.end(), [&](const Segment& g) {
            return shows({1, 0, false, g.period, g.high, g.periods, {}}, before[i]);
          });
      EXPECT_TRUE(oldRun) << "no run of the old period " << before[i].period;
    }
  }
}

} // namespace
} // namespace zvavr
