// MacroCodeOverride: the settings filled into C code that the host passes
// through, on texts dense with placeholders.
#include <benchmark/benchmark.h>

#include <string>
#include <utility>

#include "benches.h"
#include "harness.h"

namespace zvbench {

namespace {

// Three placeholders to the line; the text stays short of the 16-bit position
// limit after filling, as the values are no longer than three digits.
std::string placeholderText(size_t size) {
  const std::string line = "    OCR1A = %a; TCCR1B = (TCCR1B & 0xF8) | %b; ALT = %d;\r\n";
  std::string text;
  while (text.size() + line.size() <= size)
    text += line;
  text.append(size - text.size(), ' ');
  return text;
}

void MacroCodeOverride(benchmark::State& state, size_t size) {
  ComponentPtr component = createReady();
  const std::string source = placeholderText(size);
  for (auto _ : state) {
    std::string text = source; // the host hands in a fresh text each time
    check(component->MacroCodeOverride(text), "MacroCodeOverride");
    benchmark::DoNotOptimize(text.data());
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) *
                          static_cast<int64_t>(source.size()));
}

} // namespace

void registerCodeGeneration() {
  const std::pair<const char*, size_t> sizes[] = {{"MacroCodeOverride/1KiB", size_t{1} << 10},
                                                  {"MacroCodeOverride/30KiB", size_t{30} << 10}};
  for (const auto& [name, size] : sizes)
    add(name, [size](benchmark::State& s) { MacroCodeOverride(s, size); });
}

} // namespace zvbench
