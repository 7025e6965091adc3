// Registration of each group of benchmarks, and the values the groups share.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <exception>
#include <initializer_list>
#include <string>

#include "platform/variant.h"

namespace zvbench {

void registerStartUp();
void registerSimulation();  // headless panel, and the direct canvas baseline
void registerPanelWidget(); // the same calls with the Qt panel repainted
void registerCodeFile();    // readers of the code file, and the file baseline
void registerCodeGeneration();
void registerPersistence();
void registerPage();
void registerVerify(); // verify on chip in the window, and avr-gcc + simavr alone

// Registers a benchmark whose failures (a failed status, a missing file) end
// it as skipped with the reason, instead of ending the run.
template <class Body> benchmark::internal::Benchmark* add(const std::string& name, Body body) {
  return benchmark::RegisterBenchmark(name.c_str(), [body](benchmark::State& state) {
    try {
      body(state);
    } catch (const std::exception& e) {
      state.SkipWithError(e.what());
    }
  });
}

// A macro's parameter block as the host sends it: a zero-based array of Variants.
zv::Variant params(std::initializer_list<int16_t> values);

} // namespace zvbench
