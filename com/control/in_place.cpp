// In-place activation: the panel as a child window of the container's window,
// at the place the container gives.
#include "ole_control.h"
#include "pwm_object.h"

namespace zvcom {

HRESULT OleControl::activate(IOleClientSite* site, HWND, LPCRECT place) {
  if (window_) {
    ShowWindow(window_->handle(), SW_SHOWNA);
    return S_OK;
  }
  if (!site)
    return E_INVALIDARG;
  IOleInPlaceSite* inPlace = nullptr;
  if (FAILED(site->QueryInterface(IID_IOleInPlaceSite, reinterpret_cast<void**>(&inPlace))))
    return E_NOINTERFACE;
  if (inPlace->CanInPlaceActivate() != S_OK) {
    inPlace->Release();
    return E_FAIL;
  }
  HWND parent = nullptr;
  IOleInPlaceFrame* frame = nullptr;
  IOleInPlaceUIWindow* document = nullptr;
  RECT position{}, clip{};
  OLEINPLACEFRAMEINFO info{};
  info.cb = sizeof info;
  HRESULT hr = inPlace->GetWindow(&parent);
  if (SUCCEEDED(hr))
    hr = inPlace->GetWindowContext(&frame, &document, &position, &clip, &info);
  if (frame)
    frame->Release();
  if (document)
    document->Release();
  if (FAILED(hr)) {
    inPlace->Release();
    return hr;
  }
  if (place)
    position = *place;
  ensurePainted();
  auto& component = object_.component();
  window_ =
      std::make_unique<zvwin::PanelWindow>(component.panelSurface(), component.panelControls());
  if (!window_->create(parent, position.left, position.top)) {
    window_.reset();
    inPlace->Release();
    return E_FAIL;
  }
  inPlaceSite_ = inPlace;
  inPlaceSite_->OnInPlaceActivate();
  site->ShowObject();
  return S_OK;
}

HRESULT OleControl::GetWindow(HWND* window) {
  if (!window)
    return E_POINTER;
  *window = window_ ? window_->handle() : nullptr;
  return window_ ? S_OK : E_FAIL;
}
HRESULT OleControl::ContextSensitiveHelp(BOOL) {
  return E_NOTIMPL;
}

HRESULT OleControl::InPlaceDeactivate() {
  if (!window_)
    return S_OK;
  window_.reset();
  if (inPlaceSite_) {
    inPlaceSite_->OnInPlaceDeactivate();
    inPlaceSite_->Release();
    inPlaceSite_ = nullptr;
  }
  return S_OK;
}

HRESULT OleControl::UIDeactivate() {
  return S_OK;
}

HRESULT OleControl::SetObjectRects(LPCRECT place, LPCRECT) {
  if (!place)
    return E_POINTER;
  // The panel keeps its own size; only its corner follows the container.
  if (window_)
    SetWindowPos(window_->handle(), nullptr, place->left, place->top, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  return S_OK;
}

HRESULT OleControl::ReactivateAndUndo() {
  return INPLACE_E_NOTUNDOABLE;
}
HRESULT OleControl::TranslateAccelerator(LPMSG) {
  return S_FALSE; // the panel takes no keys
}
HRESULT OleControl::OnFrameWindowActivate(BOOL) {
  return S_OK;
}
HRESULT OleControl::OnDocWindowActivate(BOOL) {
  return S_OK;
}
HRESULT OleControl::ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) {
  return S_OK;
}
HRESULT OleControl::EnableModeless(BOOL) {
  return S_OK;
}

} // namespace zvcom
