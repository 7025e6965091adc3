// The host's exchange of simulated pin levels, and the message nodes this
// component doesn't have.
#include "../../platform/funnel.h"
#include "../../platform/vbnum.h"
#include "../core/counted_loop.h"
#include "../core/pwm.h"
#include "pin_slot.h"

namespace zv {

Status PWM::get_SimIODirection(int32_t PinID, int32_t& result) {
  return get_Direction(PinID, result);
}

Status PWM::SimReadPins(Variant& pVal) {
  return guard([&] {
    if (lPinCount == 0) {
      SafeArray levels(VarType::Bool, 0, 0);
      levels.set(0, Variant::boolean(false));
      pVal = Variant::array(std::move(levels));
      return;
    }
    SafeArray levels(VarType::Bool, 0, lPinCount - 1);
    countedLoop16(0, static_cast<int64_t>(lPinCount) - 1, [&](int16_t i) {
      levels.set(i, Variant::boolean(pinRecord(aPins, i).SimValue != 0));
    });
    pVal = Variant::array(std::move(levels));
    doRefresh();
  });
}

Status PWM::SimWritePins(const Variant& newVal) {
  return guard([&] {
    if (lPinCount < 1)
      return;
    countedLoop16(0, static_cast<int64_t>(lPinCount) - 1, [&](int16_t i) {
      if (!newVal.isArray())
        raise(errTypeMismatch);
      const int16_t level = vbBool(toBool(newVal.arr().at(i)));
      pinRecord(aPins, i).SimValue = level;
    });
    doRefresh();
  });
}

int32_t PWM::VNodeCount() {
  return 0;
}

int32_t PWM::VNodeProtocol(int32_t) {
  return 0;
}

std::string PWM::VNodeName(int32_t) {
  return {};
}

Variant PWM::VNodeMsgRead(int32_t, int32_t& lSize) {
  lSize = 0;
  SafeArray message(VarType::UI1, 0, 0);
  message.set(0, Variant::ui1(0));
  return Variant::array(std::move(message));
}

void PWM::VNodeMsgWrite(int32_t, int32_t, Variant&) {}

Status PWM::get_VNodeCount(int32_t& result) {
  return guard([&] { result = VNodeCount(); });
}

Status PWM::get_VNodeProtocol(int32_t lIdx, int32_t& result) {
  return guard([&] { result = VNodeProtocol(lIdx); });
}

Status PWM::get_VNodeName(int32_t lIdx, std::string& result) {
  return guard([&] { result = VNodeName(lIdx); });
}

Status PWM::get_VNodeMsgRead(int32_t lIdx, int32_t& lSize, Variant& result) {
  return guard([&] { result = VNodeMsgRead(lIdx, lSize); });
}

Status PWM::put_VNodeMsgWrite(int32_t lIdx, int32_t lSize, Variant& msg) {
  return guard([&] { VNodeMsgWrite(lIdx, lSize, msg); });
}

} // namespace zv
