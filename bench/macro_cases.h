// The five simulated macros as a flowchart calls them, each with two parameter
// blocks that the benchmarks alternate, so that every call changes the state.
#pragma once

#include <array>

#include "zelvor/objects.h"
#include "platform/variant.h"

namespace zvbench {

struct MacroCase {
  const char* name;
  int32_t id;
  zv::Variant first;
  zv::Variant second;
};

// DisableChannel switches channel 2 off each time: channel 1 stays plotted
// and channel 2 shows its note, which is the picture a host sees after it.
const std::array<MacroCase, 5>& macroCases();

// Simulation running, both channels on with different duties.
void runBothChannels(zv::ComponentObject& component);

// One SimMacroCall as the host makes it; raises on a failed status.
void callMacro(zv::ComponentObject& component, int32_t id, const zv::Variant& vParams);

} // namespace zvbench
