// What the host needs of a device file beyond the component's keys: the
// names of the chip for avr-gcc and simavr, and where its Timer1 outputs are.
#pragma once

#include <optional>
#include <string>

namespace zvhost {

struct Target {
  std::string file, name, mmcu, simavrCore;
  char port = 'B';
  int bit1 = -1, bit2 = -1, bitAlt = -1; // OC1A, OC1B, OC1C (-1: none)
};

// The device file's target; nullopt (error filled) when a key is missing.
std::optional<Target> readTarget(const std::string& deviceFile, std::string& error);

} // namespace zvhost
