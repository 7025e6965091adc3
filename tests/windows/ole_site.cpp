#include "ole_site.h"

namespace zvtest {

HRESULT ContainerSite::QueryInterface(REFIID iid, void** out) {
  if (!out)
    return E_POINTER;
  if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IOleClientSite))
    *out = static_cast<IOleClientSite*>(this);
  else if (IsEqualIID(iid, IID_IOleWindow) || IsEqualIID(iid, IID_IOleInPlaceSite))
    *out = static_cast<IOleInPlaceSite*>(this);
  else if (IsEqualIID(iid, IID_IServiceProvider))
    *out = static_cast<IServiceProvider*>(this);
  else {
    *out = nullptr;
    return E_NOINTERFACE;
  }
  return S_OK;
}

HRESULT ContainerSite::GetMoniker(DWORD, DWORD, IMoniker** m) {
  if (m)
    *m = nullptr;
  return E_NOTIMPL;
}

HRESULT ContainerSite::GetContainer(IOleContainer** c) {
  if (c)
    *c = nullptr;
  return E_NOINTERFACE;
}

HRESULT ContainerSite::GetWindow(HWND* w) {
  *w = window_;
  return S_OK;
}

HRESULT ContainerSite::GetWindowContext(IOleInPlaceFrame** f, IOleInPlaceUIWindow** d, LPRECT pos,
                                        LPRECT clip, LPOLEINPLACEFRAMEINFO info) {
  *f = nullptr;
  *d = nullptr;
  *pos = place;
  *clip = place;
  info->fMDIApp = FALSE;
  info->hwndFrame = window_;
  info->haccel = nullptr;
  info->cAccelEntries = 0;
  return S_OK;
}

HRESULT ContainerSite::QueryService(REFGUID service, REFIID iid, void** out) {
  if (!out)
    return E_POINTER;
  *out = nullptr;
  if (!IsEqualGUID(service, IID_IZelvorMessageBoxes) || !IsEqualIID(iid, IID_IZelvorMessageBoxes))
    return E_NOINTERFACE;
  *out = static_cast<IZelvorMessageBoxes*>(this);
  return S_OK;
}

Bag::Bag(const Bag& other) {
  for (const auto& [name, value] : other.entries)
    put(name.c_str(), value);
}

Bag::~Bag() {
  for (auto& entry : entries)
    VariantClear(&entry.second);
}

void Bag::put(const wchar_t* name, const VARIANT& value) {
  for (auto& entry : entries)
    if (_wcsicmp(entry.first.c_str(), name) == 0) {
      VariantCopy(&entry.second, const_cast<VARIANT*>(&value));
      return;
    }
  VARIANT copy;
  VariantInit(&copy);
  VariantCopy(&copy, const_cast<VARIANT*>(&value));
  entries.emplace_back(name, copy);
}

HRESULT Bag::QueryInterface(REFIID iid, void** out) {
  if (!out)
    return E_POINTER;
  *out = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IPropertyBag) ? this : nullptr;
  return *out ? S_OK : E_NOINTERFACE;
}

HRESULT Bag::Read(LPCOLESTR name, VARIANT* value, IErrorLog*) {
  for (const auto& entry : entries)
    if (_wcsicmp(entry.first.c_str(), name) == 0) {
      const VARTYPE wanted = value->vt;
      if (wanted == VT_EMPTY)
        return VariantCopy(value, const_cast<VARIANT*>(&entry.second));
      return VariantChangeType(value, const_cast<VARIANT*>(&entry.second), 0, wanted);
    }
  return E_INVALIDARG;
}

HRESULT Bag::Write(LPCOLESTR name, VARIANT* value) {
  put(name, *value);
  return S_OK;
}

std::wstring describe(const Bag& bag) {
  std::wstring text;
  for (const auto& [name, value] : bag.entries) {
    VARIANT shown;
    VariantInit(&shown);
    VariantChangeType(&shown, const_cast<VARIANT*>(&value), VARIANT_ALPHABOOL, VT_BSTR);
    text += name + L":" + std::to_wstring(value.vt) + L"=" +
            (shown.vt == VT_BSTR ? shown.bstrVal : L"?") + L" ";
    VariantClear(&shown);
  }
  return text;
}

} // namespace zvtest
