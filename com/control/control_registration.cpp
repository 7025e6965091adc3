#include "control_registration.h"

#include <olectl.h>

#include <string>

#include "com/registry.h"
#include "property_page.h"
#include "type_info.h"

namespace zvcom {

namespace {} // namespace

bool registerControl(REFCLSID clsid) {
  const std::wstring control = L"CLSID\\" + guidText(clsid);
  const std::wstring page = L"CLSID\\" + guidText(CLSID_PwmPropertyPage);
  // Recompose on resize, can't link inside, inside-out, activate when visible,
  // site first: what GetMiscStatus answers.
  const std::wstring misc =
      std::to_wstring(OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE | OLEMISC_INSIDEOUT |
                      OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_SETCLIENTSITEFIRST);
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
