#include "../core/pwm.h"

#include "../../platform/errors.h"
#include "../core/guard.h"

namespace zv {

PWM::PWM(LibraryFacts library) : App(std::move(library)) {}

PWM::~PWM() = default;

Status PWM::get_MultipleAllowed(int32_t& result) {
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::get_IsAnalogue(int32_t& result) {
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::get_Description(std::string& result) {
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::put_ZelvorVersion(int32_t RHS) {
  (void)RHS;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::get_ComponentVersion(int32_t& result) {
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::put_PICAnalogueBits(int32_t RHS) {
  (void)RHS;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

} // namespace zv
