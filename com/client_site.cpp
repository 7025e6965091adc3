// IOleObject of PWM: the client site, through which a host offers its
// services. The control's drawing and verbs are not served by this library yet.
#include "pwm_object.h"

namespace zvcom {

HRESULT PwmObject::SetClientSite(IOleClientSite* site) {
  boxes_.setSite(site);
  return S_OK;
}

HRESULT PwmObject::GetClientSite(IOleClientSite** site) {
  if (!site)
    return E_POINTER;
  *site = nullptr;
  return boxes_.site()
             ? boxes_.site()->QueryInterface(IID_IOleClientSite, reinterpret_cast<void**>(site))
             : S_OK;
}

HRESULT PwmObject::SetHostNames(LPCOLESTR, LPCOLESTR) {
  return S_OK;
}
HRESULT PwmObject::Close(DWORD) {
  return S_OK;
}
HRESULT PwmObject::SetMoniker(DWORD, IMoniker*) {
  return E_NOTIMPL;
}
HRESULT PwmObject::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
  if (moniker)
    *moniker = nullptr;
  return E_NOTIMPL;
}
HRESULT PwmObject::InitFromData(IDataObject*, BOOL, DWORD) {
  return E_NOTIMPL;
}
HRESULT PwmObject::GetClipboardData(DWORD, IDataObject** data) {
  if (data)
    *data = nullptr;
  return E_NOTIMPL;
}
HRESULT PwmObject::DoVerb(LONG, LPMSG, IOleClientSite*, LONG, HWND, LPCRECT) {
  return E_NOTIMPL;
}
HRESULT PwmObject::EnumVerbs(IEnumOLEVERB** verbs) {
  if (verbs)
    *verbs = nullptr;
  return E_NOTIMPL;
}
HRESULT PwmObject::Update() {
  return S_OK;
}
HRESULT PwmObject::IsUpToDate() {
  return S_OK;
}
HRESULT PwmObject::GetUserClassID(CLSID* clsid) {
  if (!clsid)
    return E_POINTER;
  *clsid = CLSID_PWM;
  return S_OK;
}
HRESULT PwmObject::GetUserType(DWORD, LPOLESTR* type) {
  if (type)
    *type = nullptr;
  return OLE_S_USEREG;
}
HRESULT PwmObject::SetExtent(DWORD, SIZEL*) {
  return E_NOTIMPL;
}
HRESULT PwmObject::GetExtent(DWORD, SIZEL*) {
  return E_NOTIMPL;
}
HRESULT PwmObject::Advise(IAdviseSink*, DWORD* connection) {
  if (connection)
    *connection = 0;
  return E_NOTIMPL;
}
HRESULT PwmObject::Unadvise(DWORD) {
  return E_NOTIMPL;
}
HRESULT PwmObject::EnumAdvise(IEnumSTATDATA** advise) {
  if (advise)
    *advise = nullptr;
  return E_NOTIMPL;
}
HRESULT PwmObject::GetMiscStatus(DWORD, DWORD* status) {
  if (!status)
    return E_POINTER;
  *status = 0;
  return S_OK;
}
HRESULT PwmObject::SetColorScheme(LOGPALETTE*) {
  return E_NOTIMPL;
}

} // namespace zvcom
