#include "../../platform/errors.h"
#include "../../platform/funnel.h"
#include "../../platform/vbnum.h"
#include "../core/pwm.h"
#include "prescaler.h"

namespace zv {

namespace {

// One macro parameter as an 8-bit value; raises 13, 9 or 6 when it has none.
uint8_t byteParam(const Variant& vParams, int32_t index) {
  return toUI1(vParams.arr().at(index));
}

// Channels 1 and 2 map to entries 0 and 1, if the target has that channel.
template <class T>
void setForChannel(VbArray<T>& entries, uint8_t channel, int16_t pwmCount, T value) {
  if (channel == 1 && pwmCount >= 1)
    entries[0] = value;
  else if (channel == 2 && pwmCount >= 2)
    entries[1] = value;
}

} // namespace

Status PWM::SimMacroCall(int32_t lMacroID, const Variant& vParams, int32_t& pRetVal,
                         Variant& pvAffected, int32_t& pCycles) {
  return guard([&] {
    const bool above = lMacroID > aMacros.ubound();
    const bool below = lMacroID < aMacros.lbound();
    if (above || below)
      return;
    uint8_t result = 0;
    switch (lMacroID) {
    case 0:
      result = SimEnableChannel(vParams, pvAffected, pCycles);
      break;
    case 1:
      result = SimDisableChannel(vParams, pvAffected, pCycles);
      break;
    case 2:
      result = SimSetDuty(vParams, pvAffected, pCycles);
      break;
    case 3:
      result = SimChangePeriod(vParams, pvAffected, pCycles);
      break;
    case 4:
      result = SimSetDutyHighLow(vParams, pvAffected, pCycles);
      break;
    default:
      return;
    }
    pRetVal = result;
  });
}

Status PWM::SimMacroCall2(int32_t lMacroID, const Variant& vParams, Variant& pRetVal,
                          Variant& pvAffected, int32_t& pCycles) {
  (void)lMacroID;
  (void)vParams;
  (void)pRetVal;
  (void)pvAffected;
  (void)pCycles;
  return guard([&] { msgBox("Error in <SimMacroCall2>"); });
}

Status PWM::StartSimulation() {
  return guard([&] {
    bSimulating = -1;
    aChannelOn[0] = 0;
    aChannelOn[1] = 0;
    doRefresh();
  });
}

Status PWM::StopSimulation() {
  return guard([&] {
    bSimulating = 0;
    doRefresh();
  });
}

Status PWM::get_IsSimulating(int32_t& result) {
  return guard([&] { result = bSimulating; });
}

uint8_t PWM::SimEnableChannel(const Variant& vParams, Variant&, int32_t&) {
  const uint8_t channel = byteParam(vParams, 0);
  setForChannel<int16_t>(aChannelOn, channel, iPwmCount, -1);
  doRefresh();
  return 0;
}

uint8_t PWM::SimDisableChannel(const Variant& vParams, Variant&, int32_t&) {
  const uint8_t channel = byteParam(vParams, 0);
  setForChannel<int16_t>(aChannelOn, channel, iPwmCount, 0);
  doRefresh();
  return 0;
}

uint8_t PWM::SimSetDuty(const Variant& vParams, Variant&, int32_t&) {
  const uint8_t channel = byteParam(vParams, 0);
  const uint8_t duty = byteParam(vParams, 1);
  setForChannel<int16_t>(aDuty, channel, iPwmCount, duty);
  doRefresh();
  return 0;
}

uint8_t PWM::SimChangePeriod(const Variant& vParams, Variant&, int32_t&) {
  const uint8_t pr2 = byteParam(vParams, 0);
  const uint8_t code = byteParam(vParams, 1);
  iPr2 = pr2;
  if (code < kPrescalers.size())
    iPrescaler = kPrescalers[code].value;
  Calc_Period_Freq();
  doRefresh();
  return 0;
}

uint8_t PWM::SimSetDutyHighLow(const Variant& vParams, Variant&, int32_t&) {
  const uint8_t channel = byteParam(vParams, 0);
  // Any integer passes: only its two low bits count.
  const auto high = static_cast<uint8_t>(toI4(vParams.arr().at(1)) & 3);
  const uint8_t low = byteParam(vParams, 2);
  // The ten-bit duty high:low loses its two lowest bits.
  const auto duty = static_cast<int16_t>(high * 64 + low / 4);
  setForChannel<int16_t>(aDuty, channel, iPwmCount, duty);
  doRefresh();
  return 0;
}

} // namespace zv
