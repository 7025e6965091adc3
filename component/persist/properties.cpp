#include "../core/pwm.h"

#include "../../platform/errors.h"
#include "../core/guard.h"

namespace zv {

Status PWM::InitProperties() {
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::ReadProperties(PropertyBag& bag) {
  (void)bag;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::WriteProperties(PropertyBag& bag) {
  (void)bag;
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

int16_t PWM::Pr2() const {
  raise(errInvalidCall, "not built yet");
}

void PWM::setPr2(int16_t NewPr2) {
  (void)NewPr2;
  raise(errInvalidCall, "not built yet");
}

int16_t PWM::Prescaler() const {
  raise(errInvalidCall, "not built yet");
}

void PWM::setPrescaler(int16_t NewPrescaler) {
  (void)NewPrescaler;
  raise(errInvalidCall, "not built yet");
}

int16_t PWM::PWM_No() const {
  raise(errInvalidCall, "not built yet");
}

void PWM::setPWM_No(int16_t New_PWM_No) {
  (void)New_PWM_No;
  raise(errInvalidCall, "not built yet");
}

int32_t PWM::ClockSpeed() const {
  raise(errInvalidCall, "not built yet");
}

void PWM::setClockSpeed(int32_t NewClockSpeed) {
  (void)NewClockSpeed;
  raise(errInvalidCall, "not built yet");
}

int32_t PWM::MaxPwm() const {
  raise(errInvalidCall, "not built yet");
}

void PWM::setMaxPwm(int32_t NewMaxPwm) {
  (void)NewMaxPwm;
  raise(errInvalidCall, "not built yet");
}

int16_t PWM::UseAltPin() const {
  raise(errInvalidCall, "not built yet");
}

void PWM::setUseAltPin(int16_t New_UseAltPin) {
  (void)New_UseAltPin;
  raise(errInvalidCall, "not built yet");
}

int16_t PWM::HasAltPin() const {
  raise(errInvalidCall, "not built yet");
}

void PWM::setHasAltPin(int16_t NewHasAltPin) {
  (void)NewHasAltPin;
  raise(errInvalidCall, "not built yet");
}

std::string PWM::Label1() const {
  raise(errInvalidCall, "not built yet");
}

void PWM::setLabel1(const std::string& New_Label) {
  (void)New_Label;
  raise(errInvalidCall, "not built yet");
}

std::string PWM::Label2() const {
  raise(errInvalidCall, "not built yet");
}

void PWM::setLabel2(const std::string& New_Label) {
  (void)New_Label;
  raise(errInvalidCall, "not built yet");
}

int16_t PWM::ShowSim() const {
  raise(errInvalidCall, "not built yet");
}

void PWM::setShowSim(int16_t New_Show) {
  (void)New_Show;
  raise(errInvalidCall, "not built yet");
}

} // namespace zv
