#include "devices.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "platform/profile.h"

namespace zvhost {

namespace fs = std::filesystem;

std::string dataFolder(const std::string& exeDir, const std::string& installed,
                       const std::string& inSources) {
  std::error_code ec;
  // An installed host has its own data; the build tree's comes from the sources.
  const fs::path candidates[] = {
      fs::path(exeDir) / ".." / "share" / installed,
#ifdef ZV_SOURCE_DIR
      fs::path(ZV_SOURCE_DIR) / inSources,
#endif
  };
  for (const fs::path& folder : candidates)
    if (fs::is_directory(folder, ec))
      return folder.lexically_normal().string();
  return {};
}

std::string devicesFolder(const std::string& exeDir) {
  return dataFolder(exeDir, "zelvor/devices", "devices");
}

std::vector<std::string> deviceFiles(const std::string& folder) {
  std::vector<std::string> files;
  std::error_code ec;
  if (folder.empty() || !fs::is_directory(folder, ec))
    return files;
  for (const auto& entry : fs::directory_iterator(folder, ec))
    if (entry.is_regular_file(ec) && entry.path().extension() == ".zvd")
      files.push_back(entry.path().string());
  std::sort(files.begin(), files.end());
  return files;
}

DeviceInfo readDevice(const std::string& path) {
  DeviceInfo d;
  zv::getPrivateProfileString("Device", "Name", "", d.name, 255, path);
  if (d.name.empty())
    d.name = fs::path(path).stem().string();
  for (const char* pin : {"OC1A", "OC1B", "OC1C", "T1"}) {
    std::string bit;
    zv::getPrivateProfileString("Pins", pin, "", bit, 255, path);
    if (!bit.empty())
      d.pins.emplace_back(pin, bit);
  }
  return d;
}

std::string pinsText(const DeviceInfo& device) {
  std::string text;
  for (const auto& [pin, bit] : device.pins)
    text += (text.empty() ? "" : ", ") + pin + " " + bit;
  return text.empty() ? "no pins known" : text;
}

} // namespace zvhost
