// What the fuzzed runner leaves out: pictures, which need Qt's widgets, and
// verify on chip, which runs avr-gcc and simavr. Each answers as it does when
// what it needs is missing.
#include "host/pictures/render.h"
#include "host/script/runner.h"

namespace zvhost {

bool renderPanel(zv::ComponentObject&, const std::string&, std::string& error, double) {
  error = "no pictures in this build";
  return false;
}

Runner::Reply Runner::verify(LineScanner&) {
  throw ScriptError("verify: no tool chain in this build");
}

Runner::Reply Runner::vcd(LineScanner&) {
  throw ScriptError("vcd: no verify in this build");
}

} // namespace zvhost
