// The settings saved with the flowchart, and the public properties through
// which the save, the load and the property page reach them.
#include "../../platform/funnel.h"
#include "../../platform/vbnum.h"
#include "../core/counted_loop.h"
#include "../core/pwm.h"
#include "../pins/pin_slot.h"

namespace zv {

namespace {

// The clock that goes with the fallback clock period; a load drops it anyway.
constexpr int32_t kDefaultClockSpeed = 19660800;

} // namespace

Status PWM::InitProperties() {
  return guard([&] {
    sLabel1 = "CCP1";
    sLabel2 = "CCP2";
    bShowSim = -1;
  });
}

Status PWM::ReadProperties(const PropertyBag& bag) {
  return guard([&] {
    countedLoop16(0, aPins.ubound(), [&](int16_t i) {
      const std::string n = std::to_string(i);
      pinRecord(aPins, i).Port = toI4(bag.ReadProperty("Port" + n, Variant::i4(-1)));
      pinRecord(aPins, i).Bit = toI4(bag.ReadProperty("Bit" + n, Variant::i4(-1)));
    });
    setPr2(toI2(bag.ReadProperty("Pr2", Variant::i2(255))));
    setPrescaler(toI2(bag.ReadProperty("Prescaler", Variant::i2(1))));
    iPwmNo = toI2(bag.ReadProperty("PWM_No", Variant::i2(1)));
    setClockSpeed(toI4(bag.ReadProperty("ClockSpeed", Variant::i4(kDefaultClockSpeed))));
    setUseAltPin(vbBool(toBool(bag.ReadProperty("UseAltPin", Variant::boolean(false)))));
    setHasAltPin(toI2(bag.ReadProperty("HasAltPin", Variant::boolean(false))));
    setLabel1(toStr(bag.ReadProperty("Label1", Variant::str(sLabel1))));
    setLabel2(toStr(bag.ReadProperty("Label2", Variant::str(sLabel2))));
    setShowSim(vbBool(toBool(bag.ReadProperty("ShowSim", Variant::boolean(true)))));
    UserControl_Paint();
  });
}

Status PWM::WriteProperties(PropertyBag& bag) {
  return guard([&] {
    countedLoop16(0, aPins.ubound(), [&](int16_t i) {
      const std::string n = std::to_string(i);
      bag.WriteProperty("Port" + n, Variant::i4(pinRecord(aPins, i).Port));
      bag.WriteProperty("Bit" + n, Variant::i4(pinRecord(aPins, i).Bit));
    });
    bag.WriteProperty("Pr2", Variant::i2(Pr2()));
    bag.WriteProperty("Prescaler", Variant::i2(Prescaler()));
    bag.WriteProperty("PWM_No", Variant::i2(iPwmNo));
    bag.WriteProperty("ClockSpeed", Variant::i4(ClockSpeed()));
    bag.WriteProperty("UseAltPin", Variant::boolean(UseAltPin() != 0));
    bag.WriteProperty("HasAltPin", Variant::i2(HasAltPin()));
    bag.WriteProperty("Label1", Variant::str(Label1()));
    bag.WriteProperty("Label2", Variant::str(Label2()));
    bag.WriteProperty("ShowSim", Variant::boolean(bShowSim != 0));
  });
}

int16_t PWM::Pr2() const {
  return iPr2;
}

void PWM::setPr2(int16_t NewPr2) {
  iPr2 = NewPr2;
  Calc_Period_Freq();
}

int16_t PWM::Prescaler() const {
  return iPrescaler;
}

void PWM::setPrescaler(int16_t NewPrescaler) {
  iPrescaler = NewPrescaler;
  Calc_Period_Freq();
}

// Carried in saved data only: the property reads a constant and ignores writes.
int16_t PWM::PWM_No() const {
  return -1;
}

void PWM::setPWM_No(int16_t) {}

int32_t PWM::ClockSpeed() const {
  return lClockSpeed;
}

// The clock comes from the host alone.
void PWM::setClockSpeed(int32_t) {}

// Low byte: channel count; next byte: clock divider.
int32_t PWM::MaxPwm() const {
  return add16(mul16(iClockDivider & 0xFF, 256), iPwmCount & 0xFF);
}

void PWM::setMaxPwm(int32_t) {}

int16_t PWM::UseAltPin() const {
  return bUseAltPin;
}

void PWM::setUseAltPin(int16_t New_UseAltPin) {
  bUseAltPin = New_UseAltPin;
}

int16_t PWM::HasAltPin() const {
  return iHasAltPin;
}

// The alternative pin comes from the device file alone.
void PWM::setHasAltPin(int16_t) {}

std::string PWM::Label1() const {
  return sLabel1;
}

void PWM::setLabel1(const std::string& New_Label) {
  sLabel1 = New_Label;
}

std::string PWM::Label2() const {
  return sLabel2;
}

void PWM::setLabel2(const std::string& New_Label) {
  sLabel2 = New_Label;
}

int16_t PWM::ShowSim() const {
  return bShowSim;
}

void PWM::setShowSim(int16_t New_Show) {
  bShowSim = New_Show;
}

} // namespace zv
