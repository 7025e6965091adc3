#include "toolchain.h"

#include <fstream>

namespace zvhost {

bool Build::compile(const Toolchain& tools, const Target& target, const std::string& dir,
                    const std::string& program, Built& built, std::string& error) {
  built = {dir + "/program.c", dir + "/program.elf", dir + "/program.hex", ""};
  std::ofstream(built.source, std::ios::binary | std::ios::trunc) << program;
  Process gcc;
  std::string log;
  if (!gcc.start({tools.gcc, "-mmcu=" + target.mmcu, "-Os", "-Wall", "-Wextra", "-Werror", "-o",
                  built.elf, built.source},
                 dir + "/gcc.log", error))
    return false;
  if (gcc.finish(log) != 0) {
    error = "avr-gcc -mmcu=" + target.mmcu + " failed:\n" + log;
    return false;
  }
  hex_ = std::make_unique<Process>();
  size_ = std::make_unique<Process>();
  return hex_->start({tools.objcopy, "-O", "ihex", "-R", ".eeprom", built.elf, built.hex},
                     dir + "/objcopy.log", error) &&
         size_->start({tools.size, "-C", "--mcu=" + target.mmcu, built.elf}, dir + "/size.log",
                      error);
}

bool Build::finish(Built& built, std::string& error) {
  std::string log;
  if (!hex_ || hex_->finish(log) != 0) {
    error = "avr-objcopy failed: " + log;
    return false;
  }
  if (size_->finish(built.sizeReport) != 0) {
    error = "avr-size failed: " + built.sizeReport;
    return false;
  }
  return true;
}

} // namespace zvhost
