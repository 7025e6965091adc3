// What the target offers: three numbers from the host's device file, and the
// clock the host tells. None of them is saved; the host delivers them anew.
#include "../../platform/funnel.h"
#include "../../platform/profile.h"
#include "../../platform/vbnum.h"
#include "../core/pwm.h"

namespace zv {

namespace {

int16_t deviceNumber(const char* key, const std::string& path) {
  return narrow16(getPrivateProfileInt("Device", key, 0, path));
}

} // namespace

Status PWM::put_ZvdFilename(const std::string& RHS) {
  return guard([&] {
    iPwmCount = deviceNumber("PWMCount", RHS);
    iHasAltPin = deviceNumber("HasAltPWM", RHS);
    iClockDivider = deviceNumber("ClockDivider", RHS);
    doRefresh();
  });
}

Status PWM::put_ClockSpeed(int32_t RHS) {
  return guard([&] {
    lClockSpeed = RHS;
    if (RHS == 0)
      raise(errDivisionByZero);
    fTickPeriod = static_cast<float>(1.0 / static_cast<double>(RHS));
    Calc_Period_Freq();
  });
}

} // namespace zv
