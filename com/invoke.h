// Late binding as script engines use it: IDispatch::Invoke on a dual
// interface of ours, calling the same vtable entry an early-bound client
// calls. Arguments arrive by value or as by-reference Variants; each is
// converted to its parameter's type by the platform's conversions, and in/out
// results are written back into the caller's variables.
#pragma once

#include <oaidl.h>

#include "type_info.h"

namespace zvcom {

// GetTypeInfo, GetIDsOfNames and Invoke of the dual interface iid of ours;
// instance: the interface pointer whose vtable its members describe.
HRESULT typeInfoFor(REFIID iid, UINT index, ITypeInfo** info);
HRESULT idsOfNames(REFIID iid, LPOLESTR* names, UINT count, DISPID* ids);
HRESULT invoke(REFIID iid, void* instance, REFIID riid, DISPID id, WORD flags, DISPPARAMS* params,
               VARIANT* result, EXCEPINFO* exception, UINT* argError);

// The IDispatch half of the dual interface Interface (kIid), for the class
// that implements the rest.
template <class Interface, const IID& kIid> class Dual : public Interface {
public:
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (!count)
      return E_POINTER;
    *count = 1;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** info) override {
    return typeInfoFor(kIid, index, info);
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) override {
    return idsOfNames(kIid, names, count, ids);
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID riid, LCID, WORD flags, DISPPARAMS* params,
                                   VARIANT* result, EXCEPINFO* exception, UINT* argError) override {
    return invoke(kIid, static_cast<Interface*>(this), riid, id, flags, params, result, exception,
                  argError);
  }
};

} // namespace zvcom
