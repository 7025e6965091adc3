// The C program of a component for its target: the definitions, the
// interrupt code, one function per macro that was called in simulation, and a
// main that runs the initialisation, makes those calls in the same order with
// the same arguments, then idles.
//
// Every text taken from the component (definitions, initialisation,
// interrupt code, macro bodies) goes through MacroCodeOverride, so a
// placeholder may stand in any block of the code file. The interrupt code
// stands at file scope after the macro functions; the initialisation opens
// main. A macro's function has the macro's name (the second field of
// MacroNames), its return type (the third) and its parameters with their
// types from MacroParameters.
#pragma once

#include <string>
#include <vector>

#include "zelvor/izelvor.h"

namespace zvhost {

// One simulated macro call as the host made it.
struct MacroCall {
  int32_t macroId = 0;
  std::vector<long> args; // the parameter values, in the macro's order
};

// Builds the program text. Fails (false, error filled) when the component
// refuses an operation the program needs, when a call names a macro outside
// the table, or when its argument count differs from the macro's parameters.
bool generateProgram(zv::IZelvorComponentV4& component, const std::vector<MacroCall>& calls,
                     std::string& program, std::string& error);

} // namespace zvhost
