#include "../core/pwm.h"

#include "../../platform/errors.h"
#include "../core/guard.h"

namespace zv {

std::string PWM::FillPlaceholders(std::string& text) {
  (void)text;
  raise(errInvalidCall, "not built yet");
}

Status PWM::MacroCodeOverride(std::string& pVal) {
  (void)pVal;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

} // namespace zv
