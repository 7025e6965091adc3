#include "invoke.h"

#include "convert.h"
#include "failure.h"
#include "platform/errors.h"
#include "platform/vbnum.h"

namespace zvcom {

namespace {

constexpr UINT kMaxParameters = 16;

HRESULT conversionFailure(const zv::RuntimeError& e) {
  return e.number() == zv::errOverflow ? DISP_E_OVERFLOW : DISP_E_TYPEMISMATCH;
}

// Fills holder with arg converted to the parameter's type.
HRESULT load(const VARIANT& arg, VARTYPE vt, VARIANT& holder) {
  const VARIANT& value = dereferenced(arg);
  if (vt == VT_BSTR && value.vt == VT_BSTR) {
    holder.vt = VT_BSTR;
    holder.bstrVal = SysAllocStringLen(value.bstrVal, SysStringLen(value.bstrVal));
    return holder.bstrVal || !value.bstrVal ? S_OK : E_OUTOFMEMORY;
  }
  zv::Variant z;
  HRESULT hr = fromVariant(arg, z);
  if (FAILED(hr))
    return hr;
  try {
    switch (vt) {
    case VT_VARIANT:
      return toVariant(z, holder);
    case VT_I2:
      holder.vt = VT_I2;
      holder.iVal = zv::toI2(z);
      return S_OK;
    case VT_I4:
      holder.vt = VT_I4;
      holder.lVal = zv::toI4(z);
      return S_OK;
    case VT_BOOL:
      holder.vt = VT_BOOL;
      holder.boolVal = zv::toBool(z) ? VARIANT_TRUE : VARIANT_FALSE;
      return S_OK;
    case VT_R8:
      holder.vt = VT_R8;
      holder.dblVal = zv::toR8(z);
      return S_OK;
    case VT_BSTR:
      holder.vt = VT_BSTR;
      holder.bstrVal = toBstr(zv::toStr(z));
      return holder.bstrVal ? S_OK : E_OUTOFMEMORY;
    default:
      return DISP_E_TYPEMISMATCH;
    }
  } catch (const zv::RuntimeError& e) {
    return conversionFailure(e);
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  }
}

// Whether a caller's by-reference Variant already holds value: a scalar equal
// to it, whatever its type.
bool holdsAlready(const VARIANT& arg, const VARIANT& value) {
  if (arg.vt != (VT_BYREF | VT_VARIANT) || !arg.pvarVal)
    return false;
  VARIANT& mine = *arg.pvarVal;
  if ((mine.vt | value.vt) & (VT_ARRAY | VT_BYREF))
    return false;
  return VarCmp(&mine, const_cast<VARIANT*>(&value), LOCALE_USER_DEFAULT, 0) == VARCMP_EQ;
}

HRESULT invokeMember(const InterfaceInfo& info, void* instance, DISPID id, WORD flags,
                     DISPPARAMS* params, VARIANT* result, EXCEPINFO* exception, UINT* argError) {
  if (!params)
    return E_INVALIDARG;
  const Member* member = info.find(id, flags);
  if (!member)
    return DISP_E_MEMBERNOTFOUND;
  const bool put = member->kind == INVOKE_PROPERTYPUT || member->kind == INVOKE_PROPERTYPUTREF;
  if (params->cNamedArgs > (put ? 1u : 0u) ||
      (params->cNamedArgs == 1 && params->rgdispidNamedArgs[0] != DISPID_PROPERTYPUT))
    return DISP_E_NONAMEDARGS;
  const UINT count = params->cArgs;
  if (count != member->positional() || member->params.size() > kMaxParameters)
    return DISP_E_BADPARAMCOUNT;

  // One holder per parameter, each a VARIANT of the parameter's type; a
  // by-reference parameter is handed a pointer into its holder.
  const UINT total = static_cast<UINT>(member->params.size());
  struct Holders {
    VARIANT v[kMaxParameters];
    UINT n;
    explicit Holders(UINT count) : n(count) {
      for (UINT i = 0; i < n; ++i)
        VariantInit(&v[i]);
    }
    ~Holders() {
      for (UINT i = 0; i < n; ++i)
        VariantClear(&v[i]);
    }
    VARIANT& operator[](UINT i) { return v[i]; }
  } holders(total);
  bool lent[kMaxParameters] = {};
  VARIANT refs[kMaxParameters];
  VARIANTARG* args[kMaxParameters];
  VARTYPE types[kMaxParameters];
  for (UINT i = 0; i < total; ++i) {
    const Parameter& p = member->params[i];
    VARIANT& holder = holders[i];
    if (p.retval) {
      if (p.vt != VT_VARIANT)
        holder.vt = p.vt;
    } else if (p.vt == VT_VARIANT && !p.byRef) {
      // Lent as it is: the operation reads a by-value Variant (and checks it) without
      // changing it, so no copy is made.
      holder = dereferenced(params->rgvarg[count - 1 - i]);
      lent[i] = true;
    } else if (HRESULT hr = load(params->rgvarg[count - 1 - i], p.vt, holder); FAILED(hr)) {
      if (argError)
        *argError = count - 1 - i;
      return hr;
    }
    if (p.byRef) {
      VariantInit(&refs[i]);
      refs[i].vt = VT_BYREF | p.vt;
      refs[i].byref =
          p.vt == VT_VARIANT ? static_cast<void*>(&holder) : static_cast<void*>(&holder.lVal);
      args[i] = &refs[i];
    } else {
      args[i] = &holder;
    }
    types[i] = p.byRef ? static_cast<VARTYPE>(VT_BYREF | p.vt) : p.vt;
  }

  ScopedVariant returned;
  // The HRESULT comes back as an error value: Wine's DispCallFunc knows no VT_HRESULT.
  HRESULT hr = DispCallFunc(instance, member->vtableOffset, CC_STDCALL, VT_ERROR, total, types,
                            args, &returned.v);
  if (SUCCEEDED(hr))
    hr = returned.v.scode;
  for (UINT i = 0; i < total; ++i)
    if (lent[i])
      VariantInit(&holders[i]);

  // In/out results go back to the caller's variables, after a failure too:
  // what the operation wrote before it failed stays. A variable the failed
  // call left at its value keeps its own type, as in the component's own
  // interface, which leaves the arguments of a failed call alone.
  for (UINT i = 0; i < count; ++i)
    if (member->params[i].byRef) {
      if (FAILED(hr) && holdsAlready(params->rgvarg[count - 1 - i], holders[i]))
        continue;
      const HRESULT written = writeBack(params->rgvarg[count - 1 - i], holders[i]);
      if (FAILED(written) && SUCCEEDED(hr)) {
        if (argError)
          *argError = count - 1 - i;
        return written;
      }
    }
  if (FAILED(hr)) {
    fillException(hr, exception);
    return DISP_E_EXCEPTION;
  }
  if (result && total > count) {
    VariantInit(result);
    *result = holders[total - 1];
    holders[total - 1].vt = VT_EMPTY;
  }
  return S_OK;
}

} // namespace

HRESULT typeInfoFor(REFIID iid, UINT index, ITypeInfo** info) {
  if (!info)
    return E_POINTER;
  *info = nullptr;
  if (index != 0)
    return DISP_E_BADINDEX;
  const InterfaceInfo* described = interfaceInfo(iid);
  if (!described)
    return TYPE_E_CANTLOADLIBRARY;
  described->dispatchInfo->AddRef();
  *info = described->dispatchInfo;
  return S_OK;
}

HRESULT idsOfNames(REFIID iid, LPOLESTR* names, UINT count, DISPID* ids) {
  const InterfaceInfo* described = interfaceInfo(iid);
  if (!described)
    return TYPE_E_CANTLOADLIBRARY;
  return DispGetIDsOfNames(described->dispatchInfo, names, count, ids);
}

HRESULT invoke(REFIID iid, void* instance, REFIID riid, DISPID id, WORD flags, DISPPARAMS* params,
               VARIANT* result, EXCEPINFO* exception, UINT* argError) {
  if (!IsEqualIID(riid, IID_NULL))
    return DISP_E_UNKNOWNINTERFACE;
  const InterfaceInfo* described = interfaceInfo(iid);
  if (!described)
    return TYPE_E_CANTLOADLIBRARY;
  return invokeMember(*described, instance, id, flags, params, result, exception, argError);
}

} // namespace zvcom
