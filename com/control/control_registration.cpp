#include "control_registration.h"

#include <olectl.h>

#include <string>

#include "com/registry.h"
#include "ole_control.h"
#include "property_page.h"
#include "type_info.h"

namespace zvcom {

namespace {} // namespace

bool registerControl(REFCLSID clsid) {
  const std::wstring control = L"CLSID\\" + guidText(clsid);
  const std::wstring page = L"CLSID\\" + guidText(CLSID_PwmPropertyPage);
  const std::wstring misc = std::to_wstring(kMiscStatus);
  return setRegistryValue(control + L"\\Control", nullptr, L"") &&
         setRegistryValue(control + L"\\MiscStatus", nullptr, L"0") &&
         setRegistryValue(control + L"\\MiscStatus\\1", nullptr, misc) &&
         setRegistryValue(page, nullptr, L"Zelvor AVR PWM property page") &&
         setRegistryValue(page + L"\\InprocServer32", nullptr, modulePath()) &&
         setRegistryValue(page + L"\\InprocServer32", L"ThreadingModel", L"Apartment");
}

void unregisterPropertyPage() {
  RegDeleteTreeW(HKEY_CLASSES_ROOT, (L"CLSID\\" + guidText(CLSID_PwmPropertyPage)).c_str());
}

} // namespace zvcom
