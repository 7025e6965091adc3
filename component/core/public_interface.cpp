#include "../core/pwm.h"

#include "../../platform/errors.h"
#include "../core/guard.h"

namespace zv {

Inspected PWM::inspect() const {
  raise(errInvalidCall, "not built yet");
}

Variant PWM::getProperty(const std::string& name) {
  (void)name;
  raise(errInvalidCall, "not built yet");
}

void PWM::putProperty(const std::string& name, const Variant& value) {
  (void)name;
  (void)value;
  raise(errInvalidCall, "not built yet");
}

Variant PWM::callMethod(const std::string& name, std::vector<Variant>& args) {
  (void)name;
  (void)args;
  raise(errInvalidCall, "not built yet");
}

} // namespace zv
