// The host side of the on-chip tests: a component built from the real code
// file in the build's lib folder, driven by simulated macro calls that are
// recorded for the program, and what its model says each pin must do.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "chip.h"
#include "component/core/pwm.h"
#include "host/program.h"
#include "platform/msgbox.h"

namespace zvavr {

enum Macro : int32_t { Enable = 0, Disable = 1, SetDuty = 2, ChangePeriod = 3, SetDutyHighLow = 4 };

// A pin as the component's model has it, in clock cycles of the target.
struct Expected {
  bool steady = true;
  int level = 0;
  uint64_t period = 0, high = 0;
  uint64_t count = 1; // one timer count in cycles: the error must stay below it
};

class Scenario {
public:
  explicit Scenario(const Device& device, int32_t clock = 16000000);
  ~Scenario();
  Scenario(const Scenario&) = delete;
  Scenario& operator=(const Scenario&) = delete;

  zv::PWM& pwm() { return *pwm_; }
  const Device& device() const { return device_; }
  int32_t clock() const { return clock_; }

  // StartSimulation, which also begins the recording.
  zv::Status start();
  // One SimMacroCall with 16-bit integer parameters, recorded when it succeeds.
  zv::Status call(int32_t macro, std::vector<long> args);

  const std::vector<zvhost::MacroCall>& calls() const { return calls_; }
  const std::vector<std::string>& boxes() const { return boxes_.texts; }

  // Channel 1 or 2 as the model shows it now. The model counts an external
  // clock pulse as one second; t1Clock gives the pulse rate on the chip.
  Expected expected(int channel, uint32_t t1Clock = 0) const;

private:
  Device device_;
  int32_t clock_;
  zv::HeadlessMessageBoxes boxes_;
  std::unique_ptr<zv::PWM> pwm_;
  std::vector<zvhost::MacroCall> calls_;
};

// How long to simulate so the summary holds several whole periods.
Window windowFor(const Expected& one, const Expected& two);

// Whether a measured pin shows what the model expects.
testing::AssertionResult shows(const Pin& pin, const Expected& e);

// Generates the program, builds it and measures it; failures go to gtest.
Measurement runOnChip(Scenario& s, const std::string& test, int bitA, int bitB, const Window& w,
                      const std::string& programEdit = {});

} // namespace zvavr
