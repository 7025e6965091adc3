// Verify on chip in the desktop window, from the click to the drawn traces,
// for the demo's program; and the same program through avr-gcc and
// pwm-measure run alone, the floor that verify stands on. Wall-clock times:
// most of the work is in other processes.
#include <QAction>
#include <QApplication>
#include <chrono>
#include <fstream>
#include <memory>
#include <stdexcept>

#include "benches.h"
#include "harness.h"
#include "host/gui/main_window.h"
#include "host/verify/process.h"

namespace zvbench {

namespace {

using Clock = std::chrono::steady_clock;

double seconds(Clock::time_point since) {
  return std::chrono::duration<double>(Clock::now() - since).count();
}

// The demo of examples/demo.zsc, as the window runs a script.
const char* const kDemo = R"(create
init
put ZelvorVersion 1024
put ZvdFilename "DEVICE"
put ClockSpeed 16000000
pwm put Prescaler 8
pwm put Pr2 199
call StartSimulation
call SimMacroCall 0 [1]
call SimMacroCall 0 [2]
call SimMacroCall 2 [1, 50]
call SimMacroCall 2 [2, 150]
call SimMacroCall 3 [99, 1]
call SimMacroCall 4 [2, 1, 0]
)";

struct Desk {
  zvhost::Plugin plugin;
  std::unique_ptr<zvhost::MainWindow> window;
  QAction* verify = nullptr;
  ScratchFolder scratch;

  Desk() {
    std::string error;
    plugin = zvhost::Plugin::open(ZV_BENCH_PLUGIN, error);
    if (!plugin.loaded())
      throw std::runtime_error(error);
    window = std::make_unique<zvhost::MainWindow>(plugin, ZV_BENCH_DEVICES);
    window->resize(1100, 760);
    window->show();
    std::string script = kDemo;
    script.replace(script.find("DEVICE"), 6, deviceFile());
    if (!window->openScript(scratch.write("demo.zsc", script)))
      throw std::runtime_error("the demo script does not open");
    while (window->scriptPane()->step()) {
    }
    for (QAction* a : window->findChildren<QAction*>())
      if (a->text() == "&Verify on chip")
        verify = a;
    if (!verify)
      throw std::runtime_error("the window has no verify action");
    click();
  }
  ~Desk() { window.reset(); }

  // The click, and the traces drawn on screen before it returns.
  const zvhost::Verification& click() {
    verify->trigger();
    window->traces()->repaint();
    const auto& shown = window->traces()->verification();
    if (!shown || !shown->same)
      throw std::runtime_error("verify on chip failed or differs from the panel");
    return *shown;
  }
};

// avr-gcc and pwm-measure on the program verify wrote, one after the other.
void toolsAlone(const zvhost::Verification& v, const std::string& dir) {
  zvhost::Process gcc, measure;
  std::string error, out;
  if (!gcc.start(
          {"avr-gcc", "-mmcu=" + v.target.mmcu, "-Os", "-o", dir + "/alone.elf", v.built.source},
          dir + "/alone-gcc.log", error) ||
      gcc.finish(out) != 0)
    throw std::runtime_error("avr-gcc: " + error + out);
  if (!measure.start({zvhost::besideProgram("pwm-measure"), "--mcu", v.target.simavrCore, "--freq",
                      std::to_string(v.hertz), "--cycles", std::to_string(v.cycles), "--port",
                      std::string(1, v.target.port), "--bit-a", std::to_string(v.target.bit1),
                      "--bit-b", std::to_string(v.target.bit2), dir + "/alone.elf"},
                     dir + "/alone.json", error) ||
      measure.finish(out) != 0)
    throw std::runtime_error("pwm-measure: " + error + out);
}

// Made once and never destroyed: the window must not outlive the application.
Desk& desk() {
  static Desk* d = new Desk;
  return *d;
}

// Five clicks or tool runs, each timed by the body in wall-clock time: the
// work waits on other processes.
template <class Body> void addWallClock(const char* name, Body body) {
  add(name,
      [body](benchmark::State& state) {
        body(state, desk());
        state.counters["wall"] = 1;
      })
      ->UseManualTime()
      ->Unit(benchmark::kMillisecond)
      ->Iterations(5);
}

} // namespace

void registerVerify() {
  addWallClock("VerifyOnChip", [](benchmark::State& state, Desk& d) {
    // Where the time goes, in milliseconds per click: the steps verify
    // times itself, and the rest (HEX and size report waited for, JSON
    // read, traces painted).
    double generate = 0, compile = 0, simulate = 0, rest = 0;
    for (auto _ : state) {
      const Clock::time_point t = Clock::now();
      const zvhost::Verification& v = d.click();
      const double total = seconds(t);
      state.SetIterationTime(total);
      generate += v.generateMs;
      compile += v.compileMs;
      simulate += v.simulateMs;
      rest += total * 1e3 - v.generateMs - v.compileMs - v.simulateMs;
    }
    const double n = static_cast<double>(state.iterations());
    state.counters["generate_ms"] = generate / n;
    state.counters["compile_ms"] = compile / n;
    state.counters["simulate_ms"] = simulate / n;
    state.counters["rest_ms"] = rest / n;
  });
  addWallClock("AvrGccSimavr", [](benchmark::State& state, Desk& d) {
    const zvhost::Verification v = d.click();
    for (auto _ : state) {
      const Clock::time_point t = Clock::now();
      toolsAlone(v, d.scratch.path());
      state.SetIterationTime(seconds(t));
    }
  });
  // Both in turn, so that the ratio comes from one stretch of the machine's load.
  addWallClock("VerifyOnChip/AvrGccSimavr", [](benchmark::State& state, Desk& d) {
    double alone = 0, verify = 0;
    for (auto _ : state) {
      Clock::time_point t = Clock::now();
      const zvhost::Verification& v = d.click();
      verify += seconds(t);
      t = Clock::now();
      toolsAlone(v, d.scratch.path());
      alone += seconds(t);
      state.SetIterationTime(seconds(t));
    }
    state.counters["ratio"] = alone > 0 ? verify / alone : 0;
  });
}

} // namespace zvbench
