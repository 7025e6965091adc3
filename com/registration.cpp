// Registration: the class with its ProgIDs and in-process server, and both
// type libraries. Unregistration removes exactly that again.
#include <olectl.h>

#include <string>

#include "avr_pwm.h"
#include "com/registry.h"
#include "control/control_registration.h"
#include "type_info.h"

using zvcom::guidText;
using zvcom::setRegistryValue;

namespace {

constexpr wchar_t kProgId[] = L"Zelvor_AVR_PWM.PWM.1";
constexpr wchar_t kVersionIndependentProgId[] = L"Zelvor_AVR_PWM.PWM";
constexpr wchar_t kClassName[] = L"Zelvor AVR PWM component";
constexpr WORD kLibraryMajor = 4, kLibraryMinor = 0;

// The default value of key, empty when there is none.
std::wstring valueOf(const std::wstring& key) {
  wchar_t buffer[128] = {};
  DWORD size = sizeof buffer - sizeof(wchar_t);
  if (RegGetValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, buffer,
                   &size) != ERROR_SUCCESS)
    return {};
  return buffer;
}

// Removes a ProgID only while it still names our class.
void removeProgId(const std::wstring& progId, const std::wstring& clsid) {
  if (valueOf(progId + L"\\CLSID") == clsid)
    RegDeleteTreeW(HKEY_CLASSES_ROOT, progId.c_str());
}

bool registerClass() {
  const std::wstring clsid = guidText(CLSID_PWM);
  const std::wstring key = L"CLSID\\" + clsid;
  return setRegistryValue(key, nullptr, kClassName) &&
         setRegistryValue(key + L"\\InprocServer32", nullptr, zvcom::modulePath()) &&
         setRegistryValue(key + L"\\InprocServer32", L"ThreadingModel", L"Apartment") &&
         setRegistryValue(key + L"\\ProgID", nullptr, kProgId) &&
         setRegistryValue(key + L"\\VersionIndependentProgID", nullptr,
                          kVersionIndependentProgId) &&
         setRegistryValue(key + L"\\TypeLib", nullptr, guidText(LIBID_Zelvor_AVR_PWM)) &&
         setRegistryValue(key + L"\\Version", nullptr, L"4.0") &&
         setRegistryValue(key + L"\\Programmable", nullptr, L"") &&
         setRegistryValue(kProgId, nullptr, kClassName) &&
         setRegistryValue(std::wstring(kProgId) + L"\\CLSID", nullptr, clsid) &&
         setRegistryValue(kVersionIndependentProgId, nullptr, kClassName) &&
         setRegistryValue(std::wstring(kVersionIndependentProgId) + L"\\CLSID", nullptr, clsid) &&
         setRegistryValue(std::wstring(kVersionIndependentProgId) + L"\\CurVer", nullptr, kProgId);
}

HRESULT registerTypeLibraries() {
  // The host's library first: the component's refers to it.
  for (auto which : {zvcom::TypeLibrary::Host, zvcom::TypeLibrary::Component}) {
    ITypeLib* library = nullptr;
    const HRESULT hr = zvcom::loadTypeLibrary(which, &library, true);
    if (FAILED(hr))
      return hr;
    library->Release();
  }
  return S_OK;
}

} // namespace

extern "C" HRESULT STDAPICALLTYPE DllUnregisterServer() {
  const std::wstring clsid = guidText(CLSID_PWM);
  removeProgId(kProgId, clsid);
  removeProgId(kVersionIndependentProgId, clsid);
  RegDeleteTreeW(HKEY_CLASSES_ROOT, (L"CLSID\\" + clsid).c_str());
  zvcom::unregisterPropertyPage();
  UnRegisterTypeLib(LIBID_Zelvor_AVR_PWM, kLibraryMajor, kLibraryMinor, LOCALE_NEUTRAL, SYS_WIN64);
  UnRegisterTypeLib(LIBID_ZelvorCompV4Lib, kLibraryMajor, kLibraryMinor, LOCALE_NEUTRAL, SYS_WIN64);
  return S_OK;
}

extern "C" HRESULT STDAPICALLTYPE DllRegisterServer() {
  if (FAILED(registerTypeLibraries())) {
    DllUnregisterServer();
    return SELFREG_E_TYPELIB;
  }
  if (!registerClass() || !zvcom::registerControl(CLSID_PWM)) {
    DllUnregisterServer();
    return SELFREG_E_CLASS;
  }
  return S_OK;
}
