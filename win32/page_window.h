// A property page's controls as the system's child windows, placed from the
// page's twips at the window's DPI, the children of a frame inside the frame's
// box, in the keyboard order of their tab indexes. The page's SetFocus moves
// the keyboard focus. The page object must outlive the window.
#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

#include "control_views.h"
#include "zelvor/objects.h"

namespace zvwin {

class PageWindow {
public:
  explicit PageWindow(zv::PageObject& page);
  ~PageWindow();
  PageWindow(const PageWindow&) = delete;
  PageWindow& operator=(const PageWindow&) = delete;

  // The page's size in pixels at the DPI of the given window.
  static SIZE pixelSize(const zv::PageObject& page, HWND window);
  // Makes the window in parent at place, hidden; false on failure.
  bool create(HWND parent, const RECT& place);
  HWND handle() const { return window_; }
  // The view of the named control (control identifiers are 1000 + its place in
  // the page's order of creation), or nullptr.
  HWND viewOf(const std::string& name) const;

private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM w, LPARAM l);
  ControlView* viewByHandle(HWND view) const;
  void showFocus();

  zv::PageObject& page_;
  HWND window_ = nullptr;
  HFONT font_ = nullptr;
  std::vector<std::unique_ptr<ControlView>> views_;
};

} // namespace zvwin
