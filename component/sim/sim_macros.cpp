#include "../core/pwm.h"

#include "../../platform/errors.h"
#include "../core/guard.h"

namespace zv {

Status PWM::SimMacroCall(int32_t lMacroID, const Variant& vParams, int32_t& pRetVal, Variant& pvAffected, int32_t& pCycles) {
  (void)lMacroID;
  (void)vParams;
  (void)pRetVal;
  (void)pvAffected;
  (void)pCycles;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::SimMacroCall2(int32_t lMacroID, const Variant& vParams, Variant& pRetVal, Variant& pvAffected, int32_t& pCycles) {
  (void)lMacroID;
  (void)vParams;
  (void)pRetVal;
  (void)pvAffected;
  (void)pCycles;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::StartSimulation() {
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::StopSimulation() {
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::get_IsSimulating(int32_t& result) {
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

uint8_t PWM::SimEnableChannel(Variant vParams, Variant& pvAffected, int32_t& pCycles) {
  (void)vParams;
  (void)pvAffected;
  (void)pCycles;
  raise(errInvalidCall, "not built yet");
}

uint8_t PWM::SimDisableChannel(Variant vParams, Variant& pvAffected, int32_t& pCycles) {
  (void)vParams;
  (void)pvAffected;
  (void)pCycles;
  raise(errInvalidCall, "not built yet");
}

uint8_t PWM::SimSetDuty(Variant vParams, Variant& pvAffected, int32_t& pCycles) {
  (void)vParams;
  (void)pvAffected;
  (void)pCycles;
  raise(errInvalidCall, "not built yet");
}

uint8_t PWM::SimChangePeriod(Variant vParams, Variant& pvAffected, int32_t& pCycles) {
  (void)vParams;
  (void)pvAffected;
  (void)pCycles;
  raise(errInvalidCall, "not built yet");
}

uint8_t PWM::SimSetDutyHighLow(Variant vParams, Variant& pvAffected, int32_t& pCycles) {
  (void)vParams;
  (void)pvAffected;
  (void)pCycles;
  raise(errInvalidCall, "not built yet");
}

} // namespace zv
