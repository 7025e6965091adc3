#include "vcd.h"

#include <cmath>
#include <fstream>
#include <map>

namespace zvhost {

int vcdExponent(int32_t hertz) {
  int exponent = 0;
  while (exponent > -15 && std::pow(10.0L, exponent) > 1.0L / hertz)
    --exponent;
  return exponent;
}

std::string vcdText(const Verification& v) {
  static const char* const kUnits[] = {"s", "ms", "us", "ns", "ps", "fs"};
  const int exponent = vcdExponent(v.hertz);
  const int below = -exponent; // 0..15 digits below the second
  const std::string timescale =
      std::to_string(static_cast<int>(std::pow(10, below % 3 ? 3 - below % 3 : 0))) + " " +
      kUnits[(below + 2) / 3];
  const long double unitsPerCycle = std::pow(10.0L, below) / v.hertz;
  auto at = [&](uint64_t cycle) { return std::llroundl(cycle * unitsPerCycle); };

  const char ids[2] = {'!', '"'};
  std::string out = "$version zelvor-host verify on chip $end\n$comment " + v.target.name + " at " +
                    std::to_string(v.hertz) + " Hz, " + std::to_string(v.cycles) +
                    " cycles $end\n$timescale " + timescale + " $end\n$scope module " +
                    v.target.mmcu + " $end\n";
  for (int i = 0; i < 2; ++i)
    out += std::string("$var wire 1 ") + ids[i] + " " + v.pins[i].name + " $end\n";
  out += "$upscope $end\n$enddefinitions $end\n#0\n$dumpvars\n0!\n0\"\n$end\n";
  // Changes of both pins by time; a pin back where it was within one unit shows no change.
  std::map<long long, std::map<int, int>> changes;
  for (int i = 0; i < 2; ++i)
    for (size_t k = 0; k < v.pins[i].changes.size(); ++k)
      changes[at(v.pins[i].changes[k])][i] = k % 2 == 0;
  for (const auto& [time, pins] : changes) {
    out += "#" + std::to_string(time) + "\n";
    for (const auto& [pin, level] : pins)
      out += std::to_string(level) + ids[pin] + "\n";
  }
  if (changes.empty() || at(v.cycles) > changes.rbegin()->first)
    out += "#" + std::to_string(at(v.cycles)) + "\n";
  return out;
}

bool writeVcd(const Verification& v, const std::string& path, std::string& error) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << vcdText(v);
  if (!out) {
    error = "cannot write " + path;
    return false;
  }
  return true;
}

} // namespace zvhost
