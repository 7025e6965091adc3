// The target side of the on-chip tests: the device files, building a C
// program with avr-gcc, and timing its pins with pwm-measure on simavr.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

namespace zvavr {

// One devices/*.zvd file with what the tests need of it.
struct Device {
  std::string file; // full path
  std::string name;
  std::string mmcu;
  std::string core;
  char port = 'B';
  int bit1 = 0, bit2 = 0, bitAlt = -1;
  int hasAlt = 0;
  bool simavrAlt = false; // simavr drives OC1C on this core
  bool simavrT1 = false;  // simavr counts Timer1 on a virtual T1 clock here
};

// gtest names a device by its name in parameterised test output.
inline void PrintTo(const Device& d, std::ostream* os) {
  *os << d.name;
}

std::string sourceDir();
std::string buildDir();
std::vector<Device> allDevices(); // sorted by name

// A fresh folder under the build tree for one test's files.
std::string workDir(const std::string& name);

// Compiles program into workDir/name.elf; false with the compiler's output.
bool compile(const Device& d, const std::string& dir, const std::string& name,
             const std::string& program, std::string& log);

struct Segment {
  uint64_t start = 0, periods = 0, period = 0, high = 0;
};

struct Pin {
  int ddr = 0;
  int level = 0;
  bool steady = true;
  uint64_t period = 0, high = 0, periods = 0;
  std::vector<Segment> segments; // the last ones, in order
};

struct Measurement {
  bool ok = false;
  std::string error;
  std::string state;
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

} // namespace zvavr
