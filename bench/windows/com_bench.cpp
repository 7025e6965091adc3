// Late-bound against early-bound: SimMacroCall (SetDuty, the panel redrawn
// on the headless canvas) through IDispatch::Invoke as a script engine calls
// it, and through the vtable, in alternating blocks of one run.
// Usage: com_bench.exe <device file, Windows path> [calls per block]
#include <oaidl.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "avr_pwm.h"

namespace {

using Clock = std::chrono::steady_clock;

VARIANT params(SHORT channel, SHORT duty) {
  SAFEARRAYBOUND bound{2, 0};
  VARIANT v;
  VariantInit(&v);
  v.vt = VT_ARRAY | VT_VARIANT;
  v.parray = SafeArrayCreate(VT_VARIANT, 1, &bound);
  SHORT values[2] = {channel, duty};
  for (LONG i = 0; i < 2; ++i) {
    VARIANT item;
    VariantInit(&item);
    item.vt = VT_I2;
    item.iVal = values[i];
    SafeArrayPutElement(v.parray, &i, &item);
  }
  return v;
}

double early(IZelvorComponentV4* host, VARIANT& vParams, int calls) {
  const auto start = Clock::now();
  for (int i = 0; i < calls; ++i) {
    LONG ret = 0, cycles = 0;
    VARIANT affected;
    VariantInit(&affected);
    host->SimMacroCall(2, vParams, &ret, &affected, &cycles);
    VariantClear(&affected);
  }
  return std::chrono::duration<double, std::nano>(Clock::now() - start).count() / calls;
}

// As VBScript passes them: variables as by-reference Variants, the literal 2 an I2.
double late(IDispatch* host, DISPID id, VARIANT& vParams, int calls) {
  const auto start = Clock::now();
  for (int i = 0; i < calls; ++i) {
    VARIANT ret, affected, cycles, args[5];
    VariantInit(&ret);
    VariantInit(&affected);
    VariantInit(&cycles);
    args[4].vt = VT_I2;
    args[4].iVal = 2;
    args[3].vt = VT_BYREF | VT_VARIANT;
    args[3].pvarVal = &vParams;
    args[2].vt = VT_BYREF | VT_VARIANT;
    args[2].pvarVal = &ret;
    args[1].vt = VT_BYREF | VT_VARIANT;
    args[1].pvarVal = &affected;
    args[0].vt = VT_BYREF | VT_VARIANT;
    args[0].pvarVal = &cycles;
    DISPPARAMS dp{args, nullptr, 5, 0};
    const HRESULT hr =
        host->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, &dp, nullptr, nullptr, nullptr);
    if (i == 0 && FAILED(hr))
      std::printf("late call: %08lx\n", static_cast<unsigned long>(hr));
    VariantClear(&affected);
  }
  return std::chrono::duration<double, std::nano>(Clock::now() - start).count() / calls;
}

} // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::printf("usage: com_bench <device file> [calls per block]\n");
    return 2;
  }
  const int calls = argc > 2 ? std::atoi(argv[2]) : 2000;
  CoInitialize(nullptr);
  CLSID clsid;
  IZelvorComponentV4* host = nullptr;
  if (FAILED(CLSIDFromProgID(L"Zelvor_AVR_PWM.PWM", &clsid)) ||
      FAILED(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IZelvorComponentV4,
                              reinterpret_cast<void**>(&host)))) {
    std::printf("the library is not registered\n");
    return 1;
  }
  std::string path = argv[1];
  BSTR device = SysAllocStringLen(std::wstring(path.begin(), path.end()).c_str(),
                                  static_cast<UINT>(path.size()));
  host->put_ZelvorVersion(1024);
  host->put_ZvdFilename(device);
  host->put_ClockSpeed(16000000);
  host->StartSimulation();
  SysFreeString(device);
  VARIANT vParams = params(1, 128);
  DISPID id = 0;
  LPOLESTR name = const_cast<LPOLESTR>(L"SimMacroCall");
  host->GetIDsOfNames(IID_NULL, &name, 1, 0, &id);

  std::vector<double> earlyRuns, lateRuns;
  for (int block = 0; block < 10; ++block) {
    earlyRuns.push_back(early(host, vParams, calls));
    lateRuns.push_back(late(host, id, vParams, calls));
  }
  std::sort(earlyRuns.begin(), earlyRuns.end());
  std::sort(lateRuns.begin(), lateRuns.end());
  const double e = earlyRuns[earlyRuns.size() / 2], l = lateRuns[lateRuns.size() / 2];
  std::printf("SimMacroCall SetDuty, median of 10 blocks of %d calls\n", calls);
  std::printf("  early-bound (vtable)     %10.0f ns/call\n", e);
  std::printf("  late-bound (Invoke)      %10.0f ns/call\n", l);
  std::printf("  late / early             %10.2f (target: at most 2)\n", l / e);
  VariantClear(&vParams);
  host->StopSimulation();
  host->Release();
  CoUninitialize();
  return 0;
}
