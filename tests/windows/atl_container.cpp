// A container that knows nothing of this project: the system's ATL control
// host. A window of its class, named by the control's ProgID, creates the
// control, sites it and activates it in place; the test looks at what came of
// it through the host's own functions and the window tree, and takes a picture.
// Usage: atl_container.exe <folder for the pictures>  (a Windows path)
#include <cstdio>
#include <string>

#include <ocidl.h>
#include <shellapi.h>

#include "avr_pwm.h"
#include "container_test.h"
#include "zelvor_v4.h"

using namespace zvtest;

namespace {

using AxWinInit = BOOL(WINAPI*)();
using AxGetControl = HRESULT(WINAPI*)(HWND, IUnknown**);

template <class F> F exported(HMODULE module, const char* name) {
  return module ? reinterpret_cast<F>(reinterpret_cast<void*>(GetProcAddress(module, name)))
                : nullptr;
}

void testHost(HWND frame, AxGetControl getControl, const std::wstring& pictures) {
  HWND host = CreateWindowW(L"AtlAxWin", L"Zelvor_AVR_PWM.PWM", WS_CHILD | WS_VISIBLE, 0, 0, 260,
                            300, frame, nullptr, GetModuleHandleW(nullptr), nullptr);
  check(host != nullptr, "a window of the host's class");
  pump(500);
  IUnknown* control = nullptr;
  check(host && getControl(host, &control) == S_OK && control, "the host made the control");
  if (!control)
    return;
  _PWM* pwm = as<_PWM>(control, IID__PWM);
  IZelvorComponentV4* v4 = as<IZelvorComponentV4>(control, IID_IZelvorComponentV4);
  SHORT pr2 = 0;
  check(pwm && v4 && pwm->get_Pr2(&pr2) == S_OK && pr2 == 255,
        "it answers _PWM and IZelvorComponentV4, newly initialised");
  IOleInPlaceObject* inPlace = as<IOleInPlaceObject>(control, IID_IOleInPlaceObject);
  HWND panel = nullptr;
  check(inPlace && inPlace->GetWindow(&panel) == S_OK && panel &&
            GetWindow(host, GW_CHILD) == panel && IsWindowVisible(panel),
        "it is active in place: its window is the host window's visible child");
  const Picture shown(frame);
  check(shown.count(0x00c000) > 1000, "the panel's green canvas shows in the host");
  check(shown.save(pictures + L"\\control-in-atl-host.bmp"), "a picture of the host window");
  DestroyWindow(host);
  pump(100);
  check(inPlace && inPlace->GetWindow(&panel) == E_FAIL && !IsWindow(panel),
        "the host's window gone, the control is no longer in place");
  for (IUnknown* face : {static_cast<IUnknown*>(inPlace), static_cast<IUnknown*>(v4),
                         static_cast<IUnknown*>(pwm), control})
    if (face)
      face->Release();
}

} // namespace

int main() {
  int argc = 0;
  wchar_t** argv = CommandLineToArgvW(GetCommandLineW(), &argc);
  if (argc < 2) {
    std::printf("usage: atl_container.exe PICTURE_FOLDER\n");
    return 2;
  }
  OleInitialize(nullptr);
  HMODULE atl = LoadLibraryW(L"atl.dll");
  auto init = exported<AxWinInit>(atl, "AtlAxWinInit");
  auto getControl = exported<AxGetControl>(atl, "AtlAxGetControl");
  check(init && getControl && init(), "atl.dll and its window class");
  if (init && getControl) {
    HWND frame = topWindow(L"ATL host", {360, 40, 640, 380});
    testHost(frame, getControl, argv[1]);
    DestroyWindow(frame);
  }
  OleUninitialize();
  std::printf("%d failure(s)\n", failures);
  return failures ? 1 : 0;
}
