// Operations of the host interface that this component answers with a
// constant, stores without using, or ignores.
#include "../../platform/funnel.h"
#include "../core/pwm.h"

namespace zv {

Status PWM::KeyDown(int32_t) {
  return {};
}

Status PWM::KeyUp(int32_t) {
  return {};
}

Status PWM::get_SupportsKeys(int32_t& result) {
  return guard([&] { result = bSupportsKeys; });
}

Status PWM::put_ADCCaptureCode(const std::string& RHS) {
  return guard([&] { sAdcCaptureCode = RHS; });
}

Status PWM::put_ADCReadHighCode(const std::string& RHS) {
  return guard([&] { sAdcReadHighCode = RHS; });
}

Status PWM::put_ADCReadLowCode(const std::string& RHS) {
  return guard([&] { sAdcReadLowCode = RHS; });
}

Status PWM::put_TargetController(const std::string& RHS) {
  return guard([&] { sTargetController = RHS; });
}

Status PWM::put_ADCReadIntCode(const std::string&) {
  return {};
}

Status PWM::GeneralMethod(int32_t, Variant&) {
  return {};
}

Status PWM::put_GeneralPut(int32_t, Variant&) {
  return {};
}

Status PWM::get_GeneralGet(int32_t, Variant& result) {
  return guard([&] { result = Variant::i2(0); });
}

Status PWM::get_ReadCustomImages(int32_t, std::string& result) {
  return guard([&] { result.clear(); });
}

} // namespace zv
