// Drawing the panel into a device context the container gives: a window's, a
// memory bitmap's or a metafile's, scaled to the bounds it asks for.
#include "ole_control.h"
#include "pwm_object.h"
#include "win32/painter.h"

namespace zvcom {

HRESULT OleControl::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC dc, LPCRECTL bounds,
                         LPCRECTL, BOOL(STDMETHODCALLTYPE*)(ULONG_PTR), ULONG_PTR) {
  if (aspect != DVASPECT_CONTENT)
    return DV_E_DVASPECT;
  if (!dc || !bounds)
    return E_INVALIDARG;
  const HRESULT painted = ensurePainted();
  if (FAILED(painted))
    return painted;
  auto& surface = object_.component().panelSurface();
  if (surface.Width() <= 0 || surface.Height() <= 0)
    return S_OK;
  zvwin::Mapping map;
  map.left = bounds->left;
  map.top = bounds->top;
  map.scaleX = (bounds->right - bounds->left) / static_cast<double>(surface.Width());
  map.scaleY = (bounds->bottom - bounds->top) / static_cast<double>(surface.Height());
  zvwin::paintPanel(dc, map, surface, object_.component().panelControls());
  return S_OK;
}

HRESULT OleControl::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE** colors) {
  if (colors)
    *colors = nullptr;
  return S_FALSE; // no palette of its own
}
HRESULT OleControl::Freeze(DWORD, LONG, void*, DWORD* freeze) {
  if (freeze)
    *freeze = 0;
  return E_NOTIMPL;
}
HRESULT OleControl::Unfreeze(DWORD) {
  return E_NOTIMPL;
}

HRESULT OleControl::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) {
  if (sink)
    sink->AddRef();
  if (viewSink_)
    viewSink_->Release();
  viewSink_ = sink;
  viewAspects_ = aspects;
  viewFlags_ = flags;
  return S_OK;
}

HRESULT OleControl::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) {
  if (aspects)
    *aspects = viewAspects_;
  if (flags)
    *flags = viewFlags_;
  if (sink) {
    *sink = viewSink_;
    if (viewSink_)
      viewSink_->AddRef();
  }
  return S_OK;
}

HRESULT OleControl::GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, LPSIZEL size) {
  return getExtent(aspect, size);
}

} // namespace zvcom
