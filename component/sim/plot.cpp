#include "../core/pwm.h"

#include "../../platform/errors.h"
#include "../core/guard.h"

namespace zv {

void PWM::Plot_Channel(int16_t& Index) {
  (void)Index;
  raise(errInvalidCall, "not built yet");
}

} // namespace zv
