// The device files a user can pick in the desktop window, and what the window
// shows of a device: its name and its Timer1 pins.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace zvhost {

// A folder of the host's data: <exe dir>/../share/<installed> when installed,
// else <source dir>/<inSources>; empty when neither exists.
std::string dataFolder(const std::string& exeDir, const std::string& installed,
                       const std::string& inSources);

// The devices folder: <source dir>/devices in a build tree, else
// <exe dir>/../share/zelvor/devices when installed; empty when neither exists.
std::string devicesFolder(const std::string& exeDir);

// The *.zvd files of a folder, as full paths sorted by name.
std::vector<std::string> deviceFiles(const std::string& folder);

struct DeviceInfo {
  std::string name; // the file's Name, else its base name
  // Section "Pins" in the order OC1A, OC1B, OC1C, T1: pin and port bit ("PB1").
  std::vector<std::pair<std::string, std::string>> pins;
};
DeviceInfo readDevice(const std::string& path);

// "OC1A PB1, OC1B PB2"; "no pins known" when the file names none.
std::string pinsText(const DeviceInfo& device);

} // namespace zvhost
