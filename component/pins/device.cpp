#include "../core/pwm.h"

#include "../../platform/errors.h"
#include "../core/guard.h"

namespace zv {

Status PWM::put_ZvdFilename(const std::string& RHS) {
  (void)RHS;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::put_ClockSpeed(int32_t RHS) {
  (void)RHS;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

} // namespace zv
