// The diagnostic interfaces of a PWM object (idl/diagnostics.idl): not part
// of the component's contract; a reference host and tests drive the
// container's calls, inspection and the property page through them. Each
// call runs like the object's other calls: with its message boxes, ending as
// an HRESULT.
#pragma once

#include <oaidl.h>

namespace zvcom {

class PwmObject;

// The QueryInterface hook of PwmObject: for IZelvorDiagnostics answers a new
// face of object (S_OK), for any other iid E_NOINTERFACE.
HRESULT queryDiagnostics(PwmObject& object, REFIID iid, void** out);

} // namespace zvcom
