// Start-up to a ready component: what the host waits on for each component
// when it opens a flowchart.
#include <benchmark/benchmark.h>

#include "benches.h"
#include "harness.h"

namespace zvbench {

namespace {

void StartUp(benchmark::State& state) {
  for (auto _ : state) {
    ComponentPtr component = createReady();
    state.PauseTiming();
    component.reset();
    state.ResumeTiming();
  }
}

} // namespace

void registerStartUp() {
  add("StartUp", StartUp)->Unit(benchmark::kMicrosecond);
}

} // namespace zvbench
