// Late binding as script engines use it: IDispatch::Invoke on a dual
// interface of ours, calling the same vtable entry an early-bound client
// calls. Arguments arrive by value or as by-reference Variants; each is
// converted to its parameter's type by the platform's conversions, and in/out
// results are written back into the caller's variables.
#pragma once

#include <oaidl.h>

#include "type_info.h"

namespace zvcom {

// instance: the interface pointer whose vtable the members describe.
HRESULT invoke(const InterfaceInfo& info, void* instance, DISPID id, WORD flags, DISPPARAMS* params,
               VARIANT* result, EXCEPINFO* exception, UINT* argError);

// GetTypeInfoCount, GetTypeInfo and GetIDsOfNames of a dual interface of ours.
HRESULT typeInfoFor(REFIID iid, UINT index, ITypeInfo** info);
HRESULT idsOfNames(REFIID iid, LPOLESTR* names, UINT count, DISPID* ids);

} // namespace zvcom
