#include "control_views.h"

#include <commctrl.h>

#include <algorithm>

#include <vector>

#include "platform/controls/widgets.h"
#include "platform/win/wide_text.h"

namespace zvwin {

namespace {

std::string windowText(HWND window) {
  const int length = GetWindowTextLengthW(window);
  std::vector<wchar_t> buffer(static_cast<size_t>(length) + 1);
  GetWindowTextW(window, buffer.data(), length + 1);
  return zv::narrowTo1252(buffer.data(), static_cast<size_t>(length));
}

// How wide a text is in the window's font.
int textWidth(HWND window, const std::string& text) {
  const std::wstring wide = zv::wideFrom1252(text);
  HDC dc = GetDC(window);
  HGDIOBJ old = SelectObject(dc, reinterpret_cast<HGDIOBJ>(SendMessageW(window, WM_GETFONT, 0, 0)));
  SIZE size{};
  GetTextExtentPoint32W(dc, wide.c_str(), static_cast<int>(wide.size()), &size);
  SelectObject(dc, old);
  ReleaseDC(window, dc);
  return size.cx;
}

// The window's place in its parent's client area.
RECT placeInParent(HWND window) {
  RECT r;
  GetWindowRect(window, &r);
  MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&r), 2);
  return r;
}

HWND child(const ViewPlace& place, const wchar_t* cls, DWORD style, DWORD exStyle = 0) {
  const RECT& r = place.pixels;
  HWND window =
      CreateWindowExW(exStyle, cls, L"", WS_CHILD | WS_VISIBLE | style, r.left, r.top,
                      r.right - r.left, r.bottom - r.top, place.parent,
                      reinterpret_cast<HMENU>(static_cast<INT_PTR>(place.id)), nullptr, nullptr);
  if (window)
    SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(place.font), FALSE);
  return window;
}

class LabelView final : public ControlView {
public:
  LabelView(zv::Label& label, const ViewPlace& place)
      : ControlView(label, child(place, L"STATIC", styleOf(label))), label_(label) {
    start();
  }

private:
  static DWORD styleOf(const zv::Label& label) {
    const DWORD align = label.Alignment() == zv::Label::RightJustify ? SS_RIGHT
                        : label.Alignment() == zv::Label::Center     ? SS_CENTER
                                                                     : SS_LEFT;
    return align | SS_NOPREFIX | (label.BorderStyle() == 1 ? WS_BORDER : 0);
  }
  void sync() override {
    ControlView::sync();
    if (label_.Alignment() != zv::Label::RightJustify || label_.BorderStyle() != 0)
      return showText(label_.Caption());
    // A prompt's trailing blanks show nothing, but would wrap its last word
    // when it stands at the page's edge and cannot grow further.
    std::string caption = label_.Caption();
    caption.erase(caption.find_last_not_of(' ') + 1);
    showText(caption);
    fitPrompt(caption);
  }
  // The twips were laid out for a narrower font: a prompt grows to its left,
  // towards the space before it, rather than wrapping out of sight.
  void fitPrompt(const std::string& caption) {
    const int need = textWidth(window_, caption) + 2;
    const RECT r = placeInParent(window_);
    if (need > r.right - r.left) {
      const LONG left = std::max(0L, r.right - need);
      SetWindowPos(window_, nullptr, left, r.top, r.right - left, r.bottom - r.top,
                   SWP_NOZORDER | SWP_NOACTIVATE);
    }
  }
  zv::Label& label_;
};

class FrameView final : public ControlView {
public:
  FrameView(zv::Frame& frame, const ViewPlace& place)
      : ControlView(frame, child(place, L"BUTTON", BS_GROUPBOX)), frame_(frame) {
    start();
  }

private:
  void sync() override {
    ControlView::sync();
    showText(frame_.Caption());
  }
  zv::Frame& frame_;
};

