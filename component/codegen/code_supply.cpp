#include "../core/pwm.h"

#include "../../platform/errors.h"
#include "../core/guard.h"

namespace zv {

Status PWM::get_MacroCode(int32_t lMacroID, std::string& result) {
  (void)lMacroID;
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::get_DefinesCode(std::string& result) {
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::get_InitialisationCode(std::string& result) {
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::get_InterruptCode(std::string& result) {
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::get_HasInitialisation(int32_t& result) {
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::get_HasInterrupts(int32_t& result) {
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::get_HasExclusiveInts(int32_t& result) {
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::get_ExclusiveInterrupts(Variant& result) {
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::get_CodeFilename(std::string& result) {
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::put_WriteCustomImages(int32_t lID, const std::string& RHS) {
  (void)lID;
  (void)RHS;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

} // namespace zv
