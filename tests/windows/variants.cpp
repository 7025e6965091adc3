#include "variants.h"

#include <cstdio>

namespace zvtest {

Var Var::i2(SHORT x) {
  Var r;
  r.v.vt = VT_I2;
  r.v.iVal = x;
  return r;
}
Var Var::i4(LONG x) {
  Var r;
  r.v.vt = VT_I4;
  r.v.lVal = x;
  return r;
}
Var Var::str(const std::wstring& s) {
  Var r;
  r.v.vt = VT_BSTR;
  r.v.bstrVal = SysAllocStringLen(s.data(), static_cast<UINT>(s.size()));
  return r;
}
Var Var::array(const std::vector<Var>& items, LONG lower) {
  SAFEARRAYBOUND bound{static_cast<ULONG>(items.size()), lower};
  Var r;
  r.v.vt = VT_ARRAY | VT_VARIANT;
  r.v.parray = SafeArrayCreate(VT_VARIANT, 1, &bound);
  for (LONG i = 0; i < static_cast<LONG>(items.size()); ++i) {
    LONG at = lower + i;
    SafeArrayPutElement(r.v.parray, &at, const_cast<VARIANT*>(&items[i].v));
  }
  return r;
}

std::string show(const VARIANT& v) {
  if (v.vt & VT_ARRAY) {
    VARTYPE element = v.vt & VT_TYPEMASK;
    LONG lower = 0, upper = -1;
    SafeArrayGetLBound(v.parray, 1, &lower);
    SafeArrayGetUBound(v.parray, 1, &upper);
    std::string out = "ARRAY(" + std::to_string(element) + ")[" + std::to_string(lower) + ".." +
                      std::to_string(upper) + "]{";
    for (LONG i = lower; i <= upper; ++i) {
      Var item;
      if (element == VT_VARIANT) {
        SafeArrayGetElement(v.parray, &i, &item.v);
      } else {
        item.v.vt = element;
        SafeArrayGetElement(v.parray, &i, &item.v.lVal);
      }
      out += (i > lower ? "," : "") + show(item.v);
    }
    return out + "}";
  }
  switch (v.vt) {
  case VT_EMPTY:
    return "EMPTY";
  case VT_I2:
    return "I2:" + std::to_string(v.iVal);
  case VT_I4:
    return "I4:" + std::to_string(v.lVal);
  case VT_UI1:
    return "UI1:" + std::to_string(v.bVal);
  case VT_BOOL:
    return "BOOL:" + std::to_string(v.boolVal);
  case VT_BSTR: {
    std::string s = "BSTR:'";
    for (UINT i = 0; i < SysStringLen(v.bstrVal); ++i)
      s += v.bstrVal[i] < 128 ? static_cast<char>(v.bstrVal[i]) : '?';
    return s + "'";
  }
  default:
    return "VT" + std::to_string(v.vt);
  }
}

void* createByProgID(REFIID iid) {
  CLSID clsid;
  void* object = nullptr;
  if (FAILED(CLSIDFromProgID(L"Zelvor_AVR_PWM.PWM", &clsid)) ||
      FAILED(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, iid, &object)))
    return nullptr;
  return object;
}

HRESULT callLate(IDispatch* target, const wchar_t* name, WORD flags, std::vector<Var>& args,
                 const std::vector<bool>& refs, VARIANT* result) {
  DISPID id = 0;
  LPOLESTR names[] = {const_cast<LPOLESTR>(name)};
  HRESULT hr = target->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(hr))
    return hr;
  const size_t n = args.size();
  std::vector<VARIANT> passed(n);
  for (size_t i = 0; i < n; ++i) {
    VARIANT& p = passed[n - 1 - i];
    VariantInit(&p);
    if (i < refs.size() && refs[i]) {
      p.vt = VT_BYREF | VT_VARIANT;
      p.pvarVal = &args[i].v;
    } else {
      p = args[i].v; // borrowed: the callee doesn't free by-value arguments
    }
  }
  DISPID put = DISPID_PROPERTYPUT;
  const bool isPut = flags & DISPATCH_PROPERTYPUT;
  DISPPARAMS params{passed.data(), isPut ? &put : nullptr, static_cast<UINT>(n), isPut ? 1u : 0u};
  EXCEPINFO exception{};
  UINT argError = 0;
  hr = target->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &params, result, &exception,
                      &argError);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrHelpFile);
  return hr == DISP_E_EXCEPTION ? exception.scode : hr;
}

} // namespace zvtest
