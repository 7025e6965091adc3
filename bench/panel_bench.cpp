// Simulated macro calls with the Qt panel widget repainted into an offscreen
// image after each call, as a host window repaints after each step.
#include <benchmark/benchmark.h>

#include <QImage>
#include <string>

#include "benches.h"
#include "harness.h"
#include "macro_cases.h"
#include "qt/panel_widget.h"

namespace zvbench {

namespace {

void SimMacroCallQt(benchmark::State& state, const MacroCase& macro) {
  ComponentPtr component = createReady();
  runBothChannels(*component);
  {
    zvqt::PanelWidget panel(*component);
    QImage image(panel.size(), QImage::Format_ARGB32_Premultiplied);
    // The first paint loads the fonts; that is the window's opening, not a step.
    panel.render(&image);
    bool second = false;
    for (auto _ : state) {
      callMacro(*component, macro.id, second ? macro.second : macro.first);
      second = !second;
      panel.render(&image);
    }
  }
}

// A flowchart sweeping channel 1's duty through 0..255: its duty text is new at
// almost every step, where the benchmarks above alternate two pictures.
void SimMacroCallQtSweep(benchmark::State& state) {
  ComponentPtr component = createReady();
  runBothChannels(*component);
  zvqt::PanelWidget panel(*component);
  QImage image(panel.size(), QImage::Format_ARGB32_Premultiplied);
  panel.render(&image);
  int16_t duty = 0;
  for (auto _ : state) {
    callMacro(*component, 2, params({1, duty}));
    duty = static_cast<int16_t>((duty + 1) % 256);
    panel.render(&image);
  }
}

} // namespace

void registerPanelWidget() {
  add("SimMacroCallQt/SetDutySweep", SimMacroCallQtSweep)->Unit(benchmark::kMicrosecond);
  for (const MacroCase& macro : macroCases())
    add(std::string("SimMacroCallQt/") + macro.name, [&macro](benchmark::State& s) {
      SimMacroCallQt(s, macro);
    })->Unit(benchmark::kMicrosecond);
}

} // namespace zvbench
