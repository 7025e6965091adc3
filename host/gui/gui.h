// The desktop host window: `zelvor-host gui [SCRIPT]`.
#pragma once

#include <string>

namespace zvhost {

// Runs the window until it closes; answers the process exit status.
// pluginPath is the plug-in to load (empty: the one beside the host).
int runGui(int argc, char** argv, const std::string& pluginPath, const std::string& scriptPath);

} // namespace zvhost
