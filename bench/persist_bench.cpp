// The container's save and load of a component: WriteProperties into a bag,
// then ReadProperties from it, which ends in a paint of the panel.
#include <benchmark/benchmark.h>

#include "benches.h"
#include "harness.h"
#include "platform/propbag.h"

namespace zvbench {

namespace {

void PropertiesRoundTrip(benchmark::State& state) {
  ComponentPtr component = createReady();
  zv::PropertyBag bag;
  for (auto _ : state) {
    bag.clear();
    check(component->WriteProperties(bag), "WriteProperties");
    check(component->ReadProperties(bag), "ReadProperties");
  }
  state.counters["keys"] = static_cast<double>(bag.entries().size());
}

} // namespace

void registerPersistence() {
  add("PropertiesRoundTrip", PropertiesRoundTrip);
}

} // namespace zvbench
