// Memory of components in one host, from the process's own counters.
#pragma once

namespace zvbench {

// Resident memory in MiB that 100 ready components add to the host once each
// has run a simulation with both channels plotted. The empty host is this
// process with the plug-in loaded and no component.
double memoryOfComponents(int count = 100);

} // namespace zvbench
