#include "period_calc.h"

#include <algorithm>
#include <cmath>

namespace zvhost {

namespace {

constexpr int kPrescalers[] = {1, 8, 64, 256, 1024};

uint64_t periodCycles(int pr2, int prescaler) {
  return 2ull * static_cast<uint64_t>(pr2 + 1) * static_cast<uint64_t>(prescaler);
}

void fillDuty(const PeriodRequest& r, PeriodSetting& s) {
  if (r.dutyUnit == DutyUnit::None)
    return;
  const double counts = r.dutyUnit == DutyUnit::Percent
                            ? r.duty / 100.0 * (s.pr2 + 1)
                            : r.duty * r.clockHz / (2.0 * s.prescaler * 1e6);
  // A duty of PR + 1 or more holds the pin high; the register holds 255 at most.
  const double top = std::min(255, s.pr2 + 1);
  s.duty = static_cast<int>(std::clamp(std::nearbyint(counts), 0.0, top));
  const double share = std::min(1.0, s.duty / static_cast<double>(s.pr2 + 1));
  s.dutyPercent = share * 100.0;
  s.highUs = share * s.periodUs;
}

} // namespace

int prescalerOfCode(int code) {
  return code >= 1 && code <= 5 ? kPrescalers[code - 1] : 0;
}

std::vector<PeriodSetting> closestSettings(const PeriodRequest& r) {
  std::vector<PeriodSetting> out;
  if (!(r.clockHz > 0) || !(r.periodUs > 0))
    return out;
  const double wantedCycles = r.periodUs * r.clockHz / 1e6;
  for (int code = 1; code <= 5; ++code) {
    const int n = prescalerOfCode(code);
    const double ideal = wantedCycles / (2.0 * n) - 1.0;
    PeriodSetting best;
    bool found = false;
    // The nearest register lies on one side of the ideal or the other.
    for (double guess : {std::floor(ideal), std::ceil(ideal)}) {
      const int pr2 = static_cast<int>(std::clamp(guess, 0.0, 255.0));
      const double err = std::fabs(static_cast<double>(periodCycles(pr2, n)) - wantedCycles);
      // On a tie the second, larger register wins: finer duty steps.
      if (!found || err <= std::fabs(static_cast<double>(best.cycles) - wantedCycles)) {
        best.pr2 = pr2;
        best.code = code;
        best.prescaler = n;
        best.cycles = periodCycles(pr2, n);
        found = true;
      }
    }
    best.periodUs = static_cast<double>(best.cycles) * 1e6 / r.clockHz;
    best.errorPercent = (best.periodUs - r.periodUs) / r.periodUs * 100.0;
    fillDuty(r, best);
    out.push_back(best);
  }
  std::stable_sort(out.begin(), out.end(), [](const PeriodSetting& a, const PeriodSetting& b) {
    const double ea = std::fabs(a.errorPercent), eb = std::fabs(b.errorPercent);
    if (std::fabs(ea - eb) > 1e-9 * std::max(ea, eb))
      return ea < eb;
    return a.pr2 > b.pr2;
  });
  return out;
}

} // namespace zvhost
