// IOleObject of PWM: the client site, through which a host offers its
// services, and the OLE control's verbs, extent and advise sinks.
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
  return control_.close();
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
HRESULT PwmObject::DoVerb(LONG verb, LPMSG, IOleClientSite* site, LONG, HWND parent,
                          LPCRECT place) {
  return control_.doVerb(verb, site ? site : static_cast<IOleClientSite*>(boxes_.site()), parent,
                         place);
}
HRESULT PwmObject::EnumVerbs(IEnumOLEVERB** verbs) {
  return OleRegEnumVerbs(CLSID_PWM, verbs);
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
HRESULT PwmObject::SetExtent(DWORD aspect, SIZEL* size) {
  return control_.setExtent(aspect, size);
}
HRESULT PwmObject::GetExtent(DWORD aspect, SIZEL* size) {
  return control_.getExtent(aspect, size);
}
HRESULT PwmObject::Advise(IAdviseSink* sink, DWORD* connection) {
  return control_.advise(sink, connection);
}
HRESULT PwmObject::Unadvise(DWORD connection) {
  return control_.unadvise(connection);
}
HRESULT PwmObject::EnumAdvise(IEnumSTATDATA** advise) {
  return control_.enumAdvise(advise);
}
HRESULT PwmObject::GetMiscStatus(DWORD, DWORD* status) {
  if (!status)
    return E_POINTER;
  *status = kMiscStatus;
  return S_OK;
}
HRESULT PwmObject::SetColorScheme(LOGPALETTE*) {
  return E_NOTIMPL;
}

} // namespace zvcom
