// A container that knows the control only through the standard OLE
// interfaces: it sites the control in its window, draws it into a memory
// bitmap and a metafile, saves and loads it through a property bag and a
// stream, and opens its property page in the system's property frame, which it
// drives with window messages as a user's keys would.
// Usage: ole_container.exe <device file> <folder for the pictures>  (Windows paths)
#include <cstdio>
#include <functional>
#include <string>

#include <olectl.h>
#include <shellapi.h>

#include "container_test.h"
#include "control_faces.h"
#include "metafile_ops.h"
#include "ole_site.h"
#include "zelvor_v4.h"

using namespace zvtest;

namespace {

std::string narrow(const std::wstring& w) {
  return std::string(w.begin(), w.end());
}

VARIANT params(std::initializer_list<int> values) {
  VARIANT v;
  VariantInit(&v);
  SAFEARRAY* array = SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(values.size()));
  LONG i = 0;
  for (int x : values) {
    VARIANT e;
    VariantInit(&e);
    e.vt = VT_I2;
    e.iVal = static_cast<SHORT>(x);
    SafeArrayPutElement(array, &i, &e);
    ++i;
  }
  v.vt = VT_ARRAY | VT_VARIANT;
  v.parray = array;
  return v;
}

IUnknown* newControl(ContainerSite& site) {
  IUnknown* control = nullptr;
  CoCreateInstance(CLSID_PWM, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                   reinterpret_cast<void**>(&control));
  if (!control)
    return nullptr;
  if (IOleObject* ole = as<IOleObject>(control, IID_IOleObject)) {
    ole->SetClientSite(&site);
    ole->Release();
  }
  return control;
}

// Two channels of the device, channel 1 on at a duty of 64 of 256: the
// waveform of a quarter.
void simulate(IUnknown* control, const std::wstring& device) {
  IZelvorComponentV4* v4 = as<IZelvorComponentV4>(control, IID_IZelvorComponentV4);
  BSTR file = SysAllocString(device.c_str());
  v4->put_ZelvorVersion(1024);
  v4->put_ZvdFilename(file);
  v4->put_ClockSpeed(8000000);
  v4->StartSimulation();
  for (auto call : {std::pair{0, params({1})}, std::pair{2, params({1, 64})}}) {
    LONG ret = 0, cycles = 0;
    VARIANT affected;
    VariantInit(&affected);
    v4->SimMacroCall(call.first, call.second, &ret, &affected, &cycles);
    VariantClear(&call.second);
    VariantClear(&affected);
  }
  SysFreeString(file);
  v4->Release();
}

// Draws the control at 15 twips to the pixel, as the Linux panel is drawn,
// into a memory bitmap (NAME.bmp) and a metafile whose operations are written
// down (NAME-ops.txt); the Linux side compares both with its own. Answers
// the extent.
SIZEL drawForComparison(IUnknown* control, const std::wstring& pictures, const std::wstring& name) {
  IViewObject2* view = as<IViewObject2>(control, IID_IViewObject2);
  SIZEL himetric{};
  check(view && SUCCEEDED(view->GetExtent(DVASPECT_CONTENT, -1, nullptr, &himetric)),
        narrow(name) + ": the extent");
  if (!view)
    return himetric;
  const auto pixels = [](LONG himetric) { return static_cast<int>(himetric * 1440L / 2540 / 15); };
  Picture picture(pixels(himetric.cx), pixels(himetric.cy));
  RECTL bounds{0, 0, picture.width, picture.height};
  check(view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, picture.dc, &bounds, nullptr,
                   nullptr, 0) == S_OK &&
            picture.save(pictures + L"\\" + name + L".bmp"),
        narrow(name) + ": Draw into a memory bitmap");
  HDC meta = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
  check(view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, meta, &bounds, nullptr, nullptr,
                   0) == S_OK,
        narrow(name) + ": Draw into a metafile");
  HENHMETAFILE recorded = CloseEnhMetaFile(meta);
  const std::string ops = metafileOps(recorded).str();
  DeleteEnhMetaFile(recorded);
  FILE* out = _wfopen((pictures + L"\\" + name + L"-ops.txt").c_str(), L"wb");
  check(out && std::fwrite(ops.data(), 1, ops.size(), out) == ops.size() && !ops.empty(),
        narrow(name) + ": the metafile's drawing operations written down");
  if (out)
    std::fclose(out);
  view->Release();
  return himetric;
}

