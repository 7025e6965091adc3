#include "com_site.h"

#include "com/convert.h"
#include "platform/msgbox.h"

namespace zvhost {

HRESULT ComSite::QueryInterface(REFIID iid, void** out) {
  if (!out)
    return E_POINTER;
  if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IOleClientSite))
    *out = static_cast<IOleClientSite*>(this);
  else if (IsEqualIID(iid, IID_IServiceProvider))
    *out = static_cast<IServiceProvider*>(this);
  else if (IsEqualIID(iid, IID_IZelvorMessageBoxes))
    *out = static_cast<IZelvorMessageBoxes*>(this);
  else {
    *out = nullptr;
    return E_NOINTERFACE;
  }
  AddRef();
  return S_OK;
}

ULONG ComSite::Release() {
  const ULONG left = --references_;
  if (left == 0)
    delete this;
  return left;
}

HRESULT ComSite::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
  if (moniker)
    *moniker = nullptr;
  return E_NOTIMPL;
}

HRESULT ComSite::GetContainer(IOleContainer** container) {
  if (container)
    *container = nullptr;
  return E_NOINTERFACE;
}

HRESULT ComSite::QueryService(REFGUID service, REFIID iid, void** out) {
  if (!out)
    return E_POINTER;
  *out = nullptr;
  if (!IsEqualGUID(service, IID_IZelvorMessageBoxes))
    return E_NOINTERFACE;
  return QueryInterface(iid, out);
}

HRESULT ComSite::Show(BSTR text, BSTR title) {
  (boxes_ ? *boxes_ : zv::defaultMessageBoxes())
      .show(zvcom::fromBstr(text), zvcom::fromBstr(title));
  return S_OK;
}

} // namespace zvhost
