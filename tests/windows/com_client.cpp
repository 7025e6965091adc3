// A C++ client of the registered library: the 62 host operations early-bound
// through the widl header's vtable and late-bound through the same pointer's
// IDispatch (both answers must agree, and some are known), hostile arguments
// through Invoke, failures as HRESULT + IErrorInfo, the host's message boxes
// through the client site, and the library's unload once all is released.
// Usage: com_client.exe <folder of the device files, Windows path>
#include <cstdio>
#include <functional>
#include <string>
#include <type_traits>

#include "avr_pwm.h"
#include "variants.h"

using namespace zvtest;

namespace zvtest {
int failures = 0;
void check(bool ok, const std::string& what) {
  std::printf("%s %s\n", ok ? "ok  " : "FAIL", what.c_str());
  failures += !ok;
}
} // namespace zvtest

namespace {

std::string hex(HRESULT hr) {
  char buffer[16];
  std::snprintf(buffer, sizeof buffer, "%08lx", static_cast<unsigned long>(hr));
  return buffer;
}

using V4 = IZelvorComponentV4;
using Args = std::vector<Var>;

// What one call answered: its HRESULT, its result, and its by-reference arguments.
std::string answer(HRESULT hr, const Var& result, const Args& args, const std::vector<bool>& refs) {
  std::string s = hex(hr) + " " + show(result.v);
  for (size_t i = 0; i < args.size(); ++i)
    if (i < refs.size() && refs[i])
      s += " " + show(args[i].v);
  return s;
}

Var asVar(LONG x) {
  return Var::i4(x);
}
Var asVar(BSTR b) { // takes the string over
  Var r;
  r.v.vt = VT_BSTR;
  r.v.bstrVal = b;
  return r;
}

struct Step {
  const wchar_t* name;
  WORD flags;
  Args args;
  std::vector<bool> refs;
  // The early-bound call: fills the result and the by-reference arguments.
  std::function<HRESULT(V4*, Args&, Var&)> early;
  const char* want = nullptr; // the answer, where the test knows it
};

// A getter's out-argument as the late-bound result: a Long, a String or a Variant.
template <class T> HRESULT into(Var& r, const std::function<HRESULT(T*)>& get) {
  if constexpr (std::is_same_v<T, VARIANT>) {
    return get(&r.v);
  } else {
    T x{};
    const HRESULT hr = get(&x);
    if (SUCCEEDED(hr))
      r = asVar(x);
    return hr;
  }
}
template <class T>
Step get(const wchar_t* n, HRESULT (STDMETHODCALLTYPE V4::*m)(T*), const char* want = nullptr) {
  return {n,
          GET,
          {},
          {},
          [m](V4* c, Args&, Var& r) { return into<T>(r, [&](T* x) { return (c->*m)(x); }); },
          want};
}
template <class T>
Step getOf(const wchar_t* n, HRESULT (STDMETHODCALLTYPE V4::*m)(LONG, T*), LONG id,
           const char* want = nullptr) {
  return {
      n,
      GET,
      {Var::i4(id)},
      {},
      [m, id](V4* c, Args&, Var& r) { return into<T>(r, [&](T* x) { return (c->*m)(id, x); }); },
      want};
}
Step putLong(const wchar_t* n, HRESULT (STDMETHODCALLTYPE V4::*m)(LONG), LONG x) {
  return {n, PUT, {Var::i4(x)}, {}, [m, x](V4* c, Args&, Var&) { return (c->*m)(x); }};
}
Step putOf(const wchar_t* n, HRESULT (STDMETHODCALLTYPE V4::*m)(LONG, LONG), LONG id, LONG x) {
  return {n, PUT, {Var::i4(id), Var::i4(x)}, {}, [m, id, x](V4* c, Args&, Var&) {
            return (c->*m)(id, x);
          }};
}
Step putText(const wchar_t* n, HRESULT (STDMETHODCALLTYPE V4::*m)(BSTR), const std::wstring& s) {
  return {
      n, PUT, {Var::str(s)}, {}, [m, s](V4* c, Args& a, Var&) { return (c->*m)(a[0].v.bstrVal); }};
}
Step call(const wchar_t* n, HRESULT (STDMETHODCALLTYPE V4::*m)()) {
  return {n, CALL, {}, {}, [m](V4* c, Args&, Var&) { return (c->*m)(); }};
}
Step callWith(const wchar_t* n, HRESULT (STDMETHODCALLTYPE V4::*m)(LONG), LONG x) {
  return {n, CALL, {Var::i4(x)}, {}, [m, x](V4* c, Args&, Var&) { return (c->*m)(x); }};
}

// The 62 operations in their order, in a sequence that reaches each one's
// interesting answer (the macro table after ZelvorVersion, the device before
// the simulated macros).
std::vector<Step> steps(const std::wstring& device) {
  const Var duty = Var::array({Var::i2(1), Var::i2(128)});
  return {
      putLong(L"ZelvorVersion", &V4::put_ZelvorVersion, 1025),
      putText(L"ZvdFilename", &V4::put_ZvdFilename, device),
      putLong(L"ClockSpeed", &V4::put_ClockSpeed, 16000000),
      get(L"MultipleAllowed", &V4::get_MultipleAllowed, "00000000 I4:0"),
      get(L"MacroNames", &V4::get_MacroNames),
      getOf(L"MacroIsFunction", &V4::get_MacroIsFunction, 2, "00000000 I4:0"),
      getOf(L"MacroParameters", &V4::get_MacroParameters, 2),
      getOf(L"MacroCode", &V4::get_MacroCode, 2),
      get(L"IsSimulating", &V4::get_IsSimulating, "00000000 I4:0"),
      get(L"PinCount", &V4::get_PinCount, "00000000 I4:0"),
      get(L"HasInitialisation", &V4::get_HasInitialisation),
      get(L"HasInterrupts", &V4::get_HasInterrupts),
      get(L"HasExclusiveInts", &V4::get_HasExclusiveInts, "00000000 I4:0"),
      get(L"InitialisationCode", &V4::get_InitialisationCode),
      get(L"InterruptCode", &V4::get_InterruptCode),
      get(L"ExclusiveInterrupts", &V4::get_ExclusiveInterrupts, "00000000 ARRAY(3)[0..-1]{}"),
      getOf(L"PinName", &V4::get_PinName, 0, "00000000 BSTR:'Pin A0'"),
      getOf(L"DesiredPort", &V4::get_DesiredPort, 0, "00000000 I4:0"),
      getOf(L"DesiredPort", &V4::get_DesiredPort, 1, "800a0009 EMPTY"),
      getOf(L"Direction", &V4::get_Direction, 0, "00000000 I4:2"),
      getOf(L"PortMandatory", &V4::get_PortMandatory, 0, "00000000 I4:0"),
      getOf(L"SamePortAsID", &V4::get_SamePortAsID, 0, "00000000 I4:-1"),
      get(L"Description", &V4::get_Description, "00000000 BSTR:'AVR PWM'"),
      getOf(L"DesiredBit", &V4::get_DesiredBit, 0, "00000000 I4:0"),
      getOf(L"BitMandatory", &V4::get_BitMandatory, 0, "00000000 I4:0"),
      getOf(L"Port", &V4::get_Port, 0, "00000000 I4:-1"),
      putOf(L"Port", &V4::put_Port, 0, 1),
      getOf(L"Bit", &V4::get_Bit, 0, "00000000 I4:-1"),
      putOf(L"Bit", &V4::put_Bit, 0, 3),
      get(L"ConnectedOK", &V4::get_ConnectedOK, "00000000 I4:-1"),
      call(L"StartSimulation", &V4::StartSimulation),
      getOf(L"SimIODirection", &V4::get_SimIODirection, 0),
      {L"SimReadPins",
       CALL,
       {Var()},
       {true},
       [](V4* c, Args& a, Var&) { return c->SimReadPins(&a[0].v); }},
      {L"SimWritePins",
       CALL,
       {Var::i4(1)},
       {},
       [](V4* c, Args& a, Var&) { return c->SimWritePins(a[0].v); }},
      {L"SimMacroCall",
       CALL,
       {Var::i4(2), duty, Var::i4(7), Var(), Var::i4(0)},
       {false, false, true, true, true},
       [](V4* c, Args& a, Var&) {
         LONG ret = a[2].v.lVal, cycles = a[4].v.lVal;
         HRESULT hr = c->SimMacroCall(2, a[1].v, &ret, &a[3].v, &cycles);
         a[2] = Var::i4(ret);
         a[4] = Var::i4(cycles);
         return hr;
       }},
      call(L"StopSimulation", &V4::StopSimulation),
      callWith(L"KeyDown", &V4::KeyDown, 1),
      callWith(L"KeyUp", &V4::KeyUp, 1),
      get(L"SupportsKeys", &V4::get_SupportsKeys, "00000000 I4:0"),
      get(L"IsAnalogue", &V4::get_IsAnalogue, "00000000 I4:0"),
      getOf(L"MacroIsPrivate", &V4::get_MacroIsPrivate, 0, "00000000 I4:0"),
      putLong(L"PICAnalogueBits", &V4::put_PICAnalogueBits, 10),
      putText(L"ADCCaptureCode", &V4::put_ADCCaptureCode, L"a"),
      putText(L"ADCReadHighCode", &V4::put_ADCReadHighCode, L"b"),
      putText(L"ADCReadLowCode", &V4::put_ADCReadLowCode, L"c"),
      putText(L"TargetController", &V4::put_TargetController, L"ATmega328P"),
      putText(L"ADCReadIntCode", &V4::put_ADCReadIntCode, L"d"),
      get(L"ComponentVersion", &V4::get_ComponentVersion, "00000000 I4:1024"),
      {L"GeneralMethod",
       CALL,
       {Var::i4(1), Var::i2(7)},
       {false, true},
       [](V4* c, Args& a, Var&) { return c->GeneralMethod(1, &a[1].v); }},
      {L"GeneralPut",
       PUT,
       {Var::i4(1), Var::i2(7)},
       {false, true},
       [](V4* c, Args& a, Var&) { return c->put_GeneralPut(1, &a[1].v); }},
      getOf(L"GeneralGet", &V4::get_GeneralGet, 5, "00000000 I2:0"),
      get(L"VNodeCount", &V4::get_VNodeCount, "00000000 I4:0"),
      getOf(L"VNodeProtocol", &V4::get_VNodeProtocol, 3, "00000000 I4:0"),
      getOf(L"VNodeName", &V4::get_VNodeName, 3, "00000000 BSTR:''"),
      {L"VNodeMsgRead",
       GET,
       {Var::i4(1), Var::i4(5)},
       {false, true},
       [](V4* c, Args& a, Var& r) {
         LONG size = a[1].v.lVal;
         HRESULT hr = c->get_VNodeMsgRead(1, &size, &r.v);
         a[1] = Var::i4(size);
         return hr;
       },
       "00000000 ARRAY(17)[0..0]{UI1:0} I4:0"},
      {L"VNodeMsgWrite",
       PUT,
       {Var::i4(1), Var::i4(2), Var::str(L"keep")},
       {false, false, true},
       [](V4* c, Args& a, Var&) { return c->put_VNodeMsgWrite(1, 2, &a[2].v); },
       "00000000 EMPTY BSTR:'keep'"},
      {L"MacroCodeOverride",
       CALL,
       {Var::str(L"x=%b;")},
       {true},
       [](V4* c, Args& a, Var&) { return c->MacroCodeOverride(&a[0].v.bstrVal); },
       "00000000 EMPTY BSTR:'x=1;'"},
      get(L"CodeFilename", &V4::get_CodeFilename),
      get(L"DefinesCode", &V4::get_DefinesCode),
      getOf(L"ReadCustomImages", &V4::get_ReadCustomImages, 3, "00000000 BSTR:''"),
      {L"WriteCustomImages",
       PUT,
       {Var::i4(3), Var::str(L"f")},
       {},
       [](V4* c, Args& a, Var&) { return c->put_WriteCustomImages(3, a[1].v.bstrVal); }},
      {L"SimMacroCall2",
       CALL,
       {Var::i4(2), duty, Var::i2(9), Var(), Var::i4(0)},
       {false, false, true, true, true},
       [](V4* c, Args& a, Var&) {
         LONG cycles = a[4].v.lVal;
         HRESULT hr = c->SimMacroCall2(2, a[1].v, &a[2].v, &a[3].v, &cycles);
         a[4] = Var::i4(cycles);
         return hr;
       }},
      call(L"Refresh", &V4::Refresh),
  };
}

void earlyAgainstLate(const std::wstring& device) {
  V4* early = create<V4>(IID_IZelvorComponentV4);
  V4* late = create<V4>(IID_IZelvorComponentV4);
  check(early && late, "CoCreateInstance by ProgID, asking for IZelvorComponentV4");
  if (!early || !late)
    return;
  for (Step& step : steps(device)) {
    Args earlyArgs = step.args, lateArgs = step.args;
    Var earlyResult, lateResult;
    const HRESULT earlyHr = step.early(early, earlyArgs, earlyResult);
    const HRESULT lateHr =
        callLate(late, step.name, step.flags, lateArgs, step.refs, &lateResult.v);
    const std::string e = answer(earlyHr, earlyResult, earlyArgs, step.refs);
    const std::string l = answer(lateHr, lateResult, lateArgs, step.refs);
    std::string name(step.name, step.name + wcslen(step.name));
    std::string alike = name;
    alike.append(" early and late alike: ").append(e.substr(0, 80));
    if (e != l)
      alike.append(" | late ").append(l.substr(0, 80));
    check(e == l, alike);
    if (step.want)
      check(e == step.want, name + " answers " + step.want);
  }
  early->Release();
  late->Release();
}

} // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::printf("usage: com_client <devices folder>\n");
    return 2;
  }
  CoInitialize(nullptr);
  std::string folder = argv[1];
  std::wstring device(folder.begin(), folder.end());
  earlyAgainstLate(device + L"\\ATmega328P.zvd");
  hostileArguments();
  failuresAndServices();
  unloads();
  CoUninitialize();
  std::printf("failures: %d\n", failures);
  return failures == 0 ? 0 : 1;
}
