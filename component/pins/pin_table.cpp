// The pin table: the pins the component asks the host for, and the ports and
// bits the host assigns them. Ids are slot indexes of aPins.
#include "../../platform/funnel.h"
#include "../codefile/key_values.h"
#include "../core/counted_loop.h"
#include "../core/pwm.h"
#include "pin_slot.h"

namespace zv {

namespace {

// Beyond this many slots the table can't be allocated.
constexpr int32_t kMaxPinSlots = 1 << 20;

// A pin's member as the host reads it: 0 for an id outside the table.
template <class M>
Status pinAnswer(VbArray<std::unique_ptr<ZVPin>>& pins, int32_t id, M ZVPin::*member,
                 int32_t& result) {
  return guard([&] {
    const ZVPin* pin = pinInTable(pins, id);
    result = pin ? pin->*member : 0;
  });
}

// A pin's member as the host writes it: nothing happens outside the table.
Status pinAssign(VbArray<std::unique_ptr<ZVPin>>& pins, int32_t id, int32_t ZVPin::*member,
                 int32_t value) {
  return guard([&] {
    if (ZVPin* pin = pinInTable(pins, id))
      pin->*member = value;
  });
}

} // namespace

void PWM::buildPinTable() {
  lPinCount = longOfKey(ini("Pins", "Count", "0"));
  // A positive count leaves its slots empty (per-pin operations on them fail with 91);
  // a negative one has no slots to allocate and fails like an array ending before its start.
  if (lPinCount < 0)
    raise(errSubscript);
  if (lPinCount >= kMaxPinSlots)
    raise(errOutOfMemory);
  aPins.redim(0, lPinCount);
  if (lPinCount == 0) {
    int32_t slot = 0, port = 0, samePortAs = -1, bit = 0, direction = 2;
    int16_t portMandatory = 0, bitMandatory = 0, value = 0;
    std::string name = "Pin A0";
    setupAPin(slot, name, port, portMandatory, samePortAs, bit, bitMandatory, direction, value);
  }
}

void PWM::setupAPin(int32_t& ArrayNumber, std::string& PinName, int32_t& PortAorB,
                    int16_t& MustUseThatPort, int32_t& SamePortAsPinX, int32_t& PinNum,
                    int16_t& MustUseThatPin, int32_t& PinDirection, int16_t& PinValue) {
  auto& slot = aPins[ArrayNumber];
  slot = std::make_unique<ZVPin>();
  slot->PinName = PinName;
  slot->DesiredPort = PortAorB;
  slot->PortMandatory = MustUseThatPort;
  slot->SamePortAsID = SamePortAsPinX;
  slot->DesiredBit = PinNum;
  slot->BitMandatory = MustUseThatPin;
  slot->Direction = PinDirection;
  slot->SimValue = PinValue;
  slot->Port = -1;
  slot->Bit = -1;
}

Status PWM::get_PinCount(int32_t& result) {
  return guard([&] { result = lPinCount; });
}

Status PWM::get_PinName(int32_t PinID, std::string& result) {
  return guard([&] {
    const ZVPin* pin = pinInTable(aPins, PinID);
    result = pin ? pin->PinName : std::string();
  });
}

Status PWM::get_DesiredPort(int32_t PinID, int32_t& result) {
  // The one pin operation without a range test: an id outside the table fails (9).
  return guard([&] { result = pinRecord(aPins, PinID).DesiredPort; });
}

Status PWM::get_Direction(int32_t PinID, int32_t& result) {
  return pinAnswer(aPins, PinID, &ZVPin::Direction, result);
}

Status PWM::get_PortMandatory(int32_t PinID, int32_t& result) {
  return pinAnswer(aPins, PinID, &ZVPin::PortMandatory, result);
}

Status PWM::get_SamePortAsID(int32_t PinID, int32_t& result) {
  return pinAnswer(aPins, PinID, &ZVPin::SamePortAsID, result);
}

Status PWM::get_DesiredBit(int32_t PinID, int32_t& result) {
  return pinAnswer(aPins, PinID, &ZVPin::DesiredBit, result);
}

Status PWM::get_BitMandatory(int32_t PinID, int32_t& result) {
  return pinAnswer(aPins, PinID, &ZVPin::BitMandatory, result);
}

Status PWM::get_Port(int32_t PinID, int32_t& result) {
  return pinAnswer(aPins, PinID, &ZVPin::Port, result);
}

Status PWM::put_Port(int32_t PinID, int32_t RHS) {
  return pinAssign(aPins, PinID, &ZVPin::Port, RHS);
}

Status PWM::get_Bit(int32_t PinID, int32_t& result) {
  return pinAnswer(aPins, PinID, &ZVPin::Bit, result);
}

Status PWM::put_Bit(int32_t PinID, int32_t RHS) {
  return pinAssign(aPins, PinID, &ZVPin::Bit, RHS);
}

Status PWM::get_ConnectedOK(int32_t& result) {
  return guard([&] {
    int32_t answer = -1;
    countedLoop16(aPins.lbound(), aPins.ubound(), [&](int16_t i) {
      const ZVPin& pin = pinRecord(aPins, i);
      if (pin.Port == -1 || pin.Bit == -1)
        answer = 0;
    });
    result = answer;
  });
}

} // namespace zv
