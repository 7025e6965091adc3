#include "../core/pwm.h"

#include "../../platform/errors.h"
#include "../core/guard.h"

namespace zv {

void PWM::BuildMacroTable() {
  raise(errInvalidCall, "not built yet");
}

Status PWM::get_MacroNames(Variant& result) {
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::get_MacroIsFunction(int32_t lMacroID, int32_t& result) {
  (void)lMacroID;
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::get_MacroIsPrivate(int32_t lMacroID, int32_t& result) {
  (void)lMacroID;
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::get_MacroParameters(int32_t lMacroID, Variant& result) {
  (void)lMacroID;
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

} // namespace zv
