#include "control_registration.h"

#include <olectl.h>

#include <string>

#include "property_page.h"
#include "type_info.h"

namespace zvcom {

namespace {

std::wstring text(REFGUID guid) {
  wchar_t buffer[40];
  StringFromGUID2(guid, buffer, 40);
  return buffer;
}

bool setValue(const std::wstring& key, const wchar_t* name, const std::wstring& value) {
  HKEY handle = nullptr;
  if (RegCreateKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &handle,
                      nullptr) != ERROR_SUCCESS)
    return false;
  const LONG result =
      RegSetValueExW(handle, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                     static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
  RegCloseKey(handle);
  return result == ERROR_SUCCESS;
}

} // namespace

bool registerControl(REFCLSID clsid) {
  const std::wstring control = L"CLSID\\" + text(clsid);
  const std::wstring page = L"CLSID\\" + text(CLSID_PwmPropertyPage);
  // Recompose on resize, can't link inside, inside-out, activate when visible,
  // site first: what GetMiscStatus answers.
  const std::wstring misc =
      std::to_wstring(OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE | OLEMISC_INSIDEOUT |
                      OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_SETCLIENTSITEFIRST);
  return setValue(control + L"\\Control", nullptr, L"") &&
         setValue(control + L"\\MiscStatus", nullptr, L"0") &&
         setValue(control + L"\\MiscStatus\\1", nullptr, misc) &&
         setValue(page, nullptr, L"Zelvor AVR PWM property page") &&
         setValue(page + L"\\InprocServer32", nullptr, modulePath()) &&
         setValue(page + L"\\InprocServer32", L"ThreadingModel", L"Apartment");
}

void unregisterPropertyPage() {
  RegDeleteTreeW(HKEY_CLASSES_ROOT, (L"CLSID\\" + text(CLSID_PwmPropertyPage)).c_str());
}

} // namespace zvcom
