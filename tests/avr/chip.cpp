#include "chip.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <nlohmann/json.hpp>

#include "platform/profile.h"

namespace fs = std::filesystem;

namespace zvavr {
namespace {

std::string key(const std::string& path, const char* name) {
  std::string out;
  zv::getPrivateProfileString("Device", name, "", out, 255, path);
  return out;
}

int number(const std::string& path, const char* name, int fallback) {
  return zv::getPrivateProfileInt("Device", name, fallback, path);
}

std::string readAll(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream s;
  s << in.rdbuf();
  return s.str();
}

// Runs a shell command with its output (both streams) to a file.
int run(const std::string& command, const std::string& output) {
  return std::system((command + " > '" + output + "' 2>&1").c_str());
}

Pin pin(const nlohmann::json& j) {
  Pin p;
  p.ddr = j.at("ddr");
  p.level = j.at("level");
  p.steady = j.at("steady");
  p.period = j.at("period");
  p.high = j.at("high");
  p.periods = j.at("periods");
  for (const auto& s : j.at("segments"))
    p.segments.push_back({s.at("start"), s.at("periods"), s.at("period"), s.at("high")});
  return p;
}

} // namespace

std::string sourceDir() {
  const char* env = std::getenv("ZV_SOURCE_DIR");
  return env ? env : ZV_AVR_SOURCE_DIR;
}

std::string buildDir() {
  const char* env = std::getenv("ZV_BUILD_DIR");
  return env ? env : ZV_AVR_BUILD_DIR;
}

std::vector<Device> allDevices() {
  std::vector<Device> out;
  for (const auto& entry : fs::directory_iterator(sourceDir() + "/devices")) {
    if (entry.path().extension() != ".zvd")
      continue;
    const std::string f = entry.path().string();
    Device d;
    d.file = f;
    d.name = key(f, "Name");
    d.mmcu = key(f, "Mmcu");
    d.core = key(f, "SimavrCore");
    d.port = key(f, "PwmPort").empty() ? '?' : key(f, "PwmPort")[0];
    d.bit1 = number(f, "PwmBit1", -1);
    d.bit2 = number(f, "PwmBit2", -1);
    d.bitAlt = number(f, "PwmBitAlt", -1);
    d.hasAlt = number(f, "HasAltPWM", 0);
    d.simavrAlt = number(f, "SimavrAltPWM", 0) != 0;
    d.simavrT1 = number(f, "SimavrT1Clock", 0) != 0;
    out.push_back(d);
  }
  std::sort(out.begin(), out.end(),
            [](const Device& x, const Device& y) { return x.name < y.name; });
  return out;
}

std::string workDir(const std::string& name) {
  fs::path dir = fs::path(buildDir()) / "tests" / "avr-work" / name;
  fs::remove_all(dir);
  fs::create_directories(dir);
  return dir.string();
}

bool compile(const Device& d, const std::string& dir, const std::string& name,
             const std::string& program, std::string& log) {
  const std::string source = dir + "/" + name + ".c";
  std::ofstream(source, std::ios::binary) << program;
  const int rc = run(std::string(ZV_AVR_GCC) + " -Wall -Wextra -Werror -Os -mmcu=" + d.mmcu + " '" +
                         source + "' -o '" + dir + "/" + name + ".elf'",
                     dir + "/" + name + ".log");
  log = readAll(dir + "/" + name + ".log");
  return rc == 0;
}

Measurement measure(const Device& d, int bitA, int bitB, const std::string& elf, uint32_t freq,
                    const Window& w) {
  Measurement m;
  const std::string json = elf + ".json";
  std::ostringstream cmd;
  cmd << ZV_PWM_MEASURE << " --mcu " << d.core << " --freq " << freq << " --cycles " << w.cycles
      << " --from " << w.from << " --tolerance " << w.tolerance << " --port " << d.port
      << " --bit-a " << bitA << " --bit-b " << bitB << " --t1-clock " << w.t1Clock << " '" << elf
      << "'";
  const int rc = std::system((cmd.str() + " > '" + json + "' 2> '" + json + ".err'").c_str());
  const std::string text = readAll(json);
  if (rc != 0) {
    m.error = cmd.str() + " failed: " + readAll(json + ".err") + text;
    return m;
  }
  try {
    const auto j = nlohmann::json::parse(text);
    m.state = j.at("state");
    m.a = pin(j.at("a"));
    m.b = pin(j.at("b"));
    m.ok = true;
  } catch (const std::exception& e) {
    m.error = std::string("unreadable measurement: ") + e.what() + "\n" + text;
  }
  return m;
}

} // namespace zvavr
