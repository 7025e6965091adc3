#include "scenario.h"

#include <algorithm>
#include <cmath>

namespace zvavr {

Scenario::Scenario(const Device& device, int32_t clock) : device_(device), clock_(clock) {
  zv::setMessageBoxService(&boxes_);
  pwm_ = std::make_unique<zv::PWM>(zv::LibraryFacts{buildDir() + "/lib", "AVR_PWM", 4, 0, 0});
  EXPECT_TRUE(pwm_->put_ZelvorVersion(1024).ok());
  EXPECT_TRUE(pwm_->put_ZvdFilename(device.file).ok());
  EXPECT_TRUE(pwm_->put_ClockSpeed(clock).ok());
}

Scenario::~Scenario() {
  pwm_.reset();
  zv::setMessageBoxService(nullptr);
}

zv::Status Scenario::start() {
  calls_.clear();
  return pwm_->StartSimulation();
}

zv::Status Scenario::call(int32_t macro, std::vector<long> args) {
  zv::SafeArray params(zv::VarType::Variant, 0, static_cast<int32_t>(args.size()) - 1);
  for (size_t i = 0; i < args.size(); ++i)
    params.set(static_cast<int32_t>(i), zv::Variant::i2(static_cast<int16_t>(args[i])));
  int32_t result = 0, cycles = 0;
  zv::Variant affected;
  zv::Status status =
      pwm_->SimMacroCall(macro, zv::Variant::array(std::move(params)), result, affected, cycles);
  if (status.ok())
    calls_.push_back({macro, std::move(args)});
  return status;
}

Expected Scenario::expected(int channel, uint32_t t1Clock) const {
  const zv::PWM& p = *pwm_;
  const bool external = p.iPrescaler == -2 || p.iPrescaler == -3;
  // Clock cycles of the target in one unit of the model's period.
  const double cyclesPerUnit = external ? double(p.lClockSpeed) / t1Clock : p.lClockSpeed / 1e6;
  Expected e;
  e.count = external           ? static_cast<uint64_t>(p.lClockSpeed / t1Clock)
            : p.iPrescaler > 0 ? static_cast<uint64_t>(p.iPrescaler)
                               : 1;
  const bool on = p.aChannelOn[channel - 1] != 0;
  const int duty = p.aDuty[channel - 1];
  const int counts = p.iPr2 + 1;
  if (!on || duty == 0)
    return e;
  if (duty >= counts) {
    e.level = 1;
    return e;
  }
  const double units = external ? p.fPeriod / 1e6 : p.fPeriod; // seconds or microseconds
  const long long period = std::llround(units * cyclesPerUnit);
  if (period <= 0) // no clock: the timer stands
    return e;
  e.steady = false;
  e.period = static_cast<uint64_t>(period);
  e.high = static_cast<uint64_t>(std::llround(double(period) * duty / counts));
  return e;
}

Window windowFor(const Expected& one, const Expected& two) {
  const uint64_t period = std::max({one.period, two.period, uint64_t(1000)});
  const uint64_t settle = 4000; // start-up and the calls
  return {settle + 7 * period, settle + 2 * period, std::max(one.count, two.count) - 1};
}

testing::AssertionResult shows(const Pin& pin, const Expected& e) {
  // Less than one timer count off: a count too many or too few is a fault.
  auto near = [&](uint64_t got, uint64_t want) {
    return (got > want ? got - want : want - got) < e.count;
  };
  if (!pin.ddr)
    return testing::AssertionFailure() << "the pin is no output";
  if (e.steady) {
    if (pin.steady && pin.level == e.level)
      return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << "want steady " << e.level << ", got " << (pin.steady ? "steady " : "edges, last ")
           << pin.level << " period " << pin.period << " high " << pin.high;
  }
  if (!pin.steady && pin.periods >= 3 && near(pin.period, e.period) && near(pin.high, e.high))
    return testing::AssertionSuccess();
  return testing::AssertionFailure()
         << "want period " << e.period << " high " << e.high << " (less than " << e.count
         << "), got " << (pin.steady ? "steady " + std::to_string(pin.level) : "") << " period "
         << pin.period << " high " << pin.high << " over " << pin.periods << " periods";
}

Measurement runOnChip(Scenario& s, const std::string& test, int bitA, int bitB, const Window& w,
                      const std::string& programEdit) {
  std::string program, error, log;
  EXPECT_TRUE(zvhost::generateProgram(s.pwm(), s.calls(), program, error)) << error;
  if (!programEdit.empty()) {
    // The edit goes in ahead of the last call in main.
    const size_t idle = program.rfind("    for (;;) {}");
    const size_t last = program.rfind("\n    ", idle - 2);
    program.insert(last + 1, programEdit);
  }
  const std::string dir = workDir(test);
  if (!compile(s.device(), dir, "pwm", program, log)) {
    ADD_FAILURE() << "avr-gcc for " << s.device().mmcu << ":\n" << log << "\n" << program;
    return {};
  }
  Measurement m =
      measure(s.device(), bitA, bitB, dir + "/pwm.elf", static_cast<uint32_t>(s.clock()), w);
  EXPECT_TRUE(m.ok) << m.error;
  EXPECT_EQ(m.state, "running");
  return m;
}

} // namespace zvavr
