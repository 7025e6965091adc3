// The on-chip tests' harness: a component made by the plug-in in the build's
// lib folder, beside the real code file, driven by simulated macro calls recorded for the
// program; the program built with avr-gcc and its pins timed with
// pwm-measure on simavr; and what the component's model says each pin must do.
#pragma once

#include <cstdint>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "host/plugin/loader.h"
#include "host/program/program.h"
#include "platform/msgbox.h"
#include "platform/vbnum.h"

namespace zvavr {

// One devices/*.zvd file with what the tests need of it.
struct Device {
  std::string file, name, mmcu, core;
  char port = 'B';
  int bit1 = 0, bit2 = 0, bitAlt = -1;
  bool hasAlt = false;
  bool simavrAlt = false; // simavr drives OC1C on this core
  bool simavrT1 = false;  // simavr counts Timer1 on a virtual T1 clock here
};

// gtest names a device by its name in parameterised test output.
inline void PrintTo(const Device& d, std::ostream* os) {
  *os << d.name;
}

std::vector<Device> allDevices(); // sorted by name
Device byName(const std::string& name);

// A fresh folder under the build tree for one test's files.
std::string workDir(const std::string& name);
// Compiles program into dir/name.elf; false with the compiler's output.
bool compile(const Device& d, const std::string& dir, const std::string& name,
             const std::string& program, std::string& log);

struct Segment {
  uint64_t start = 0, periods = 0, period = 0, high = 0;
};

// pwm-measure's summary of a pin.
struct Pin {
  int ddr = 0, level = 0;
  bool steady = true;
  uint64_t period = 0, high = 0, periods = 0;
  std::vector<Segment> segments; // the last runs of periods, in order
};

struct Measurement {
  bool ok = false;
  std::string error, elf;
  Pin a, b;
};

struct Window {
  uint64_t cycles = 0;    // simulate until this cycle
  uint64_t from = 0;      // summarise the periods that start here or later
  uint64_t tolerance = 0; // periods this close join one run
  uint32_t t1Clock = 0;   // hertz fed to Timer1's external clock input, or 0
};

Measurement measure(const Device& d, int bitA, int bitB, const std::string& elf, uint32_t freq,
                    const Window& w);

enum Macro : int32_t { Enable = 0, Disable = 1, SetDuty = 2, ChangePeriod = 3, SetDutyHighLow = 4 };

// A pin as the component's model has it, in clock cycles of the target.
struct Expected {
  bool steady = true;
  int level = 0;
  uint64_t period = 0, high = 0;
  uint64_t count = 1; // one timer count in cycles: the error must stay below it
};

// Whether a measured pin shows what the model expects.
testing::AssertionResult shows(const Pin& pin, const Expected& e);

struct Scenario {
  explicit Scenario(const Device& device);
  ~Scenario();

  // StartSimulation, which begins the recording (unless start is false),
  // then the macro calls with 16-bit parameters in order, each recorded when
  // it succeeds; fails at the first call that fails.
  testing::AssertionResult run(const std::vector<zvhost::MacroCall>& list, bool start = true);

  // Channel 1 or 2 as the model shows it now. The model counts an external
  // clock pulse as one second; t1Clock gives the pulse rate on the chip.
  Expected expected(int channel, uint32_t t1Clock = 0) const;

  // A public property of the component, and one of its fields (an element
  // of an array field when index is given), as its public interface has them.
  void set(const std::string& property, const zv::Variant& value);
  zv::Variant field(const std::string& name, int index = -1) const;

  Device device;
  int32_t clock = 16000000;
  zv::HeadlessMessageBoxes boxes;
  zvhost::Plugin::ComponentPtr pwm;
  std::vector<zvhost::MacroCall> calls;
};

struct OnChipRun {
  std::string suffix{}; // added to the test's name for its work folder
  int bitB = -1;        // the pin of channel 2; -1: the device's OC1B
  uint32_t t1Clock = 0; // see Window
  bool channel2 = true; // false: channel 2 never set up, its pin not checked
  Window window{};      // cycles 0: long enough for several whole periods
  std::string edit{};   // program text put in ahead of the last call in main
};

// Generates the program, builds it, measures it and checks both channels
// against the model as it is now; failures go to gtest.
Measurement expectOnChip(Scenario& s, const OnChipRun& run = {});

} // namespace zvavr
