#include "harness.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include <nlohmann/json.hpp>

#include "platform/profile.h"

namespace fs = std::filesystem;

namespace zvavr {

NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(Segment, start, periods, period, high)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(Pin, ddr, level, steady, period, high, periods, segments)

namespace {

std::string readAll(const std::string& path) {
  std::stringstream s;
  s << std::ifstream(path, std::ios::binary).rdbuf();
  return s.str();
}

std::string fromEnv(const char* name, const char* fallback) {
  const char* env = std::getenv(name);
  return env ? env : fallback;
}

const std::string buildDir = fromEnv("ZV_BUILD_DIR", ZV_AVR_BUILD_DIR);

} // namespace

std::vector<Device> allDevices() {
  std::vector<Device> out;
  for (const auto& entry :
       fs::directory_iterator(fromEnv("ZV_SOURCE_DIR", ZV_AVR_SOURCE_DIR) + "/devices")) {
    const std::string f = entry.path().string();
    if (entry.path().extension() != ".zvd")
      continue;
    auto key = [&](const char* name) {
      std::string out;
      zv::getPrivateProfileString("Device", name, "", out, 255, f);
      return out;
    };
    auto number = [&](const char* name) { return zv::getPrivateProfileInt("Device", name, 0, f); };
    const std::string port = key("PwmPort") + "?";
    out.push_back({f, key("Name"), key("Mmcu"), key("SimavrCore"), port[0], number("PwmBit1"),
                   number("PwmBit2"), zv::getPrivateProfileInt("Device", "PwmBitAlt", -1, f),
                   number("HasAltPWM") != 0, number("SimavrAltPWM") != 0,
                   number("SimavrT1Clock") != 0});
  }
  std::sort(out.begin(), out.end(),
            [](const Device& x, const Device& y) { return x.name < y.name; });
  return out;
}

Device byName(const std::string& name) {
  for (const Device& d : allDevices())
    if (d.name == name)
      return d;
  ADD_FAILURE() << "no device file for " << name;
  return {};
}

std::string workDir(const std::string& name) {
  fs::path dir = fs::path(buildDir) / "tests" / "avr-work" / name;
  fs::remove_all(dir);
  fs::create_directories(dir);
  return dir.string();
}

bool compile(const Device& d, const std::string& dir, const std::string& name,
             const std::string& program, std::string& log) {
  const std::string base = dir + "/" + name;
  std::ofstream(base + ".c", std::ios::binary) << program;
  const int rc =
      std::system((std::string(ZV_AVR_GCC) + " -Wall -Wextra -Werror -Os -mmcu=" + d.mmcu + " '" +
                   base + ".c' -o '" + base + ".elf' > '" + base + ".log' 2>&1")
                      .c_str());
  log = readAll(base + ".log");
  return rc == 0;
}

Measurement measure(const Device& d, int bitA, int bitB, const std::string& elf, uint32_t freq,
                    const Window& w) {
  Measurement m;
  m.elf = elf;
  const std::string json = elf + ".json";
  std::ostringstream cmd;
  cmd << ZV_PWM_MEASURE << " --mcu " << d.core << " --freq " << freq << " --cycles " << w.cycles
      << " --from " << w.from << " --tolerance " << w.tolerance << " --port " << d.port
      << " --bit-a " << bitA << " --bit-b " << bitB << " --t1-clock " << w.t1Clock << " '" << elf
      << "'";
  const int rc = std::system((cmd.str() + " > '" + json + "' 2> '" + json + ".err'").c_str());
  const std::string text = readAll(json);
  try {
    if (rc != 0)
      throw std::runtime_error("failed: " + readAll(json + ".err"));
    const auto j = nlohmann::json::parse(text);
    if (j.at("state") != "running") // the program must not crash or sleep
      throw std::runtime_error("the program stopped");
    m.a = j.at("a");
    m.b = j.at("b");
    m.ok = true;
  } catch (const std::exception& e) {
    m.error = cmd.str() + ": " + e.what() + "\n" + text;
  }
  return m;
}

Scenario::Scenario(const Device& device) : device(device) {
  static const zvhost::Plugin plugin = [] {
    std::string error;
    zvhost::Plugin p = zvhost::Plugin::open(buildDir + "/lib/AVR_PWM.so", error);
    if (!p.loaded())
      ADD_FAILURE() << error;
    return p;
  }();
  zv::Status status;
  pwm = plugin.createComponent("", "", status, &boxes);
  if (!pwm) // GoogleTest reports the test as failed with this text
    throw std::runtime_error("the component could not be created: " + status.description);
  EXPECT_TRUE(pwm->put_ZelvorVersion(1024).ok());
  EXPECT_TRUE(pwm->put_ZvdFilename(device.file).ok());
  EXPECT_TRUE(pwm->put_ClockSpeed(clock).ok());
}

Scenario::~Scenario() = default;

void Scenario::set(const std::string& property, const zv::Variant& value) {
  pwm->publicInterface().putProperty(property, value);
}

zv::Variant Scenario::field(const std::string& name, int index) const {
  const zv::Inspected all = pwm->inspect();
  for (const auto& [member, value] : all.members)
    if (member == name)
      return index < 0 ? value.value : value.items.at(static_cast<size_t>(index)).value;
  ADD_FAILURE() << "no field " << name;
  return {};
}

testing::AssertionResult Scenario::run(const std::vector<zvhost::MacroCall>& list, bool start) {
  if (start && (calls.clear(), !pwm->StartSimulation().ok()))
    return testing::AssertionFailure() << "StartSimulation failed";
  for (const zvhost::MacroCall& c : list) {
    zv::SafeArray params(zv::VarType::Variant, 0, static_cast<int32_t>(c.args.size()) - 1);
    for (size_t i = 0; i < c.args.size(); ++i)
      params.set(static_cast<int32_t>(i), zv::Variant::i2(static_cast<int16_t>(c.args[i])));
    int32_t result = 0, cycles = 0;
    zv::Variant affected;
    const zv::Status status = pwm->SimMacroCall(c.macroId, zv::Variant::array(std::move(params)),
                                                result, affected, cycles);
    if (!status.ok())
      return testing::AssertionFailure()
             << "call " << calls.size() << " failed: " << status.description;
    calls.push_back(c);
  }
  return testing::AssertionSuccess();
}

Expected Scenario::expected(int channel, uint32_t t1Clock) const {
  const int prescaler = zv::toI4(field("iPrescaler"));
  const int32_t clockSpeed = zv::toI4(field("lClockSpeed"));
  const double fPeriod = zv::toR8(field("fPeriod"));
  const bool external = prescaler == -2 || prescaler == -3;
  // Clock cycles of the target in one unit of the model's period.
  const double cyclesPerUnit = external ? double(clockSpeed) / t1Clock : clockSpeed / 1e6;
  Expected e;
  e.count = external ? clockSpeed / t1Clock : std::max<int>(prescaler, 1);
  const int duty = zv::toI4(field("aDuty", channel - 1));
  const int counts = zv::toI4(field("iPr2")) + 1;
  if (!zv::toBool(field("aChannelOn", channel - 1)) || duty == 0)
    return e;
  if (duty >= counts) {
    e.level = 1;
    return e;
  }
  const double units = external ? fPeriod / 1e6 : fPeriod; // seconds or microseconds
  const long long period = std::llround(units * cyclesPerUnit);
  if (period <= 0) // no clock: the timer stands
    return e;
  e.steady = false;
  e.period = static_cast<uint64_t>(period);
  e.high = static_cast<uint64_t>(std::llround(double(period) * duty / counts));
  return e;
}

testing::AssertionResult shows(const Pin& pin, const Expected& e) {
  // Less than one timer count off: a count too many or too few is a fault.
  auto near = [&](uint64_t got, uint64_t want) {
    return (got > want ? got - want : want - got) < e.count;
  };
  if (!pin.ddr)
    return testing::AssertionFailure() << "the pin is no output";
  if (e.steady
          ? pin.steady && pin.level == e.level
          : !pin.steady && pin.periods >= 3 && near(pin.period, e.period) && near(pin.high, e.high))
    return testing::AssertionSuccess();
  return testing::AssertionFailure()
         << "want " << (e.steady ? "steady " + std::to_string(e.level) : "edges") << " period "
         << e.period << " high " << e.high << " (less than " << e.count << "), got "
         << (pin.steady ? "steady " : "edges, last ") << pin.level << " period " << pin.period
         << " high " << pin.high << " over " << pin.periods << " periods";
}

Measurement expectOnChip(Scenario& s, const OnChipRun& run) {
  const Expected one = s.expected(1, run.t1Clock), two = s.expected(2, run.t1Clock);
  Window w = run.window;
  if (w.cycles == 0) { // start-up and the calls, then several whole periods
    const uint64_t period = std::max({one.period, two.period, uint64_t(1000)});
    w = {4000 + 7 * period, 4000 + 2 * period, std::max(one.count, two.count) - 1};
  }
  w.t1Clock = run.t1Clock;

  std::string program, error, log;
  EXPECT_TRUE(zvhost::generateProgram(*s.pwm, s.calls, program, error)) << error;
  if (!run.edit.empty()) {
    const size_t idle = program.rfind("    for (;;) {}");
    program.insert(program.rfind("\n    ", idle - 2) + 1, run.edit);
  }
  const auto* info = testing::UnitTest::GetInstance()->current_test_info();
  std::string name = std::string(info->test_suite_name()) + "." + info->name() +
                     (run.suffix.empty() ? "" : "_" + run.suffix);
  std::replace(name.begin(), name.end(), '/', '_');
  const std::string dir = workDir(name);
  if (!compile(s.device, dir, "pwm", program, log)) {
    ADD_FAILURE() << "avr-gcc for " << s.device.mmcu << ":\n" << log << "\n" << program;
    return {};
  }
  const Measurement m = measure(s.device, s.device.bit1, run.bitB < 0 ? s.device.bit2 : run.bitB,
                                dir + "/pwm.elf", static_cast<uint32_t>(s.clock), w);
  EXPECT_TRUE(m.ok) << m.error;
  if (m.ok) {
    EXPECT_TRUE(shows(m.a, one)) << "channel 1";
    if (run.channel2) {
      EXPECT_TRUE(shows(m.b, two)) << "channel 2";
    }
  }
  return m;
}

} // namespace zvavr
