// Hostile arguments through Invoke, failures read through IErrorInfo, the
// host's message boxes through the client site, and the library's unload.
#include <cstdio>

#include "avr_pwm.h"
#include "ole_site.h"
#include "variants.h"

namespace zvtest {

using Args = std::vector<Var>;

namespace {

IDispatch* hostOf(IDispatch* pwm) {
  IDispatch* host = nullptr;
  pwm->QueryInterface(IID_IZelvorComponentV4, reinterpret_cast<void**>(&host));
  return host;
}

Var twoDimensional() {
  SAFEARRAYBOUND bounds[2] = {{2, 0}, {2, 0}};
  Var r;
  r.v.vt = VT_ARRAY | VT_VARIANT;
  r.v.parray = SafeArrayCreate(VT_VARIANT, 2, bounds);
  return r;
}

Var ofType(VARTYPE vt) {
  Var r;
  r.v.vt = vt;
  return r;
}

// One raw Invoke with the arguments as given (rgvarg order: last argument first).
HRESULT rawInvoke(IDispatch* target, DISPID id, WORD flags, std::vector<VARIANT> args,
                  std::vector<DISPID> named = {}, REFIID iid = IID_NULL) {
  DISPPARAMS params{args.data(), named.data(), static_cast<UINT>(args.size()),
                    static_cast<UINT>(named.size())};
  Var result;
  EXCEPINFO exception{};
  UINT argError = 0;
  HRESULT hr = target->Invoke(id, iid, 0, flags, &params, &result.v, &exception, &argError);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrSource);
  return hr;
}

} // namespace

void hostileArguments() {
  IDispatch* pwm = create<IDispatch>(IID_IDispatch);
  IDispatch* host = pwm ? hostOf(pwm) : nullptr;
  check(host != nullptr, "the object and its host interface");
  if (!host)
    return;
  // The macro table and a running simulation, for the macro calls below.
  Args version{Var::i4(1024)}, none;
  callLate(host, L"ZelvorVersion", PUT, version, {}, nullptr);
  callLate(host, L"StartSimulation", CALL, none, {}, nullptr);

  Var inner = Var::i4(5), outer;
  outer.v.vt = VT_BYREF | VT_VARIANT;
  outer.v.pvarVal = &inner.v;
  Var refOfRef;
  refOfRef.v.vt = VT_BYREF | VT_VARIANT;
  refOfRef.v.pvarVal = &outer.v;
  Var nullRef;
  nullRef.v.vt = VT_BYREF | VT_VARIANT;
  Var withNul = Var::str(std::wstring(L"a\0b", 3));
  Var self;
  self.v.vt = VT_DISPATCH;
  self.v.pdispVal = pwm;
  pwm->AddRef();

  struct Case {
    const char* what;
    IDispatch* target;
    const wchar_t* name;
    WORD flags;
    Args args;
    HRESULT want; // S_FALSE: any failure
  };
  const Var nested = Var::array({Var::i2(1), Var::array({Var::i2(1)})});
  const Var duty5 = Var::array({Var::i2(1), Var::i2(128)}, 5);
  // SimMacroCall's five arguments around the given parameters.
  const auto macro = [](const Var& p) {
    return Args{Var::i4(2), p, Var::i4(0), Var(), Var::i4(0)};
  };
  constexpr HRESULT kMismatch = DISP_E_TYPEMISMATCH, kCount = DISP_E_BADPARAMCOUNT;
  constexpr HRESULT kSubscript = static_cast<HRESULT>(0x800A0009);
  const Case cases[] = {
      {"null for a 16-bit property", pwm, L"Pr2", PUT, {ofType(VT_NULL)}, kMismatch},
      {"an object for a 16-bit property", pwm, L"Pr2", PUT, {self}, kMismatch},
      {"an error value for a Long", host, L"MacroCode", GET, {ofType(VT_ERROR)}, kMismatch},
      {"by-reference of by-reference", host, L"PinName", GET, {refOfRef}, kMismatch},
      {"a null reference", host, L"PinName", GET, {nullRef}, kMismatch},
      {"a two-dimensional array", host, L"SimWritePins", CALL, {twoDimensional()}, kMismatch},
      {"a nested array as macro parameters", host, L"SimMacroCall", CALL, macro(nested), S_FALSE},
      {"parameters from lower bound 5", host, L"SimMacroCall", CALL, macro(duty5), kSubscript},
      {"too few arguments", host, L"SimMacroCall", CALL, {Var::i4(2)}, kCount},
      {"too many arguments", pwm, L"Calc_Period_Freq", CALL, {Var::i4(2)}, kCount},
      {"a text that is no number", host, L"MacroCode", GET, {Var::str(L"x")}, kMismatch},
      {"a Long out of range", pwm, L"Pr2", PUT, {Var::i4(70000)}, DISP_E_OVERFLOW},
      {"a numeric text", pwm, L"Pr2", PUT, {Var::str(L" 12 ")}, S_OK},
      {"a text with a NUL inside", pwm, L"Label1", PUT, {withNul}, S_OK},
  };
  for (const Case& c : cases) {
    Args args = c.args;
    const HRESULT hr = callLate(c.target, c.name, c.flags, args, {}, nullptr);
    const bool ok = c.want == S_FALSE ? FAILED(hr) : hr == c.want;
    char line[160];
    std::snprintf(line, sizeof line, "%s: %08lx", c.what, static_cast<unsigned long>(hr));
    check(ok, line);
  }
  Var label;
  callLate(pwm, L"Label1", GET, none, {}, &label.v);
  check(label.v.vt == VT_BSTR && SysStringLen(label.v.bstrVal) == 3 && label.v.bstrVal[1] == 0,
        "a NUL inside a text comes back");

  // A typed by-reference Long gets the in/out result written into it.
  LONG size = 5;
  VARIANT typed[2];
  typed[0].vt = VT_BYREF | VT_I4;
  typed[0].plVal = &size;
  typed[1].vt = VT_I4;
  typed[1].lVal = 1;
  DISPID msgRead = 0;
  LPOLESTR name = const_cast<LPOLESTR>(L"vnodemsgread");
  check(host->GetIDsOfNames(IID_NULL, &name, 1, 0, &msgRead) == S_OK, "names in any case");
  check(rawInvoke(host, msgRead, DISPATCH_PROPERTYGET, {typed[0], typed[1]}) == S_OK && size == 0,
        "a typed by-reference Long is written back");
  name = const_cast<LPOLESTR>(L"NoSuchMember");
  DISPID unknown = 0;
  check(host->GetIDsOfNames(IID_NULL, &name, 1, 0, &unknown) == DISP_E_UNKNOWNNAME, "unknown name");
  check(rawInvoke(host, 999, DISPATCH_METHOD, {}) == DISP_E_MEMBERNOTFOUND, "unknown DISPID");
  check(rawInvoke(host, msgRead, DISPATCH_PROPERTYGET, {typed[0], typed[1]}, {1}) ==
            DISP_E_NONAMEDARGS,
        "named arguments");
  check(rawInvoke(host, msgRead, DISPATCH_PROPERTYGET, {}, {}, IID_IDispatch) ==
            DISP_E_UNKNOWNINTERFACE,
        "an interface other than IID_NULL");
  check(host->Invoke(msgRead, IID_NULL, 0, DISPATCH_PROPERTYGET, nullptr, nullptr, nullptr,
                     nullptr) == E_INVALIDARG,
        "no parameters at all");
  host->Release();
  pwm->Release();
}

