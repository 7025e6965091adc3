#include "type_info.h"

#include <map>
#include <memory>

#include "avr_pwm.h"

namespace zvcom {

namespace {

struct Cached {
  ITypeLib* library = nullptr;
  InterfaceInfo info;
};

std::map<GUID, std::unique_ptr<Cached>, bool (*)(const GUID&, const GUID&)>& cache() {
  static std::map<GUID, std::unique_ptr<Cached>, bool (*)(const GUID&, const GUID&)> entries(
      [](const GUID& a, const GUID& b) { return memcmp(&a, &b, sizeof(GUID)) < 0; });
  return entries;
}

Parameter parameterOf(const ELEMDESC& element) {
  Parameter p;
  const TYPEDESC* type = &element.tdesc;
  if (type->vt == VT_PTR) {
    p.byRef = true;
    type = type->lptdesc;
  }
  p.vt = type->vt;
  p.retval = element.paramdesc.wParamFlags & PARAMFLAG_FRETVAL;
  return p;
}

// The members of the interface half of a dual interface, in vtable order.
HRESULT describe(ITypeInfo* dispatchInfo, std::vector<Member>& members) {
  HREFTYPE href = 0;
  ITypeInfo* vtableInfo = nullptr;
  HRESULT hr = dispatchInfo->GetRefTypeOfImplType(-1, &href);
  if (SUCCEEDED(hr))
    hr = dispatchInfo->GetRefTypeInfo(href, &vtableInfo);
  if (FAILED(hr))
    return hr;
  TYPEATTR* attributes = nullptr;
  if (SUCCEEDED(hr = vtableInfo->GetTypeAttr(&attributes))) {
    for (WORD i = 0; i < attributes->cFuncs; ++i) {
      FUNCDESC* function = nullptr;
      if (FAILED(hr = vtableInfo->GetFuncDesc(i, &function)))
        break;
      Member m;
      m.id = function->memid;
      m.kind = function->invkind;
      m.vtableOffset = static_cast<ULONG_PTR>(function->oVft);
      for (SHORT p = 0; p < function->cParams; ++p)
        m.params.push_back(parameterOf(function->lprgelemdescParam[p]));
      members.push_back(std::move(m));
      vtableInfo->ReleaseFuncDesc(function);
    }
    vtableInfo->ReleaseTypeAttr(attributes);
  }
  vtableInfo->Release();
  return hr;
}

} // namespace

std::wstring modulePath() {
  HMODULE module = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                         GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     reinterpret_cast<LPCWSTR>(&modulePath), &module);
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD n = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
    if (n < path.size()) {
      path.resize(n);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

HRESULT loadTypeLibrary(TypeLibrary which, ITypeLib** library, bool registerIt) {
  const std::wstring path = modulePath() + L"\\" + std::to_wstring(static_cast<int>(which));
  return LoadTypeLibEx(path.c_str(), registerIt ? REGKIND_REGISTER : REGKIND_NONE, library);
}

const Member* InterfaceInfo::find(DISPID id, WORD flags) const {
  const Member* getter = nullptr;
  for (const Member& m : members) {
    if (m.id != id)
      continue;
    if (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) {
      if (m.kind == INVOKE_PROPERTYPUT || m.kind == INVOKE_PROPERTYPUTREF)
        return &m;
    } else if (m.kind == INVOKE_FUNC && (flags & DISPATCH_METHOD)) {
      return &m;
    } else if (m.kind == INVOKE_PROPERTYGET) {
      getter = &m; // a property may be read as a method with no arguments
    }
  }
  return getter;
}

const InterfaceInfo* interfaceInfo(REFIID iid) {
  auto& entries = cache();
  if (auto found = entries.find(iid); found != entries.end())
    return &found->second->info;
  auto entry = std::make_unique<Cached>();
  const TypeLibrary which =
      IsEqualIID(iid, IID_IZelvorComponentV4) ? TypeLibrary::Host : TypeLibrary::Component;
  if (FAILED(loadTypeLibrary(which, &entry->library)))
    return nullptr;
  if (FAILED(entry->library->GetTypeInfoOfGuid(iid, &entry->info.dispatchInfo)) ||
      FAILED(describe(entry->info.dispatchInfo, entry->info.members))) {
    if (entry->info.dispatchInfo)
      entry->info.dispatchInfo->Release();
    entry->library->Release();
    return nullptr;
  }
  return &entries.emplace(iid, std::move(entry)).first->second->info;
}

void releaseTypeInfo() {
  for (auto& [iid, entry] : cache()) {
    entry->info.dispatchInfo->Release();
    entry->library->Release();
  }
  cache().clear();
}

} // namespace zvcom
