// Simulated macro calls with the panel recording into its headless canvases,
// against the bare cost of recording the same drawing on a canvas.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "benches.h"
#include "harness.h"
#include "macro_cases.h"
#include "platform/controls/canvas.h"

namespace zvbench {

namespace {

void SimMacroCall(benchmark::State& state, const MacroCase& macro) {
  ComponentPtr component = createReady();
  runBothChannels(*component);
  bool second = false;
  for (auto _ : state) {
    callMacro(*component, macro.id, second ? macro.second : macro.first);
    second = !second;
  }
}

// The calls Plot_Channel and Draw_Frames make for one recorded operation.
void replay(zv::Canvas& canvas, const zv::DrawOp& op) {
  switch (op.kind) {
  case zv::DrawOp::Kind::Cls:
    canvas.Cls();
    break;
  case zv::DrawOp::Kind::Line:
    canvas.setForeColor(op.color);
    canvas.setDrawStyle(op.style);
    canvas.Line(op.x1, op.y1, op.x2, op.y2);
    break;
  case zv::DrawOp::Kind::Box:
    canvas.setForeColor(op.color);
    canvas.Box(op.x1, op.y1, op.x2, op.y2);
    break;
  case zv::DrawOp::Kind::Print:
    canvas.setForeColor(op.color);
    canvas.setCurrentX(op.x1);
    canvas.setCurrentY(op.y1);
    canvas.Print(op.text);
    break;
  }
}

// Baseline: the drawing of one Refresh with both channels plotted, recorded
// straight onto two canvases with nothing worked out.
void CanvasDirect(benchmark::State& state) {
  ComponentPtr component = createReady();
  runBothChannels(*component);
  const std::vector<zv::Control*> controls = component->panelControls();
  const std::vector<zv::DrawOp> opsOf[2] = {static_cast<zv::Canvas*>(controls[0])->ops(),
                                            static_cast<zv::Canvas*>(controls[1])->ops()};
  zv::Canvas canvases[2] = {zv::Canvas("Pic_Graph(0)"), zv::Canvas("Pic_Graph(1)")};
  for (auto _ : state) {
    for (int i = 0; i < 2; ++i)
      for (const zv::DrawOp& op : opsOf[i])
        replay(canvases[i], op);
    benchmark::DoNotOptimize(canvases[1].ops().data());
  }
  state.counters["ops"] = static_cast<double>(opsOf[0].size() + opsOf[1].size());
}

} // namespace

void registerSimulation() {
  for (const MacroCase& macro : macroCases())
    add(std::string("SimMacroCall/") + macro.name,
        [&macro](benchmark::State& s) { SimMacroCall(s, macro); });
  add("CanvasDirect", CanvasDirect);
}

} // namespace zvbench
