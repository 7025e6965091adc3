// Win32 views of the page's controls: check box, drop-down list, text box,
// scroll bar, label and frame as the system's own child windows. A view shows
// its model's state and forwards the user's edits to the model; it never keeps
// a value of its own.
#pragma once

#include <windows.h>

#include <memory>

#include "binding.h"
#include "painter.h"

namespace zvwin {

class ControlView {
public:
  ControlView(zv::Control& control, HWND window);
  virtual ~ControlView();
  ControlView(const ControlView&) = delete;
  ControlView& operator=(const ControlView&) = delete;

  HWND handle() const { return window_; }
  zv::Control& control() const { return control_; }
  // WM_COMMAND's notification code, WM_VSCROLL's request and position.
  virtual void command(int) {}
  virtual void scroll(int, int) {}

protected:
  // Shows the model; what stands is not set again.
  virtual void sync();
  void showText(const std::string& text);
  void start(); // begins observing and shows the model once
  zv::Control& control_;
  HWND window_;
  bool syncing_ = false; // the view's own changes raise no user edit

private:
  std::unique_ptr<ControlBinding> binding_;
};

// Where a view goes: its place in the page's pixels and its control identifier.
struct ViewPlace {
  HWND parent;
  RECT pixels;
  int id;
  HFONT font;
};

// The view of a control, or nullptr for a kind without one.
std::unique_ptr<ControlView> makeView(zv::Control& control, const ViewPlace& place);

} // namespace zvwin
