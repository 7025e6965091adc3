// A component's panel as a child window: it observes the surface and each of
// the panel's controls and repaints the whole panel from them when any of them
// changes. The models must outlive the window.
#pragma once

#include <windows.h>

#include <memory>
#include <vector>

#include "binding.h"
#include "platform/controls/canvas.h"

namespace zvwin {

class PanelWindow {
public:
  PanelWindow(zv::UserControlSurface& surface, std::vector<zv::Control*> controls);
  ~PanelWindow();
  PanelWindow(const PanelWindow&) = delete;
  PanelWindow& operator=(const PanelWindow&) = delete;

  // Makes the window inside parent at its top left corner; false on failure.
  bool create(HWND parent, int left, int top);
  HWND handle() const { return window_; }
  // The panel's size in pixels at the window's DPI.
  SIZE pixelSize() const;

private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM w, LPARAM l);
  void changed();
  void paint(HDC dc);

  zv::UserControlSurface& surface_;
  std::vector<zv::Control*> controls_;
  std::vector<std::unique_ptr<ControlBinding>> bindings_;
  HWND window_ = nullptr;
  double scale_ = 1.0 / 15;
};

} // namespace zvwin
