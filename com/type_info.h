// The library's two embedded type libraries (resource 1: the component's,
// resource 2: the host interface's) and, per dual interface, the table of its
// members that late binding dispatches on. Loaded once, kept until the library
// may unload.
#pragma once

#include <oaidl.h>

#include <string>
#include <vector>

namespace zvcom {

enum class TypeLibrary { Component = 1, Host = 2 };

// The full path of this library's file.
std::wstring modulePath();

struct Parameter {
  VARTYPE vt = VT_EMPTY; // the value's type; for a pointer, what it points to
  bool byRef = false;    // [in, out] or [out, retval]
  bool retval = false;
};

struct Member {
  MEMBERID id = DISPID_UNKNOWN;
  INVOKEKIND kind = INVOKE_FUNC;
  ULONG_PTR vtableOffset = 0;
  std::vector<Parameter> params;
  size_t positional() const { return params.size() - (!params.empty() && params.back().retval); }
};

struct InterfaceInfo {
  ITypeInfo* dispatchInfo = nullptr; // what GetTypeInfo hands out
  std::vector<Member> members;
  // The member that a call with these DISPATCH_ flags reaches, or nullptr.
  const Member* find(DISPID id, WORD flags) const;
};

// The description of a dual interface of ours, or nullptr when its library
// can't be loaded.
const InterfaceInfo* interfaceInfo(REFIID iid);

// A type library of ours, loaded from this file (the caller releases it).
HRESULT loadTypeLibrary(TypeLibrary which, ITypeLib** library, bool registerIt = false);

// Lets go of what interfaceInfo loaded.
void releaseTypeInfo();

} // namespace zvcom
