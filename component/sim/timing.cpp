#include "../../platform/errors.h"
#include "../../platform/vbnum.h"
#include "../core/pwm.h"
#include "prescaler.h"

namespace zv {

// About 19.66 MHz: used until the host tells a clock.
constexpr double kDefaultTickPeriod = 5.086263 / 100000000.0;

void PWM::Calc_Period_Freq() {
  if (fTickPeriod == 0.0f)
    fTickPeriod = static_cast<float>(kDefaultTickPeriod);

  switch (clockSourceOf(iPrescaler)) {
  case ClockSource::Divided:
    fPeriod = toR4(Calc_Pwm_Period(iPr2, fTickPeriod, iPrescaler));
    break;
  case ClockSource::None:
    fPeriod = 0.0f;
    break;
  case ClockSource::External: {
    // Each pulse counts as one second, without a prescaler.
    float oneSecond = 1.0f;
    fPeriod = toR4(Calc_Pwm_Period(iPr2, oneSecond, 1));
    break;
  }
  }
}

Variant PWM::Calc_Pwm_Period(int16_t Pr2, float& clockPeriod, int16_t prescaler) {
  const int16_t cycles = mul16(add16(Pr2, 1), iClockDivider);
  const double product = static_cast<double>(static_cast<float>(cycles)) *
                         static_cast<double>(clockPeriod) *
                         static_cast<double>(static_cast<float>(prescaler)) * 1000000.0;
  // The counter runs up and then down: one period is twice the register's cycles.
  return Variant::r8(2.0 * product);
}

} // namespace zv
