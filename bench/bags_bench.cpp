// A bag file of many keys as readprops takes it: the JSON text parsed and
// turned into a property bag, and the bag written back as text.
#include <benchmark/benchmark.h>

#include "benches.h"
#include "host/script/json_in.h"

namespace zvbench {

namespace {

zv::PropertyBag bagOf(int64_t keys) {
  zv::PropertyBag bag;
  for (int64_t i = 0; i < keys; ++i)
    bag.WriteProperty("Key" + std::to_string(i), i % 2 ? zv::Variant::i4(static_cast<int32_t>(i))
                                                       : zv::Variant::str("Label text"));
  return bag;
}

void BagFileLoad(benchmark::State& state) {
  const std::string text = zvhost::dumpJson(zvhost::bagJson(bagOf(state.range(0))));
  for (auto _ : state)
    benchmark::DoNotOptimize(zvhost::bagFromJson(zvhost::parseJson(text)));
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
}

void BagFileSave(benchmark::State& state) {
  const zv::PropertyBag bag = bagOf(state.range(0));
  for (auto _ : state)
    benchmark::DoNotOptimize(zvhost::dumpJson(zvhost::bagJson(bag)));
}

} // namespace

void registerBags() {
  add("BagFileLoad", BagFileLoad)->Arg(25000)->Arg(100000)->Unit(benchmark::kMillisecond);
  add("BagFileSave", BagFileSave)->Arg(100000)->Unit(benchmark::kMillisecond);
}

} // namespace zvbench
