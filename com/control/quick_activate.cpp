// Quick activation: a container hands over in one call what it would give
// through the client site, the view's advise sink and the event connection,
// and learns the control's misc and view status.
#include <cstddef>

#include "event_source.h"
#include "ole_control.h"
#include "pwm_object.h"

namespace zvcom {

HRESULT OleControl::QuickActivate(QACONTAINER* container, QACONTROL* control) {
  if (!container || !control)
    return E_POINTER;
  // Older containers pass a shorter structure; the members read here are in all of them.
  if (container->cbSize < offsetof(QACONTAINER, dwAmbientFlags) ||
      control->cbSize < sizeof(QACONTROL))
    return E_INVALIDARG;
  HRESULT hr = object_.SetClientSite(container->pClientSite);
  if (SUCCEEDED(hr) && container->pAdviseSink)
    hr = SetAdvise(DVASPECT_CONTENT, 0, container->pAdviseSink);
  control->dwEventCookie = 0;
  if (SUCCEEDED(hr) && container->pUnkEventSink)
    hr = events_.Advise(container->pUnkEventSink, &control->dwEventCookie);
  control->dwPropNotifyCookie = 0; // no property notifies
  control->dwPointerActivationPolicy = 0;
  control->dwMiscStatus = kMiscStatus;
  // The panel paints every pixel of its bounds with its solid face.
  control->dwViewStatus = VIEWSTATUS_OPAQUE | VIEWSTATUS_SOLIDBKGND;
  return hr;
}

HRESULT OleControl::SetContentExtent(LPSIZEL size) {
  return setExtent(DVASPECT_CONTENT, size);
}

HRESULT OleControl::GetContentExtent(LPSIZEL size) {
  return getExtent(DVASPECT_CONTENT, size);
}

} // namespace zvcom