HRESULT saveTo(IUnknown* control, Bag& bag) {
  IPersistPropertyBag* persist = as<IPersistPropertyBag>(control, IID_IPersistPropertyBag);
  const HRESULT hr = persist->Save(&bag, TRUE, TRUE);
  persist->Release();
  return hr;
}
HRESULT loadFrom(IUnknown* control, Bag& bag) {
  IPersistPropertyBag* persist = as<IPersistPropertyBag>(control, IID_IPersistPropertyBag);
  const HRESULT hr = persist->Load(&bag, nullptr);
  persist->Release();
  return hr;
}
std::wstring streamed(IUnknown* control, IStream** into = nullptr) {
  IPersistStreamInit* persist = as<IPersistStreamInit>(control, IID_IPersistStreamInit);
  IStream* stream = nullptr;
  CreateStreamOnHGlobal(nullptr, TRUE, &stream);
  persist->Save(stream, TRUE);
  persist->Release();
  STATSTG stat{};
  stream->Stat(&stat, STATFLAG_NONAME);
  std::wstring bytes(stat.cbSize.QuadPart, L'\0');
  stream->Seek({}, STREAM_SEEK_SET, nullptr);
  for (auto& c : bytes) {
    unsigned char b = 0;
    stream->Read(&b, 1, nullptr);
    c = b;
  }
  stream->Seek({}, STREAM_SEEK_SET, nullptr);
  if (into)
    *into = stream;
  else
    stream->Release();
  return bytes;
}
HRESULT loadStream(IUnknown* control, const std::wstring& bytes) {
  IStream* stream = nullptr;
  CreateStreamOnHGlobal(nullptr, TRUE, &stream);
  for (wchar_t c : bytes) {
    unsigned char b = static_cast<unsigned char>(c);
    stream->Write(&b, 1, nullptr);
  }
  stream->Seek({}, STREAM_SEEK_SET, nullptr);
  IPersistStreamInit* persist = as<IPersistStreamInit>(control, IID_IPersistStreamInit);
  const HRESULT hr = persist->Load(stream);
  persist->Release();
  stream->Release();
  return hr;
}

SHORT pr2Of(IUnknown* control) {
  _PWM* pwm = as<_PWM>(control, IID__PWM);
  SHORT value = -999;
  pwm->get_Pr2(&value);
  pwm->Release();
  return value;
}

void testPersistence(IUnknown* control, ContainerSite& site) {
  _PWM* pwm = as<_PWM>(control, IID__PWM);
  BSTR label = SysAllocString(L"Motor");
  pwm->put_Pr2(300);
  pwm->put_Label1(label);
  SysFreeString(label);
  pwm->Release();
  Bag first, second;
  check(saveTo(control, first) == S_OK, "Save into a property bag");
  const std::wstring saved = describe(first);
  std::printf("     %s\n", narrow(saved).c_str());
  check(saved.rfind(L"Port0:3=-1 Bit0:3=-1 Pr2:2=300 Prescaler:2=1 PWM_No:2=0 "
                    L"ClockSpeed:3=8000000 UseAltPin:11=False HasAltPin:2=",
                    0) == 0 &&
            saved.find(L"Label1:8=Motor Label2:8=CCP2 ShowSim:11=True") != std::wstring::npos,
        "the keys, types and values in their order");
  IUnknown* copy = newControl(site);
  // The clock comes from the host at every load, never from the saved properties.
  IZelvorComponentV4* v4 = as<IZelvorComponentV4>(copy, IID_IZelvorComponentV4);
  v4->put_ClockSpeed(8000000);
  v4->Release();
  check(loadFrom(copy, first) == S_OK && saveTo(copy, second) == S_OK && describe(second) == saved,
        "load into a new control and save again: the same bag");
  const std::wstring bytes = streamed(control);
  check(loadStream(copy, bytes) == S_OK && streamed(copy) == bytes,
        "save to a stream, load, save again: the same bytes");

  // Bad input from a container: the answer, and nothing of the control's lost.
  struct Bad {
    const char* what;
    std::function<HRESULT()> load;
    HRESULT expected;
    SHORT pr2After;
  } bads[] = {
      {"a string in Pr2 is a type mismatch",
       [&] {
         Bag bag(first);
         VARIANT v;
         v.vt = VT_BSTR;
         v.bstrVal = SysAllocString(L"abc");
         bag.put(L"Pr2", v);
         VariantClear(&v);
         return loadFrom(copy, bag);
       },
       static_cast<HRESULT>(0x800A000D), 300},
      {"a 32-bit number in Pr2 overflows",
       [&] {
         Bag bag(first);
         VARIANT v;
         v.vt = VT_I4;
         v.lVal = 70000;
         bag.put(L"Pr2", v);
         return loadFrom(copy, bag);
       },
       static_cast<HRESULT>(0x800A0006), 300},
      {"a stream cut short fails and leaves the control",
       [&] { return loadStream(copy, bytes.substr(0, bytes.size() - 3)); }, STG_E_READFAULT, 300},
      {"a stream of another format fails and leaves the control",
       [&] { return loadStream(copy, L"garbage that is long enough"); }, STG_E_READFAULT, 300},
      {"an empty bag loads the defaults",
       [&] {
         Bag empty;
         return loadFrom(copy, empty);
       },
       S_OK, 255},
  };
  for (const Bad& bad : bads) {
    const HRESULT hr = bad.load();
    check(hr == bad.expected && pr2Of(copy) == bad.pr2After, bad.what);
  }
  check(describe(first) == saved, "the container's bag is as it was saved");
  copy->Release();
}

