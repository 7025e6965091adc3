// What the registry needs beyond the class itself for the OLE control: the
// control's own keys under its class, and the property page's class.
#pragma once

#include <windows.h>

namespace zvcom {

// Adds the control keys under clsid and registers the page class.
bool registerControl(REFCLSID clsid);
// Removes the page class (the control's keys go with its class).
void unregisterPropertyPage();

} // namespace zvcom
