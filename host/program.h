// The C program of a component for its target: the definitions, the
// initialisation, the interrupt code, one function per macro that was called
// in simulation (its code passed through MacroCodeOverride), and a main that
// makes those calls in the same order with the same arguments, then idles.
#pragma once

#include <string>
#include <vector>

#include "component/core/objects.h"

namespace zvhost {

// One simulated macro call as the host made it.
struct MacroCall {
  int32_t macroId = 0;
  std::vector<long> args; // the parameter values, in the macro's order
};

// Builds the program text. Fails (false, error filled) when the component
// refuses an operation the program needs.
bool generateProgram(zv::ComponentObject& component, const std::vector<MacroCall>& calls,
                     std::string& program, std::string& error);

} // namespace zvhost
