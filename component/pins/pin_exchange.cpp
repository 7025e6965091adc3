#include "../core/pwm.h"

#include "../../platform/errors.h"
#include "../core/guard.h"

namespace zv {

Status PWM::get_SimIODirection(int32_t PinID, int32_t& result) {
  (void)PinID;
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::SimReadPins(Variant& pVal) {
  (void)pVal;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::SimWritePins(const Variant& newVal) {
  (void)newVal;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

int32_t PWM::VNodeCount() {
  raise(errInvalidCall, "not built yet");
}

int32_t PWM::VNodeProtocol(int32_t lIdx) {
  (void)lIdx;
  raise(errInvalidCall, "not built yet");
}

std::string PWM::VNodeName(int32_t lIdx) {
  (void)lIdx;
  raise(errInvalidCall, "not built yet");
}

Variant PWM::VNodeMsgRead(int32_t lIdx, int32_t& lSize) {
  (void)lIdx;
  (void)lSize;
  raise(errInvalidCall, "not built yet");
}

void PWM::VNodeMsgWrite(int32_t lIdx, int32_t lSize, Variant& msg) {
  (void)lIdx;
  (void)lSize;
  (void)msg;
  raise(errInvalidCall, "not built yet");
}

Status PWM::get_VNodeCount(int32_t& result) {
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::get_VNodeProtocol(int32_t lIdx, int32_t& result) {
  (void)lIdx;
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::get_VNodeName(int32_t lIdx, std::string& result) {
  (void)lIdx;
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::get_VNodeMsgRead(int32_t lIdx, int32_t& lSize, Variant& result) {
  (void)lIdx;
  (void)lSize;
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::put_VNodeMsgWrite(int32_t lIdx, int32_t lSize, Variant& msg) {
  (void)lIdx;
  (void)lSize;
  (void)msg;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

} // namespace zv
