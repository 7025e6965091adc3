// verify and vcd where no chip can be simulated (the Windows host): script errors.
#include "runner.h"

namespace zvhost {

Runner::Reply Runner::verify(LineScanner&) {
  throw ScriptError("verify: this host runs no simulated chip");
}

Runner::Reply Runner::vcd(LineScanner&) {
  throw ScriptError("vcd: this host runs no simulated chip");
}

} // namespace zvhost
