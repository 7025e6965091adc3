#include "../core/pwm.h"

#include "../../platform/errors.h"
#include "../core/guard.h"

namespace zv {

Status PWM::KeyDown(int32_t lElementID) {
  (void)lElementID;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::KeyUp(int32_t lElementID) {
  (void)lElementID;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::get_SupportsKeys(int32_t& result) {
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::put_ADCCaptureCode(const std::string& RHS) {
  (void)RHS;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::put_ADCReadHighCode(const std::string& RHS) {
  (void)RHS;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::put_ADCReadLowCode(const std::string& RHS) {
  (void)RHS;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::put_TargetController(const std::string& RHS) {
  (void)RHS;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::put_ADCReadIntCode(const std::string& RHS) {
  (void)RHS;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::GeneralMethod(int32_t lID, Variant& pVal) {
  (void)lID;
  (void)pVal;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::put_GeneralPut(int32_t lID, Variant& RHS) {
  (void)lID;
  (void)RHS;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::get_GeneralGet(int32_t lID, Variant& result) {
  (void)lID;
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::get_ReadCustomImages(int32_t lID, std::string& result) {
  (void)lID;
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

} // namespace zv
