// The device files a user can pick in the desktop window.
#pragma once

#include <string>
#include <vector>

namespace zvhost {

// The devices folder: <source dir>/devices in a build tree, else
// <exe dir>/../share/zelvor/devices when installed; empty when neither exists.
std::string devicesFolder(const std::string& exeDir);

// The *.zvd files of a folder, as full paths sorted by name.
std::vector<std::string> deviceFiles(const std::string& folder);

} // namespace zvhost
