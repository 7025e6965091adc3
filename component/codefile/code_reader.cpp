#include "../core/pwm.h"

#include "../../platform/errors.h"
#include "../core/guard.h"

namespace zv {

std::string PWM::codeFilePath() const {
  raise(errInvalidCall, "not built yet");
}

std::string PWM::GetIniKeyValue(std::string& lpApplicationName, std::string& lpKeyName, std::string& lpDefault) {
  (void)lpApplicationName;
  (void)lpKeyName;
  (void)lpDefault;
  raise(errInvalidCall, "not built yet");
}

std::string PWM::GetCodeFromFile(std::string& lpCodeName) {
  (void)lpCodeName;
  raise(errInvalidCall, "not built yet");
}

} // namespace zv
