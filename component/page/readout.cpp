// The page's own period and frequency read-out, worked out from its fields
// alone: the component's values play no part until apply.
#include "../../platform/vbnum.h"
#include "../sim/prescaler.h"
#include "properties.h"

namespace zv {

namespace {

// Cycle time in microseconds when no clock is known.
constexpr double kDefaultCycleTime = 0.050862;
// An external clock reads as 1 MHz, one pulse to the microsecond.
constexpr int32_t kExternalClock = 1000000;

constexpr int kDoubleDigits = 15;
constexpr int kSingleDigits = 7;

} // namespace

float Properties::Calc_Page_Period(int16_t pr2, float cycleTime, int16_t prescale) const {
  const int16_t n = mul16(add16(pr2, 1), iPageClockDivider);
  const double t = static_cast<double>(static_cast<float>(n)) * static_cast<double>(cycleTime) *
                   static_cast<double>(static_cast<float>(prescale));
  return 2.0f * static_cast<float>(t);
}

void Properties::Calc_Period_Freq() {
  ++calcRuns;
  const double cycleTime = lPageClockSpeed != 0 ? 1000000.0 / lPageClockSpeed : kDefaultCycleTime;
  int32_t shownClock = lPageClockSpeed;

  switch (clockSourceOf(iPagePrescaler)) {
  case ClockSource::Divided:
    fPagePeriod = Calc_Page_Period(iPagePr2, static_cast<float>(cycleTime), iPagePrescaler);
    break;
  case ClockSource::None:
    fPagePeriod = 0;
    break;
  case ClockSource::External:
    fPagePeriod = Calc_Page_Period(iPagePr2, 1.0f, 1);
    shownClock = kExternalClock;
    break;
  }

  fPageFrequency = fPagePeriod > 0 ? (1.0f / fPagePeriod) * 1000.0f : 0.0f;

  if (shownClock >= 1000000)
    lblClockSpeed.setCaption(formatPicture(shownClock / 1000000.0, "0.0##### MHz", kDoubleDigits));
  else
    lblClockSpeed.setCaption(formatPicture(shownClock / 1000.0, "0.0##### kHz", kDoubleDigits));

  // One test picks the units of both: the period is not judged by itself.
  if (fPageFrequency >= 1) {
    Lbl_period.setCaption(formatPicture(fPagePeriod, "0.0##### us", kSingleDigits));
    Lbl_frequency.setCaption(formatPicture(fPageFrequency, "0.0##### KHz", kSingleDigits));
  } else {
    Lbl_period.setCaption(formatPicture(fPagePeriod / 1000.0f, "0.0##### ms", kSingleDigits));
    Lbl_frequency.setCaption(formatPicture(fPageFrequency * 1000.0f, "0.0##### Hz", kSingleDigits));
  }
}

} // namespace zv
