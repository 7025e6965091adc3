#include "page_window.h"

#include <algorithm>
#include <cmath>

namespace zvwin {

namespace {
constexpr wchar_t kClass[] = L"ZelvorPwmPage";
constexpr int kFirstId = 1000;

// A control's place on the page: its parents' corners added to its own.
RECT placeOf(const zv::Control& control, double scale) {
  double left = control.Left(), top = control.Top();
  for (const zv::Control* p = control.Parent(); p; p = p->Parent()) {
    left += p->Left();
    top += p->Top();
  }
  const auto px = [&](double twips) { return static_cast<LONG>(std::lround(twips * scale)); };
  return {px(left), px(top), px(left + control.Width()), px(top + control.Height())};
}
} // namespace

PageWindow::PageWindow(zv::PageObject& page) : page_(page) {}

PageWindow::~PageWindow() {
  page_.site().onFocusChanged = nullptr;
  views_.clear();
  if (window_) {
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
  }
  if (font_)
    DeleteObject(font_);
}

SIZE PageWindow::pixelSize(const zv::PageObject& page, HWND window) {
  const double scale = pixelsPerTwip(window);
  return {static_cast<LONG>(std::lround(page.pageWidth() * scale)),
          static_cast<LONG>(std::lround(page.pageHeight() * scale))};
}

bool PageWindow::create(HWND parent, const RECT& place) {
  WNDCLASSW wc{};
  wc.lpfnWndProc = procedure;
  wc.hInstance = thisModule();
  wc.hCursor = LoadCursor(nullptr, IDC_ARROW);
  wc.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  wc.lpszClassName = kClass;
  RegisterClassW(&wc);
  // A control parent lets the frame's dialog manager tab through the views.
  window_ = CreateWindowExW(WS_EX_CONTROLPARENT, kClass, L"", WS_CHILD | WS_CLIPSIBLINGS,
                            place.left, place.top, place.right - place.left,
                            place.bottom - place.top, parent, nullptr, wc.hInstance, nullptr);
  if (!window_)
    return false;
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  const double scale = pixelsPerTwip(window_);
  Mapping map;
  map.scaleX = map.scaleY = scale;
  font_ = createFont(map);
  std::vector<zv::Control*> controls = page_.controls();
  for (size_t i = 0; i < controls.size(); ++i) {
    if (!controls[i])
      continue;
    const ViewPlace where{window_, placeOf(*controls[i], scale), kFirstId + static_cast<int>(i),
                          font_};
    if (auto view = makeView(*controls[i], where))
      views_.push_back(std::move(view));
  }
  // Keyboard order: the tab indexes, as a dialog takes it from the window order.
  std::vector<ControlView*> order;
  for (auto& view : views_)
    order.push_back(view.get());
  std::stable_sort(order.begin(), order.end(), [](ControlView* a, ControlView* b) {
    return a->control().TabIndex() < b->control().TabIndex();
  });
  HWND after = HWND_TOP;
  for (ControlView* view : order) {
    SetWindowPos(view->handle(), after, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    after = view->handle();
  }
  page_.site().onFocusChanged = [this] { showFocus(); };
  return true;
}

HWND PageWindow::viewOf(const std::string& name) const {
  for (const auto& view : views_)
    if (view->control().name() == name)
      return view->handle();
  return nullptr;
}

ControlView* PageWindow::viewByHandle(HWND view) const {
  for (const auto& v : views_)
    if (v->handle() == view)
      return v.get();
  return nullptr;
}

void PageWindow::showFocus() {
  for (const auto& view : views_)
    if (&view->control() == page_.site().focus() && GetFocus() != view->handle())
      SetFocus(view->handle());
}

LRESULT CALLBACK PageWindow::procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
  auto* self = reinterpret_cast<PageWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  switch (message) {
  case WM_COMMAND:
    if (self)
      if (ControlView* view = self->viewByHandle(reinterpret_cast<HWND>(l)))
        view->command(HIWORD(w));
    return 0;
  case WM_VSCROLL:
    if (self)
      if (ControlView* view = self->viewByHandle(reinterpret_cast<HWND>(l)))
        view->scroll(LOWORD(w), HIWORD(w));
    return 0;
  default:
    return DefWindowProcW(window, message, w, l);
  }
}

} // namespace zvwin
