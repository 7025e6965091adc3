// zelvor-demo: runs the demo script through the host, compiles the program it
// wrote with avr-gcc, runs it in pwm-measure, and prints for each channel the
// period and duty that the panel printed beside those measured on the pins.
// Exits non-zero when a step fails or a column differs.
#include <sys/wait.h>

#include <cstdio>
#include <fstream>
#include <iostream>
#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "platform/profile.h"
#include "platform/vbnum.h"

namespace {

using nlohmann::json;

struct Options {
  std::string host, measure, script, device, out;
  long clock = 16000000;
};

struct Reading {
  std::string period; // "12.50 us", or "-" for a steady line
  std::string duty;   // "50 %"
};

[[noreturn]] void fail(const std::string& why) {
  std::cerr << "zelvor-demo: " << why << "\n";
  std::exit(1);
}

std::string quote(const std::string& s) {
  std::string q = "'";
  for (char c : s)
    q += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return q + "'";
}

// Runs a command and answers its standard output; a non-zero exit fails.
std::string run(const std::string& command) {
  FILE* pipe = popen(command.c_str(), "r");
  if (!pipe)
    fail("cannot run " + command);
  std::string out;
  char buf[4096];
  size_t n;
  while ((n = fread(buf, 1, sizeof buf, pipe)) > 0)
    out.append(buf, n);
  int status = pclose(pipe);
  if (status == -1 || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
    fail("failed: " + command);
  return out;
}

std::string deviceKey(const std::string& device, const char* key) {
  std::string value;
  zv::getPrivateProfileString("Device", key, "", value, 255, device);
  if (value.empty())
    fail(device + " has no " + key);
  return value;
}

// What the panel printed on one canvas: its period and duty texts, or its note.
Reading panelReading(const json& canvas) {
  Reading r{"-", ""};
  for (const auto& op : canvas.at("ops")) {
    if (op.at("op") != "print")
      continue;
    std::string text = op.at("text");
    if (text.rfind("Period =  ", 0) == 0)
      r.period = text.substr(10);
    else if (text.rfind("Dutycycle =  ", 0) == 0)
      r.duty = text.substr(13);
    else
      r.duty = text; // "(disabled)" or "(unavailable)"
  }
  return r;
}

// The same texts from what the pin did, written as the panel writes them.
Reading chipReading(const json& pin, long clock) {
  if (pin.at("steady").get<bool>())
    return {"-", pin.at("level").get<int>() ? "100 %" : "0 %"};
  double periodCycles = pin.at("period").get<double>();
  double us = periodCycles * 1e6 / static_cast<double>(clock);
  std::string period = us < 1000 ? zv::formatPicture(us, "00.00 us", 7)
                                 : zv::formatPicture(static_cast<float>(us / 1000), "00.00 ms", 7);
  double percent = zv::roundHalfEven(pin.at("high").get<double>() / periodCycles * 100.0);
  return {period, zv::formatPicture(percent, "0") + " %"};
}

Options parse(int argc, char** argv) {
  Options o;
  for (int i = 1; i + 1 < argc; i += 2) {
    std::string a = argv[i], v = argv[i + 1];
    if (a == "--host")
      o.host = v;
    else if (a == "--measure")
      o.measure = v;
    else if (a == "--script")
      o.script = v;
    else if (a == "--device")
      o.device = v;
    else if (a == "--out")
      o.out = v;
    else if (a == "--clock")
      o.clock = std::stol(v);
    else
      fail("unknown option " + a);
  }
  if (o.host.empty() || o.measure.empty() || o.script.empty() || o.device.empty() || o.out.empty())
    fail("usage: zelvor-demo --host H --measure M --script S --device D --clock HZ --out DIR");
  return o;
}

} // namespace

int main(int argc, char** argv) {
  Options o = parse(argc, argv);

  // 1. The script: settings, simulation, pictures, program.
  std::string lines = run(quote(o.host) + " run " + quote(o.script));
  std::ofstream(o.out + "/demo.jsonl") << lines;
  std::map<int, json> canvases;
  std::istringstream in(lines);
  for (std::string line; std::getline(in, line);) {
    json j = json::parse(line);
    if (!j.value("ok", false))
      fail("script line " + std::to_string(j.value("line", 0)) + " failed: " + line);
    std::string cmd = j.value("cmd", "");
    if (cmd == "canvas 0" || cmd == "canvas 1")
      canvases[cmd.back() - '0'] = j.at("result");
  }
  if (canvases.size() != 2)
    fail("the script shows no canvas 0 and canvas 1");

  // 2. The program on the chip.
  std::string elf = o.out + "/program.elf";
  run("avr-gcc -mmcu=" + deviceKey(o.device, "Mmcu") + " -DF_CPU=" + std::to_string(o.clock) +
      "UL -Os -Wall -Wextra -Werror -o " + quote(elf) + " " + quote(o.out + "/program.c"));
  const long cycles = 40 * 200 * 1024 / 8; // far more than twenty of the demo's periods
  json measured = json::parse(run(
      quote(o.measure) + " --mcu " + deviceKey(o.device, "SimavrCore") + " --freq " +
      std::to_string(o.clock) + " --cycles " + std::to_string(cycles) + " --from " +
      std::to_string(cycles / 2) + " --port " + deviceKey(o.device, "PwmPort") + " --bit-a " +
      deviceKey(o.device, "PwmBit1") + " --bit-b " + deviceKey(o.device, "PwmBit2") + " " +
      quote(elf)));
  std::ofstream(o.out + "/measured.json") << measured.dump(2) << "\n";

  // 3. Side by side.
  bool same = true;
  std::printf("%-8s %-14s %-14s %-12s %-12s\n", "channel", "panel period", "chip period",
              "panel duty", "chip duty");
  for (int c = 0; c < 2; ++c) {
    Reading panel = panelReading(canvases[c]);
    Reading chip = chipReading(measured.at(c == 0 ? "a" : "b"), o.clock);
    bool ok = panel.period == chip.period && panel.duty == chip.duty;
    same = same && ok;
    std::printf("%-8d %-14s %-14s %-12s %-12s %s\n", c + 1, panel.period.c_str(),
                chip.period.c_str(), panel.duty.c_str(), chip.duty.c_str(), ok ? "same" : "DIFFERS");
  }
  std::printf("\npictures, program and measurements in %s/\n", o.out.c_str());
  return same ? 0 : 1;
}