// The property frame, driven from a timer inside its own modal loop.
struct PageScript {
  IUnknown* control;
  ContainerSite* site;
  std::wstring pictures;
  int step = 0;
  HWND frame = nullptr;
} script;

BOOL CALLBACK findFrame(HWND window, LPARAM) {
  wchar_t title[64] = {};
  GetWindowTextW(window, title, 64);
  if (std::wstring(title).find(L"PWM") != std::wstring::npos && IsWindowVisible(window)) {
    script.frame = window;
    return FALSE;
  }
  return TRUE;
}

HWND findId(HWND parent, int id) {
  for (HWND c = GetWindow(parent, GW_CHILD); c; c = GetWindow(c, GW_HWNDNEXT)) {
    if (GetDlgCtrlID(c) == id)
      return c;
    if (HWND inner = findId(c, id))
      return inner;
  }
  return nullptr;
}

void type(HWND edit, const wchar_t* text) {
  SetFocus(edit);
  SendMessageW(edit, EM_SETSEL, 0, -1);
  for (const wchar_t* c = text; *c; ++c)
    SendMessageW(edit, WM_CHAR, *c, 1);
}

// Whether each right-justified prompt of the page fits its window on one line.
BOOL CALLBACK promptFits(HWND window, LPARAM all) {
  wchar_t name[16] = {}, text[64] = {};
  GetClassNameW(window, name, 16);
  if (_wcsicmp(name, L"Static") != 0 || !(GetWindowLongW(window, GWL_STYLE) & SS_RIGHT))
    return TRUE;
  const int length = GetWindowTextW(window, text, 64);
  HDC dc = GetDC(window);
  SelectObject(dc, reinterpret_cast<HGDIOBJ>(SendMessageW(window, WM_GETFONT, 0, 0)));
  SIZE need{};
  GetTextExtentPoint32W(dc, text, length, &need);
  ReleaseDC(window, dc);
  RECT r;
  GetClientRect(window, &r);
  *reinterpret_cast<bool*>(all) &= need.cx <= r.right;
  return TRUE;
}

