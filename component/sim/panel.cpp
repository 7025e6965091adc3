#include "../core/pwm.h"

#include "../../platform/errors.h"
#include "../core/guard.h"

namespace zv {

void PWM::createPanel() {
  raise(errInvalidCall, "not built yet");
}

void PWM::UserControl_Paint() {
  raise(errInvalidCall, "not built yet");
}

void PWM::UserControl_Resize() {
  raise(errInvalidCall, "not built yet");
}

void PWM::Draw_Frames() {
  raise(errInvalidCall, "not built yet");
}

void PWM::doRefresh() {
  raise(errInvalidCall, "not built yet");
}

Status PWM::Refresh() {
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::Paint() {
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

Status PWM::Resize() {
  return guard([&] { raise(errInvalidCall, "not built yet"); });
}

std::vector<Control*> PWM::panelControls() {
  return {&Pic_Graph0, &Pic_Graph1, &lblInfo0, &lblInfo1, &Line1, &Line2};
}

} // namespace zv
