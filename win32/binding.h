// The tie between a Win32 view and its control model: the view observes the
// model for as long as it lives and only shows what it holds. A user's action
// runs the model's setter, whose notifications run nested; a failure raised
// there is reported and never crosses the window procedure.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "platform/controls/control.h"
#include "platform/funnel.h"

namespace zvwin {

class ControlBinding {
public:
  ControlBinding(zv::Control& control, std::function<void()> onChange)
      : control_(control), id_(control.observe(std::move(onChange))) {}
  ~ControlBinding() { control_.unobserve(id_); }
  ControlBinding(const ControlBinding&) = delete;
  ControlBinding& operator=(const ControlBinding&) = delete;

private:
  zv::Control& control_;
  int id_;
};

// A user's edit reaches the model; a failure inside it stops there, leaving
// what the model wrote before it, and never leaves the window procedure.
template <class Action> void runUserAction(Action&& action) noexcept {
  (void)zv::guard(action);
}

// Pixels per twip at a window's DPI.
double pixelsPerTwip(HWND window);

// The module these views are linked into, where their window classes live.
HINSTANCE thisModule();

} // namespace zvwin
