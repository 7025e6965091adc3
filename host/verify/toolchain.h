// The AVR toolchain for a generated program: avr-gcc makes the ELF, then
// avr-objcopy the Intel HEX for avrdude and avr-size the size report, which
// run while the caller does other work with the ELF.
#pragma once

#include <memory>
#include <string>

#include "host/program/target.h"
#include "process.h"

namespace zvhost {

struct Toolchain {
  std::string gcc = "avr-gcc", objcopy = "avr-objcopy", size = "avr-size";
};

struct Built {
  std::string source, elf, hex; // file paths
  std::string sizeReport;       // what avr-size said
};

class Build {
public:
  // Writes dir/program.c and compiles it to dir/program.elf; false, error
  // filled with the compiler's words, when that fails. Then starts the HEX
  // and the size report.
  bool compile(const Toolchain& tools, const Target& target, const std::string& dir,
               const std::string& program, Built& built, std::string& error);
  // Waits for the HEX and the size report.
  bool finish(Built& built, std::string& error);

private:
  std::unique_ptr<Process> hex_, size_;
};

} // namespace zvhost
