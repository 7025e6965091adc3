#include "../core/pwm.h"

#include "../../platform/errors.h"
#include "../core/guard.h"

namespace zv {

void PWM::buildPinTable() {
  raise(errInvalidCall, "not built yet");
}

void PWM::setupAPin(int32_t& ArrayNumber, std::string& PinName, int32_t& PortAorB, int16_t& MustUseThatPort, int32_t& SamePortAsPinX, int32_t& PinNum, int16_t& MustUseThatPin, int32_t& PinDirection, int16_t& PinValue) {
  (void)ArrayNumber;
  (void)PinName;
  (void)PortAorB;
  (void)MustUseThatPort;
  (void)SamePortAsPinX;
  (void)PinNum;
  (void)MustUseThatPin;
  (void)PinDirection;
  (void)PinValue;
  raise(errInvalidCall, "not built yet");
}

Status PWM::get_PinCount(int32_t& result) {
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::get_PinName(int32_t PinID, std::string& result) {
  (void)PinID;
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::get_DesiredPort(int32_t PinID, int32_t& result) {
  (void)PinID;
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::get_Direction(int32_t PinID, int32_t& result) {
  (void)PinID;
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::get_PortMandatory(int32_t PinID, int32_t& result) {
  (void)PinID;
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::get_SamePortAsID(int32_t PinID, int32_t& result) {
  (void)PinID;
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::get_DesiredBit(int32_t PinID, int32_t& result) {
  (void)PinID;
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::get_BitMandatory(int32_t PinID, int32_t& result) {
  (void)PinID;
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::get_Port(int32_t PinID, int32_t& result) {
  (void)PinID;
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::put_Port(int32_t PinID, int32_t RHS) {
  (void)PinID;
  (void)RHS;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::get_Bit(int32_t PinID, int32_t& result) {
  (void)PinID;
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::put_Bit(int32_t PinID, int32_t RHS) {
  (void)PinID;
  (void)RHS;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::get_ConnectedOK(int32_t& result) {
  (void)result;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

} // namespace zv
