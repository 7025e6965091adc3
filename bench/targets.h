// The limits each measured path must stay within, and the table that sets the
// medians of one run against them.
#pragma once

#include <map>
#include <ostream>
#include <string>

#include <benchmark/benchmark.h>

namespace zvbench {

struct Measured {
  double ns = 0;             // median CPU time of one iteration
  double bytesPerSecond = 0; // median throughput, where a benchmark counts bytes
  double ratio = 0;          // median ratio, where a benchmark times two paths in turn
};
using Results = std::map<std::string, Measured>;

// Shows the runs as the console reporter does and keeps each benchmark's
// median (or its single run when there are no repetitions).
class MedianReporter : public benchmark::ConsoleReporter {
public:
  void ReportRuns(const std::vector<Run>& runs) override;
  const Results& results() const { return results_; }

private:
  Results results_;
};

// Prints the Markdown table: measured value, limit, and the share of the
// limit used (at most 1.00 when the target is met), and the count of missed
// targets. memoryMiB < 0: not measured.
void printTargets(std::ostream& out, const Results& results, double memoryMiB);

} // namespace zvbench
