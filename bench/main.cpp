// zelvor-bench: the timings a host or a user waits on, each set against its
// limit. Options: those of Google Benchmark; --memory measures memory only,
// --no-memory leaves it out (for profiling a single benchmark).
// Without --benchmark_repetitions each benchmark runs 5 times, the repetitions
// of all benchmarks interleaved at random, and the table takes the medians.
#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <QApplication>
#include <cstring>
#include <iostream>
#include <string>
#include <vector>

#include "benches.h"
#include "harness.h"
#include "memory.h"
#include "targets.h"

namespace {

bool hasOption(int argc, char** argv, const char* prefix) {
  for (int i = 1; i < argc; ++i)
    if (std::strncmp(argv[i], prefix, std::strlen(prefix)) == 0)
      return true;
  return false;
}

} // namespace

int main(int argc, char** argv) {
  ::setenv("QT_QPA_PLATFORM", "offscreen", 0);
  double memoryMiB = -1;
  const bool noMemory = hasOption(argc, argv, "--no-memory");
  try {
    // First, while the heap holds nothing freed that components could reuse.
    if (!noMemory)
      memoryMiB = zvbench::memoryOfComponents();
  } catch (const std::exception& e) {
    std::cerr << "memory: " << e.what() << "\n";
    return 1;
  }
  if (hasOption(argc, argv, "--memory")) {
    std::cout << "100 ready components: " << memoryMiB << " MiB above the empty host\n";
    return memoryMiB <= 20 ? 0 : 1;
  }

  QApplication app(argc, argv);
  std::vector<char*> args;
  for (int i = 0; i < argc; ++i)
    if (std::strcmp(argv[i], "--no-memory") != 0)
      args.push_back(argv[i]);
  std::string repetitions = "--benchmark_repetitions=5";
  std::string aggregates = "--benchmark_report_aggregates_only=true";
  // Repetitions of all benchmarks interleaved, so that a ratio compares
  // medians taken over the same stretch of the machine's load.
  std::string interleaving = "--benchmark_enable_random_interleaving=true";
  if (!hasOption(argc, argv, "--benchmark_repetitions")) {
    args.push_back(repetitions.data());
    args.push_back(aggregates.data());
  }
  if (!hasOption(argc, argv, "--benchmark_enable_random_interleaving"))
    args.push_back(interleaving.data());
  int count = static_cast<int>(args.size());
  benchmark::Initialize(&count, args.data());
  if (benchmark::ReportUnrecognizedArguments(count, args.data()))
    return 1;

  zvbench::registerStartUp();
  zvbench::registerSimulation();
  zvbench::registerPanelWidget();
  zvbench::registerCodeFile();
  zvbench::registerCodeGeneration();
  zvbench::registerPersistence();
  zvbench::registerPage();
  zvbench::registerVerify();

  zvbench::MedianReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  zvbench::printTargets(std::cout, reporter.results(), memoryMiB);
  return 0;
}
