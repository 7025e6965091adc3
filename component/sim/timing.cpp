#include "../core/pwm.h"

#include "../../platform/errors.h"
#include "../core/guard.h"

namespace zv {

void PWM::Calc_Period_Freq() {
  raise(errInvalidCall, "not built yet");
}

Variant PWM::Calc_Pwm_Period(int16_t Pr2, float& clockPeriod, int16_t prescaler) {
  (void)Pr2;
  (void)clockPeriod;
  (void)prescaler;
  raise(errInvalidCall, "not built yet");
}

} // namespace zv
