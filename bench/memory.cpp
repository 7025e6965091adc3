#include "memory.h"

#include <fstream>
#include <string>
#include <vector>

#include "harness.h"
#include "macro_cases.h"

namespace zvbench {

namespace {

double residentMiB() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);)
    if (line.rfind("VmRSS:", 0) == 0)
      return std::stod(line.substr(6)) / 1024.0; // the counter is in kB
  return 0;
}

} // namespace

double memoryOfComponents(int count) {
  openPlugin();
  deviceFile();
  const double empty = residentMiB();
  std::vector<ComponentPtr> components;
  for (int i = 0; i < count; ++i) {
    components.push_back(createReady());
    runBothChannels(*components.back());
    check(components.back()->StopSimulation(), "StopSimulation");
  }
  return residentMiB() - empty;
}

} // namespace zvbench