void CALLBACK pageStep(HWND, UINT, UINT_PTR timer, DWORD) {
  constexpr int kPr2 = 1010, kClockSource = 1009, kApply = 0x3021;
  if (!script.frame)
    EnumThreadWindows(GetCurrentThreadId(), findFrame, 0);
  HWND edit = script.frame ? findId(script.frame, kPr2) : nullptr;
  HWND combo = script.frame ? findId(script.frame, kClockSource) : nullptr;
  HWND apply = script.frame ? GetDlgItem(script.frame, kApply) : nullptr;
  if (!edit || !combo || !apply) {
    if (++script.step > 50) {
      check(false, "the page's controls in the frame");
      KillTimer(nullptr, timer);
      if (script.frame)
        PostMessageW(script.frame, WM_COMMAND, IDCANCEL, 0);
    }
    return;
  }
  KillTimer(nullptr, timer);
  _PWM* pwm = as<_PWM>(script.control, IID__PWM);
  check(!IsWindowEnabled(apply), "Apply is disabled while nothing is changed");
  bool fit = true;
  EnumChildWindows(script.frame, promptFits, reinterpret_cast<LPARAM>(&fit));
  check(fit, "each prompt keeps to one line");
  type(edit, L"100");
  SetFocus(combo);
  SendMessageW(combo, WM_KEYDOWN, VK_DOWN, 0); // clk / 1 to clk / 8
  SendMessageW(combo, WM_KEYDOWN, VK_DOWN, 0); // to clk / 64
  check(IsWindowEnabled(apply), "typing enables Apply");
  pump(300); // the page shows the typed value and the new clock source
  snapshot(script.frame, script.pictures + L"\\property-page.bmp");
  SendMessageW(apply, BM_CLICK, 0, 0);
  SHORT pr2 = 0, prescaler = 0;
  pwm->get_Pr2(&pr2);
  pwm->get_Prescaler(&prescaler);
  check(pr2 == 100 && prescaler == 64, "Apply sets the control's Pr2 100 and Prescaler 64");
  check(!IsWindowEnabled(apply), "Apply is disabled again");
  type(edit, L"300");
  wchar_t shown[16] = {};
  GetWindowTextW(edit, shown, 16);
  check(script.site->messages.size() == 1 &&
            script.site->messages[0] == L" Invalid Data ...\r\n Data range between 0 and 255" &&
            std::wstring(shown) == L"0",
        "typing 300 shows the range message through the host's service and leaves 0");
  pwm->Release();
  PostMessageW(script.frame, WM_COMMAND, IDCANCEL, 0);
}

void testPage(IUnknown* control, ContainerSite& site, HWND window, const std::wstring& pictures) {
  ISpecifyPropertyPages* specify = as<ISpecifyPropertyPages>(control, IID_ISpecifyPropertyPages);
  CAUUID pages{};
  check(specify && specify->GetPages(&pages) == S_OK && pages.cElems == 1, "one property page");
  script = {control, &site, pictures};
  SetTimer(nullptr, 0, 100, pageStep);
  const HRESULT hr = OleCreatePropertyFrame(window, 0, 0, L"PWM", 1, &control, pages.cElems,
                                            pages.pElems, LOCALE_USER_DEFAULT, 0, nullptr);
  check(hr == S_OK, "the property frame opens and closes");
  CoTaskMemFree(pages.pElems);
  specify->Release();
}

} // namespace

int main() {
  int argc = 0;
  wchar_t** argv = CommandLineToArgvW(GetCommandLineW(), &argc);
  if (argc < 3) {
    std::printf("usage: ole_container.exe DEVICE_FILE PICTURE_FOLDER\n");
    return 2;
  }
  OleInitialize(nullptr);
  HWND window = topWindow(L"Test container", {40, 40, 340, 380});
  {
    ContainerSite site(window);
    IUnknown* control = newControl(site);
    check(control != nullptr, "create and site the control");
    if (!control)
      return 1;
    IPersistPropertyBag* persist = as<IPersistPropertyBag>(control, IID_IPersistPropertyBag);
    check(persist->InitNew() == S_OK, "InitNew");
    persist->Release();
    {
      IUnknown* fresh = newControl(site);
      IPersistPropertyBag* init = as<IPersistPropertyBag>(fresh, IID_IPersistPropertyBag);
      check(init && init->InitNew() == S_OK, "a second control, new");
      if (init)
        init->Release();
      drawForComparison(fresh, argv[2], L"control-new");
      fresh->Release();
    }
    simulate(control, argv[1]);
    const SIZEL extent = drawForComparison(control, argv[2], L"control-draw");
    check(extent.cx == 4419 && extent.cy == 6668,
          "the extent is the panel's 2505 x 3780 twips of two channels");
    IOleObject* ole = as<IOleObject>(control, IID_IOleObject);
    check(ole->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, &site, 0, window, &site.place) == S_OK,
          "in-place activation in the container's window");
    pump(500);
    check(snapshot(window, std::wstring(argv[2]) + L"\\control-in-container.bmp"),
          "a picture of the container's window");
    testPersistence(control, site);
    testEvents(control);
    testQuickActivate(site);
    testPage(control, site, window, argv[2]);
    ole->Close(OLECLOSE_NOSAVE);
    ole->SetClientSite(nullptr);
    ole->Release();
    control->Release();
  }
  DestroyWindow(window);
  OleUninitialize();
  std::printf("%d failure(s)\n", failures);
  return failures ? 1 : 0;
}
