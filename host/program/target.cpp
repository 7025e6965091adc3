#include "target.h"

#include "platform/profile.h"

namespace zvhost {

std::optional<Target> readTarget(const std::string& deviceFile, std::string& error) {
  Target t;
  t.file = deviceFile;
  std::string missing;
  auto text = [&](const char* key) {
    std::string value;
    zv::getPrivateProfileString("Device", key, "", value, 255, deviceFile);
    if (value.empty() && missing.empty())
      missing = key;
    return value;
  };
  auto bit = [&](const char* key, bool required) {
    const int32_t value = zv::getPrivateProfileInt("Device", key, -1, deviceFile);
    if ((value < 0 || value > 7) && required && missing.empty())
      missing = key;
    return value < 0 || value > 7 ? -1 : value;
  };
  t.name = text("Name");
  t.mmcu = text("Mmcu");
  t.simavrCore = text("SimavrCore");
  t.port = text("PwmPort").append("B")[0];
  t.bit1 = bit("PwmBit1", true);
  t.bit2 = bit("PwmBit2", true);
  t.bitAlt = bit("PwmBitAlt", false);
  if (!missing.empty()) {
    error = "the device file " + deviceFile + " has no usable " + missing;
    return std::nullopt;
  }
  return t;
}

} // namespace zvhost
