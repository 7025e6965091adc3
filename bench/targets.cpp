#include "targets.h"

#include <cstdio>
#include <vector>

#include "macro_cases.h"

namespace zvbench {

namespace {

constexpr double kMicro = 1e3;
constexpr double kMilli = 1e6;

double toNanoseconds(double value, benchmark::TimeUnit unit) {
  switch (unit) {
  case benchmark::kNanosecond:
    return value;
  case benchmark::kMicrosecond:
    return value * kMicro;
  case benchmark::kMillisecond:
    return value * kMilli;
  default:
    return value * 1e9;
  }
}

std::string printed(const char* format, double value) {
  char text[64];
  std::snprintf(text, sizeof text, format, value);
  return text;
}

std::string timeText(double ns) {
  if (ns < kMicro)
    return printed("%.0f ns", ns);
  if (ns < kMilli)
    return printed("%.2f us", ns / kMicro);
  return printed("%.2f ms", ns / kMilli);
}

struct Row {
  std::string what;
  std::string measured;
  std::string limit;
  double share = -1; // of the limit; < 0 when there is no limit
};

class Table {
public:
  explicit Table(const Results& results) : results_(results) {}

  const Measured* find(const std::string& name) const {
    auto it = results_.find(name);
    return it == results_.end() ? nullptr : &it->second;
  }
  void atMost(const std::string& name, double limitNs) {
    if (const Measured* m = find(name))
      rows.push_back({name, timeText(m->ns), "<= " + timeText(limitNs), m->ns / limitNs});
  }
  // From the benchmark that times both in turn where there is one, else from
  // the two medians. limit <= 0: shown without one.
  void ratio(const std::string& name, const std::string& base, double limit = 0) {
    double value = 0;
    if (const Measured* paired = find(name + "/" + base); paired && paired->ratio > 0) {
      value = paired->ratio;
    } else {
      const Measured* m = find(name);
      const Measured* b = find(base);
      if (!m || !b || b->ns <= 0)
        return;
      value = m->ns / b->ns;
    }
    if (limit > 0)
      rows.push_back({name + " / " + base, printed("%.2fx", value), printed("<= %.0fx", limit),
                      value / limit});
    else
      rows.push_back({name + " / " + base, printed("%.2fx", value), "none", -1});
  }
  void throughputAtLeast(const std::string& name, double bytesPerSecond) {
    if (const Measured* m = find(name); m && m->bytesPerSecond > 0)
      rows.push_back({name, printed("%.2f GB/s", m->bytesPerSecond / 1e9),
                      printed(">= %.2f GB/s", bytesPerSecond / 1e9),
                      bytesPerSecond / m->bytesPerSecond});
  }
  // Time per byte of the larger file against the smaller: 1.00 is linear.
  void linear(const std::string& small, const std::string& large, double limit) {
    const Measured* s = find(small);
    const Measured* l = find(large);
    if (s && l && s->bytesPerSecond > 0 && l->bytesPerSecond > 0) {
      const double growth = s->bytesPerSecond / l->bytesPerSecond;
      rows.push_back({"time per byte, " + large + " / " + small, printed("%.2fx", growth),
                      printed("<= %.2fx", limit), growth / limit});
    }
  }
  void noLimit(const std::string& name) {
    if (const Measured* m = find(name)) {
      std::string shown = timeText(m->ns);
      if (m->bytesPerSecond > 0)
        shown += printed(" (%.2f GB/s)", m->bytesPerSecond / 1e9);
      rows.push_back({name, shown, "none", -1});
    }
  }

  std::vector<Row> rows;

private:
  const Results& results_;
};

} // namespace

void MedianReporter::ReportRuns(const std::vector<Run>& runs) {
  ConsoleReporter::ReportRuns(runs);
  for (const Run& run : runs) {
    const bool median = run.run_type == Run::RT_Aggregate && run.aggregate_name == "median";
    const bool single = run.run_type == Run::RT_Iteration && run.repetitions <= 1;
    if (run.error_occurred || !(median || single))
      continue;
    Measured m;
    // Benchmarks that wait on other processes count wall-clock time.
    const bool wall = run.counters.count("wall") != 0;
    m.ns =
        toNanoseconds(wall ? run.GetAdjustedRealTime() : run.GetAdjustedCPUTime(), run.time_unit);
    if (auto it = run.counters.find("bytes_per_second"); it != run.counters.end())
      m.bytesPerSecond = it->second.value;
    if (auto it = run.counters.find("ratio"); it != run.counters.end())
      m.ratio = it->second.value;
    results_[run.run_name.function_name] = m;
  }
}

void printTargets(std::ostream& out, const Results& results, double memoryMiB) {
  Table t(results);
  t.atMost("StartUp", 300 * kMicro);
  for (const MacroCase& macro : macroCases()) {
    const std::string name = std::string("SimMacroCall/") + macro.name;
    t.atMost(name, 2 * kMicro);
    t.ratio(name, "CanvasDirect", 3);
  }
  for (const MacroCase& macro : macroCases())
    t.atMost(std::string("SimMacroCallQt/") + macro.name, 60 * kMicro);
  t.atMost("SimMacroCallQt/SetDutySweep", 60 * kMicro);
  for (const char* reader : {"GetIniKeyValue", "MacroCode"}) {
    t.atMost(reader, 10 * kMicro);
    t.ratio(reader, "OpenReadClose", 2);
  }
  // A block twenty times a macro's: shown against the same limits, which are not its own.
  t.atMost("DefinesCode", 10 * kMicro);
  t.ratio("DefinesCode", "OpenReadClose");
  for (const char* size : {"64KiB", "1MiB", "16MiB"})
    t.throughputAtLeast(std::string("GetCodeFromFile/") + size, 1e9);
  t.linear("GetCodeFromFile/64KiB", "GetCodeFromFile/16MiB", 1.5);
  for (const char* name :
       {"CanvasDirect", "OpenReadClose", "MacroCodeOverride/1KiB", "MacroCodeOverride/30KiB",
        "PropertiesRoundTrip", "PageOpen", "PageKeystroke"})
    t.noLimit(name);
  t.atMost("VerifyOnChip", 400 * kMilli);
  t.noLimit("AvrGccSimavr");
  t.ratio("VerifyOnChip", "AvrGccSimavr");
  if (memoryMiB >= 0)
    t.rows.push_back({"100 ready components, above the empty host", printed("%.2f MiB", memoryMiB),
                      "<= 20 MiB", memoryMiB / 20});

  int missed = 0;
  out << "\n| Benchmark | Median | Limit | Share of limit |\n|---|---|---|---|\n";
  for (const Row& row : t.rows) {
    std::string share = "-";
    if (row.share >= 0) {
      share = printed("%.2f", row.share);
      if (row.share > 1) {
        share += " MISSED";
        ++missed;
      }
    }
    out << "| " << row.what << " | " << row.measured << " | " << row.limit << " | " << share
        << " |\n";
  }
  out << "\n" << missed << " target(s) missed.\n";
}

} // namespace zvbench
