// The period calculator's best setting, built for each device and timed on
// simavr: the pin runs at the period the calculator promised, with its duty.
#include <tuple>

#include "harness.h"
#include "host/calc/period_calc.h"

namespace zvavr {
namespace {

struct Wish {
  const char* name;
  double hz, dutyPercent;
};
void PrintTo(const Wish& w, std::ostream* os) {
  *os << w.name;
}
// An exact setting on clk / 64, and an infrared carrier that falls between two registers.
const Wish kWishes[] = {{"1kHz", 1000, 25}, {"38kHz", 38000, 50}};

using Case = std::tuple<Device, Wish>;
class CalculatorOnChip : public testing::TestWithParam<Case> {};

TEST_P(CalculatorOnChip, BestSettingGivesThePeriodItPromised) {
  const auto& [device, wish] = GetParam();
  Scenario s(device);
  const auto settings = zvhost::closestSettings(
      {static_cast<double>(s.clock), 1e6 / wish.hz, zvhost::DutyUnit::Percent, wish.dutyPercent});
  ASSERT_FALSE(settings.empty());
  const zvhost::PeriodSetting& best = settings.front();
  ASSERT_TRUE(
      s.run({{ChangePeriod, {best.pr2, best.code}}, {Enable, {1}}, {SetDuty, {1, best.duty}}}));
  const Measurement m = expectOnChip(s, {.channel2 = false});
  ASSERT_TRUE(m.ok) << m.error;
  EXPECT_EQ(m.a.period, best.cycles);
  EXPECT_EQ(m.a.high, 2ull * best.duty * best.prescaler);
  EXPECT_NEAR(m.a.period * 1e6 / s.clock, best.periodUs, 1e-9);
}

std::string caseName(const testing::TestParamInfo<Case>& info) {
  return std::get<0>(info.param).name + "_" + std::get<1>(info.param).name;
}

INSTANTIATE_TEST_SUITE_P(Devices, CalculatorOnChip,
                         testing::Combine(testing::ValuesIn(allDevices()),
                                          testing::ValuesIn(kWishes)),
                         caseName);

} // namespace
} // namespace zvavr