class CheckBoxView final : public ControlView {
public:
  CheckBoxView(zv::CheckBox& box, const ViewPlace& place)
      : ControlView(box, child(place, L"BUTTON", BS_CHECKBOX | WS_TABSTOP)), box_(box) {
    start();
  }
  void command(int code) override {
    if (code != BN_CLICKED || syncing_)
      return;
    runUserAction([&] { box_.setValue(box_.Value() == 1 ? 0 : 1); });
    sync();
  }

private:
  void sync() override {
    ControlView::sync();
    showText(box_.Caption());
    fitCaption();
    static const WPARAM states[] = {BST_UNCHECKED, BST_CHECKED, BST_INDETERMINATE};
    const int value = box_.Value();
    SendMessageW(window_, BM_SETCHECK, value >= 0 && value <= 2 ? states[value] : BST_UNCHECKED, 0);
  }
  // The twips were laid out for a narrower font: a check box grows to its
  // right, within its parent, rather than cutting its caption short.
  void fitCaption() {
    const int need = textWidth(window_, box_.Caption()) + GetSystemMetrics(SM_CXMENUCHECK) + 8;
    const RECT r = placeInParent(window_);
    RECT room;
    GetClientRect(GetParent(window_), &room);
    const int width = std::min<int>(need, room.right - r.left);
    if (width > r.right - r.left)
      SetWindowPos(window_, nullptr, 0, 0, width, r.bottom - r.top,
                   SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  }
  zv::CheckBox& box_;
};

class ComboBoxView final : public ControlView {
public:
  ComboBoxView(zv::ComboBox& combo, const ViewPlace& place)
      : ControlView(combo, child(place, L"COMBOBOX", CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP)),
        combo_(combo) {
    // The list drops below the box, room for all eight entries.
    const RECT& r = place.pixels;
    SetWindowPos(window_, nullptr, 0, 0, r.right - r.left, (r.bottom - r.top) * 8,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    start();
  }
  void command(int code) override {
    if (code != CBN_SELCHANGE || syncing_)
      return;
    const int index = static_cast<int>(SendMessageW(window_, CB_GETCURSEL, 0, 0));
    runUserAction([&] { combo_.setListIndex(index); });
    sync();
  }

private:
  void sync() override {
    ControlView::sync();
    syncing_ = true;
    const auto& items = combo_.items();
    bool same = SendMessageW(window_, CB_GETCOUNT, 0, 0) == static_cast<LRESULT>(items.size());
    for (size_t i = 0; same && i < items.size(); ++i) {
      std::vector<wchar_t> buffer(
          static_cast<size_t>(SendMessageW(window_, CB_GETLBTEXTLEN, i, 0)) + 1);
      SendMessageW(window_, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(buffer.data()));
      same = zv::wideFrom1252(items[i]) == buffer.data();
    }
    if (!same) {
      SendMessageW(window_, CB_RESETCONTENT, 0, 0);
      for (const auto& item : items)
        SendMessageW(window_, CB_ADDSTRING, 0,
                     reinterpret_cast<LPARAM>(zv::wideFrom1252(item).c_str()));
    }
    if (SendMessageW(window_, CB_GETCURSEL, 0, 0) != combo_.ListIndex())
      SendMessageW(window_, CB_SETCURSEL, static_cast<WPARAM>(combo_.ListIndex()), 0);
    syncing_ = false;
  }
  zv::ComboBox& combo_;
};

class TextBoxView final : public ControlView {
public:
  TextBoxView(zv::TextBox& box, const ViewPlace& place)
      : ControlView(box, child(place, L"EDIT", ES_AUTOHSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE)),
        box_(box) {
    start();
  }
  void command(int code) override {
    if (code != EN_CHANGE || syncing_)
      return;
    const std::string typed = windowText(window_);
    runUserAction([&] { box_.setText(typed); });
    sync();
  }

private:
  void sync() override {
    ControlView::sync();
    if (windowText(window_) == box_.Text())
      return;
    // A caret at the end stays at the end, as the user goes on typing there.
    DWORD start = 0, end = 0;
    SendMessageW(window_, EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                 reinterpret_cast<LPARAM>(&end));
    const bool atEnd = end >= static_cast<DWORD>(GetWindowTextLengthW(window_));
    showText(box_.Text());
    const int length = GetWindowTextLengthW(window_);
    const DWORD caret = atEnd ? length : std::min<DWORD>(end, length);
    SendMessageW(window_, EM_SETSEL, caret, caret);
  }
  zv::TextBox& box_;
};

class ScrollBarView final : public ControlView {
public:
  ScrollBarView(zv::ScrollBar& bar, const ViewPlace& place)
      : ControlView(bar, child(place, L"SCROLLBAR", SBS_VERT | WS_TABSTOP)), bar_(bar) {
    start();
  }
  void scroll(int request, int position) override {
    runUserAction([&] {
      switch (request) {
      case SB_LINEUP:
        bar_.arrowUp();
        break;
      case SB_LINEDOWN:
        bar_.arrowDown();
        break;
      case SB_PAGEUP:
        bar_.setValue(std::max(bar_.Min(), bar_.Value() - bar_.LargeChange()));
        break;
      case SB_PAGEDOWN:
        bar_.setValue(std::min(bar_.Max(), bar_.Value() + bar_.LargeChange()));
        break;
      case SB_THUMBPOSITION:
        bar_.setValue(position);
        break;
      default:
        break;
      }
    });
    sync();
  }

private:
  void sync() override {
    ControlView::sync();
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_POS | SIF_PAGE;
    info.nMin = bar_.Min();
    info.nMax = bar_.Max();
    info.nPos = bar_.Value();
    SetScrollInfo(window_, SB_CTL, &info, TRUE);
  }
  zv::ScrollBar& bar_;
};

} // namespace

ControlView::ControlView(zv::Control& control, HWND window) : control_(control), window_(window) {}

ControlView::~ControlView() {
  binding_.reset();
  if (window_)
    DestroyWindow(window_);
}

void ControlView::start() {
  binding_ = std::make_unique<ControlBinding>(control_, [this] { sync(); });
  sync();
}

void ControlView::sync() {
  if (!window_)
    return;
  if (static_cast<bool>(IsWindowEnabled(window_)) != control_.Enabled())
    EnableWindow(window_, control_.Enabled());
  if (static_cast<bool>(GetWindowLongW(window_, GWL_STYLE) & WS_VISIBLE) != control_.Visible())
    ShowWindow(window_, control_.Visible() ? SW_SHOWNA : SW_HIDE);
}

void ControlView::showText(const std::string& text) {
  if (windowText(window_) == text)
    return;
  syncing_ = true;
  SetWindowTextW(window_, zv::wideFrom1252(text).c_str());
  syncing_ = false;
}

std::unique_ptr<ControlView> makeView(zv::Control& control, const ViewPlace& place) {
  if (auto* c = dynamic_cast<zv::Label*>(&control))
    return std::make_unique<LabelView>(*c, place);
  if (auto* c = dynamic_cast<zv::Frame*>(&control))
    return std::make_unique<FrameView>(*c, place);
  if (auto* c = dynamic_cast<zv::CheckBox*>(&control))
    return std::make_unique<CheckBoxView>(*c, place);
  if (auto* c = dynamic_cast<zv::ComboBox*>(&control))
    return std::make_unique<ComboBoxView>(*c, place);
  if (auto* c = dynamic_cast<zv::TextBox*>(&control))
    return std::make_unique<TextBoxView>(*c, place);
  if (auto* c = dynamic_cast<zv::ScrollBar*>(&control))
    return std::make_unique<ScrollBarView>(*c, place);
  return nullptr;
}

} // namespace zvwin
