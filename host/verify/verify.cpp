#include "verify.h"

#include <algorithm>
#include <chrono>
#include <filesystem>

#include <nlohmann/json.hpp>

#include "platform/vbnum.h"

namespace zvhost {

namespace {

using Clock = std::chrono::steady_clock;

double msSince(Clock::time_point t) {
  return std::chrono::duration<double, std::milli>(Clock::now() - t).count();
}

// A field of the component by its name, as a number; 0 when it has none.
double field(const zv::ComponentObject& c, const std::string& name) {
  const zv::Inspected fields = c.inspect();
  for (const auto& [member, value] : fields.members)
    if (member == name && value.kind == zv::Inspected::Kind::Value)
      return zv::toR8(value.value);
  return 0;
}

// What the panel printed on a channel's canvas: its period and duty texts,
// or its note in place of the duty.
void readPanel(zv::ComponentObject& c, ChannelCheck& check) {
  const std::string name = "Pic_Graph(" + std::to_string(check.channel - 1) + ")";
  for (zv::Control* control : c.panelControls()) {
    auto* canvas = dynamic_cast<zv::Canvas*>(control);
    if (!canvas || control->name() != name)
      continue;
    for (const zv::DrawOp& op : canvas->ops()) {
      if (op.kind != zv::DrawOp::Kind::Print)
        continue;
      if (op.text.rfind("Period =  ", 0) == 0)
        check.panelPeriod = op.text.substr(10);
      else if (op.text.rfind("Dutycycle =  ", 0) == 0)
        check.panelDuty = op.text.substr(13);
      else
        check.panelDuty = op.text; // "(disabled)", "(unavailable)"
    }
  }
}

void compare(const PinTrace& pin, int32_t hertz, ChannelCheck& check) {
  check.checked = check.panelDuty != "(unavailable)";
  if (pin.steady) {
    check.chipPeriod = "-";
    check.dutyPercent = pin.level ? 100 : 0;
  } else {
    check.periodUs = double(pin.period) * 1e6 / hertz;
    check.highUs = double(pin.high) * 1e6 / hertz;
    check.dutyPercent = double(pin.high) / double(pin.period) * 100;
    check.chipPeriod = periodText(check.periodUs);
  }
  check.chipDuty = pin.output ? dutyText(check.dutyPercent) : "(no output)";
  if (!check.checked)
    check.same = true;
  else if (check.panelDuty == "(disabled)")
    check.same = pin.output && pin.steady && pin.level == 0;
  else
    check.same =
        check.chipDuty == check.panelDuty && (pin.steady || check.chipPeriod == check.panelPeriod);
}

bool readMeasurement(const std::string& text, Verification& out, std::string& error) {
  try {
    const nlohmann::json j = nlohmann::json::parse(text);
    out.cycles = j.at("cycles").get<uint64_t>();
    if (j.at("state") != "running") {
      error = "the program stopped on the chip (" + j.at("state").get<std::string>() + ")";
      return false;
    }
    for (int i = 0; i < 2; ++i) {
      const nlohmann::json& p = j.at(i == 0 ? "a" : "b");
      PinTrace& pin = out.pins[i];
      pin.changes = p.at("trace").get<std::vector<uint64_t>>();
      pin.output = p.at("ddr").get<int>() != 0;
      pin.steady = p.at("steady").get<bool>();
      pin.level = p.at("level").get<int>();
      pin.period = p.at("period").get<uint64_t>();
      pin.high = p.at("high").get<uint64_t>();
    }
    return true;
  } catch (const std::exception& e) {
    error = "pwm-measure answered what it should not: " + std::string(e.what());
    return false;
  }
}

} // namespace

int PinTrace::levelAt(uint64_t cycle) const {
  return static_cast<int>(std::upper_bound(changes.begin(), changes.end(), cycle) -
                          changes.begin()) %
         2;
}

std::string periodText(double us) {
  return us < 1000 ? zv::formatPicture(static_cast<float>(us), "00.00 us", 7)
                   : zv::formatPicture(static_cast<float>(us / 1000), "00.00 ms", 7);
}

std::string dutyText(double percent) {
  return zv::formatPicture(std::min(zv::roundHalfEven(percent), 100.0), "0") + " %";
}

RunWindow runWindow(double periodUs, int32_t hertz, size_t calls) {
  constexpr double kLongest = 200e6; // about a second of simavr
  const double settle = 4000.0 + 200.0 * double(calls);
  double period = periodUs * hertz / 1e6;
  if (!(period >= 1)) // no clock: the pins stand, any stretch shows it
    period = 1000;
  const double periods = std::clamp(std::floor(kLongest / period), 3.0, 20.0);
  return {static_cast<uint64_t>(settle),
          static_cast<uint64_t>(std::min(settle + periods * period, settle + kLongest))};
}

bool verifyOnChip(zv::ComponentObject& component, const Simulation& simulation,
                  const std::string& dir, Verification& out, std::string& error,
                  const VerifyTools& tools) {
  out = {};
  Clock::time_point t = Clock::now();
  std::string program;
  if (!generateProgram(component, simulation, program, error))
    return false;
  out.generateMs = msSince(t);
  if (simulation.deviceFile.empty()) {
    error = "no device file was given to the component";
    return false;
  }
  std::optional<Target> target = readTarget(simulation.deviceFile, error);
  const std::optional<Settings> settings = settingsOf(component);
  if (!target)
    return false;
  out.target = *target;
  out.hertz = settings ? settings->hertz : 0;
  if (out.hertz <= 0) {
    error = "the component has no clock";
    return false;
  }
  std::error_code ec;
  std::filesystem::create_directories(dir, ec);

  t = Clock::now();
  Build build;
  if (!build.compile(tools, out.target, dir, program, out.built, error))
    return false;
  out.compileMs = msSince(t);

  // Channel 2 is on OC1C when the program was made for the alternative pin.
  const bool alt = simulation.start ? simulation.start->altPin != "0" : settings->altPin != "0";
  const int bits[2] = {out.target.bit1,
                       alt && out.target.bitAlt >= 0 ? out.target.bitAlt : out.target.bit2};
  const bool external = settings->clockSource == "6" || settings->clockSource == "7";
  const RunWindow w =
      runWindow(external ? 0 : field(component, "fPeriod"), out.hertz, simulation.steps.size());
  t = Clock::now();
  Process measure;
  const std::string tool =
      tools.pwmMeasure.empty() ? besideProgram("pwm-measure") : tools.pwmMeasure;
  if (!measure.start({tool, "--mcu", out.target.simavrCore, "--freq", std::to_string(out.hertz),
                      "--cycles", std::to_string(w.cycles), "--from", std::to_string(w.from),
                      "--port", std::string(1, out.target.port), "--bit-a", std::to_string(bits[0]),
                      "--bit-b", std::to_string(bits[1]), "--trace", "1", out.built.elf},
                     dir + "/measure.json", error))
    return false;
  std::string measured;
  const int status = measure.finish(measured);
  out.simulateMs = msSince(t);
  if (!build.finish(out.built, error))
    return false;
  if (status != 0) {
    error = "pwm-measure failed: " + measured;
    return false;
  }
  if (!readMeasurement(measured, out, error))
    return false;
  out.from = w.from;

  out.same = true;
  for (int i = 0; i < 2; ++i) {
    PinTrace& pin = out.pins[i];
    pin.name = std::string("P") + out.target.port + std::to_string(bits[i]);
    ChannelCheck& check = out.channels[i];
    check.channel = i + 1;
    readPanel(component, check);
    compare(pin, out.hertz, check);
    out.same = out.same && check.same;
  }
  return true;
}

} // namespace zvhost