void failuresAndServices() {
  IDispatch* pwm = create<IDispatch>(IID_IDispatch);
  IZelvorComponentV4* host = nullptr;
  if (pwm)
    pwm->QueryInterface(IID_IZelvorComponentV4, reinterpret_cast<void**>(&host));
  check(host != nullptr, "early-bound host interface");
  if (!host)
    return;
  LONG port = 0;
  check(host->get_DesiredPort(4, &port) == static_cast<HRESULT>(0x800A0009),
        "a failed status carries its run-time error number");
  IErrorInfo* error = nullptr;
  BSTR description = nullptr;
  if (GetErrorInfo(0, &error) == S_OK) {
    error->GetDescription(&description);
    error->Release();
  }
  check(description && std::wstring(description) == L"Subscript out of range",
        "and IErrorInfo holds its description");
  SysFreeString(description);

  // A host's message boxes, offered through the client site.
  ContainerSite site(nullptr);
  IOleObject* control = nullptr;
  pwm->QueryInterface(IID_IOleObject, reinterpret_cast<void**>(&control));
  check(control && control->SetClientSite(&site) == S_OK, "the client site is taken");
  BSTR file = SysAllocString(L"pic.bmp");
  host->put_WriteCustomImages(3, file);
  SysFreeString(file);
  check(!site.messages.empty() && site.messages.back() == L"id=3  and filename = \r\npic.bmp",
        "a message box goes to the host");
  if (control) {
    control->SetClientSite(nullptr);
    control->Release();
  }
  host->Release();
  pwm->Release();
}

void unloads() {
  HMODULE library = GetModuleHandleW(L"AVR_PWM.ocx");
  using CanUnload = HRESULT(STDAPICALLTYPE*)();
  using GetClass = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
  auto canUnload = reinterpret_cast<CanUnload>(
      reinterpret_cast<void (*)()>(GetProcAddress(library, "DllCanUnloadNow")));
  auto getClass = reinterpret_cast<GetClass>(
      reinterpret_cast<void (*)()>(GetProcAddress(library, "DllGetClassObject")));
  check(canUnload && getClass, "the entry points");
  if (!canUnload || !getClass)
    return;
  check(canUnload() == S_OK, "no object left after the last Release");
  IClassFactory* factory = nullptr;
  check(getClass(CLSID_PWM, IID_IClassFactory, reinterpret_cast<void**>(&factory)) == S_OK,
        "the class factory");
  void* other = nullptr;
  check(getClass(IID_IZelvorComponentV4, IID_IClassFactory, &other) == CLASS_E_CLASSNOTAVAILABLE,
        "no factory for another class");
  factory->LockServer(TRUE);
  check(canUnload() == S_FALSE, "a server lock keeps the library");
  factory->LockServer(FALSE);
  IUnknown* object = nullptr;
  factory->CreateInstance(nullptr, IID_IUnknown, reinterpret_cast<void**>(&object));
  factory->Release();
  check(object && canUnload() == S_FALSE, "a live object keeps the library");
  if (object)
    object->Release();
  check(canUnload() == S_OK, "and its Release lets it go");
}

} // namespace zvtest
