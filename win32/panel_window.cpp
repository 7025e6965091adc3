#include "panel_window.h"

#include <cmath>

#include "painter.h"

namespace zvwin {

namespace {
constexpr wchar_t kClass[] = L"ZelvorPwmPanel";
} // namespace

PanelWindow::PanelWindow(zv::UserControlSurface& surface, std::vector<zv::Control*> controls)
    : surface_(surface), controls_(std::move(controls)) {
  bindings_.push_back(std::make_unique<ControlBinding>(surface_, [this] { changed(); }));
  for (zv::Control* control : controls_)
    if (control)
      bindings_.push_back(std::make_unique<ControlBinding>(*control, [this] { changed(); }));
}

PanelWindow::~PanelWindow() {
  bindings_.clear();
  if (window_) {
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
  }
}

bool PanelWindow::create(HWND parent, int left, int top) {
  WNDCLASSW wc{};
  wc.lpfnWndProc = procedure;
  wc.hInstance = thisModule();
  wc.hCursor = LoadCursor(nullptr, IDC_ARROW);
  wc.lpszClassName = kClass;
  RegisterClassW(&wc); // fails harmlessly once the class exists
  scale_ = pixelsPerTwip(parent);
  const SIZE size = pixelSize();
  window_ = CreateWindowExW(0, kClass, L"", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, left, top,
                            size.cx, size.cy, parent, nullptr, wc.hInstance, nullptr);
  if (!window_)
    return false;
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  return true;
}

SIZE PanelWindow::pixelSize() const {
  return {static_cast<LONG>(std::lround(surface_.Width() * scale_)),
          static_cast<LONG>(std::lround(surface_.Height() * scale_))};
}

void PanelWindow::changed() {
  if (!window_)
    return;
  const SIZE size = pixelSize();
  RECT now;
  GetClientRect(window_, &now);
  if (now.right != size.cx || now.bottom != size.cy)
    SetWindowPos(window_, nullptr, 0, 0, size.cx, size.cy,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  InvalidateRect(window_, nullptr, FALSE);
}

void PanelWindow::paint(HDC dc) {
  // Drawn off screen first: a canvas's clear and redraw must not flicker.
  RECT client;
  GetClientRect(window_, &client);
  HDC memory = CreateCompatibleDC(dc);
  HBITMAP bitmap = CreateCompatibleBitmap(dc, client.right, client.bottom);
  HGDIOBJ old = SelectObject(memory, bitmap);
  // A transparent panel shows its parent's background.
  HBRUSH parentFace = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  FillRect(memory, &client, parentFace);
  Mapping map;
  map.scaleX = map.scaleY = scale_;
  paintPanel(memory, map, surface_, controls_);
  BitBlt(dc, 0, 0, client.right, client.bottom, memory, 0, 0, SRCCOPY);
  SelectObject(memory, old);
  DeleteObject(bitmap);
  DeleteDC(memory);
}

LRESULT CALLBACK PanelWindow::procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
  auto* self = reinterpret_cast<PanelWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  switch (message) {
  case WM_ERASEBKGND:
    return 1;
  case WM_PAINT: {
    PAINTSTRUCT ps;
    HDC dc = BeginPaint(window, &ps);
    if (self)
      self->paint(dc);
    EndPaint(window, &ps);
    return 0;
  }
  default:
    return DefWindowProcW(window, message, w, l);
  }
}

} // namespace zvwin
