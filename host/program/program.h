// The C program of a component for its target: the definitions, the
// interrupt code, one function per macro that was called in simulation, and a
// main that runs the initialisation, makes those calls in the same order with
// the same arguments, then idles.
//
// The definitions and the initialisation are filled with the settings the
// simulation began with; a change of the period or clock source made outside
// the macros while it ran (on the page, through a property) becomes a call of
// macro 3, the period change, at the point where it happened. A macro's
// function has the macro's name (the second field of MacroNames), its return
// type (the third) and its parameters with their types from MacroParameters;
// arguments beyond them are dropped, as the simulated macros ignore them.
#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "zelvor/objects.h"

namespace zvhost {

// One simulated macro call as the host made it.
struct MacroCall {
  int32_t macroId = 0;
  std::vector<long> args; // the parameter values, in the macro's order
  std::string where{};    // where it was made ("line 12"), for messages
};

// The settings a program is made from: what the component fills in for "%a"
// (period register), "%b" (clock source code) and "%d" (alternative pin),
// its clock in hertz, and its Prescaler property.
struct Settings {
  std::string pr2, clockSource, altPin;
  int32_t hertz = 0;
  int32_t prescaler = 1;
  bool operator==(const Settings&) const = default;
};

// The settings of a component as they stand; nullopt when it refuses them.
std::optional<Settings> settingsOf(zv::ComponentObject& component);

// Settings changed by something other than a macro while the simulation ran.
struct SettingsChange {
  Settings before, after;
  std::string where;
};

using SimulationStep = std::variant<MacroCall, SettingsChange>;

// What a program is made from.
struct Simulation {
  std::optional<Settings> start; // nullopt: the component's settings now
  std::vector<SimulationStep> steps;
  std::string deviceFile; // the device file the component was given, if known
  std::string refusal;    // why no one program can do this run, if something says so
};

// Builds the program text. Fails (false, error filled) when the component
// refuses an operation the program needs, when a call names a macro outside
// the table or has fewer arguments than the macro's parameters, or when a
// step cannot be expressed.
bool generateProgram(zv::ComponentObject& component, const Simulation& simulation,
                     std::string& program, std::string& error);
// The calls alone, from the settings of now.
bool generateProgram(zv::ComponentObject& component, const std::vector<MacroCall>& calls,
                     std::string& program, std::string& error);

} // namespace zvhost
