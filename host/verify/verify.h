// Verify on chip: the program of a simulation built with avr-gcc for the
// component's device, run on libsimavr, and what its OC1A and OC1B pins did
// set beside what the panel shows. Shared by the script's verify command and
// the desktop window.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/program/program.h"
#include "host/program/target.h"
#include "toolchain.h"

namespace zvhost {

// One pin as it was measured: every change of level, and its summary over
// the last periods of the run.
struct PinTrace {
  std::string name;              // "PB1"
  std::vector<uint64_t> changes; // cycles; the level is 1 after the first, 0 after the second...
  bool output = false;           // the program made it an output
  bool steady = true;            // no edge in the measured periods
  int level = 0;                 // the level at the end
  uint64_t period = 0, high = 0; // cycles, of the last period
  int levelAt(uint64_t cycle) const;
};

// A channel's numbers: what the panel printed and what the pin did, both
// written as the panel writes them, and whether they agree.
struct ChannelCheck {
  int channel = 0;
  std::string panelPeriod, panelDuty; // "12.50 us", "50 %"; a note such as "(disabled)" in duty
  std::string chipPeriod, chipDuty;   // "-" for the period of a steady pin
  double periodUs = 0, highUs = 0, dutyPercent = 0;
  bool same = false;
  bool checked = false; // false: the panel shows no channel here, nothing to compare
};

struct Verification {
  Target target;
  int32_t hertz = 0;
  Built built;
  uint64_t cycles = 0; // how long the chip ran
  uint64_t from = 0;   // where the measured periods begin: the calls are done by then
  PinTrace pins[2];    // channel 1's and channel 2's pin
  ChannelCheck channels[2];
  bool same = false;
  // Milliseconds spent in each step, for the curious and the benchmark.
  double generateMs = 0, compileMs = 0, simulateMs = 0;
};

// Where the tools are; empty members are looked for beside the running
// program, then on PATH.
struct VerifyTools : Toolchain {
  std::string pwmMeasure;
};

// Writes dir/program.c, builds it and runs it. Fails (false, error filled)
// when the program cannot be made or built, or the chip cannot be run.
bool verifyOnChip(zv::ComponentObject& component, const Simulation& simulation,
                  const std::string& dir, Verification& out, std::string& error,
                  const VerifyTools& tools = {});

// How long the chip runs, in cycles: the program's start and its calls (more
// than they can take), then twenty periods, fewer for long ones.
struct RunWindow {
  uint64_t from = 0, cycles = 0;
};
RunWindow runWindow(double periodUs, int32_t hertz, size_t calls);

// The panel's texts for a period in microseconds and a duty in percent.
std::string periodText(double us);
std::string dutyText(double percent);

} // namespace zvhost
