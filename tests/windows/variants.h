// Test helpers for COM clients: an owning VARIANT, its printed form, the
// object made by its ProgID, and a late-bound call by name.
#pragma once

#include <oaidl.h>

#include <string>
#include <vector>

namespace zvtest {

struct Var {
  VARIANT v;
  Var() { VariantInit(&v); }
  Var(const Var& o) : Var() { VariantCopy(&v, const_cast<VARIANT*>(&o.v)); }
  Var& operator=(const Var& o) {
    VariantCopy(&v, const_cast<VARIANT*>(&o.v));
    return *this;
  }
  ~Var() { VariantClear(&v); }
  static Var i2(SHORT x);
  static Var i4(LONG x);
  static Var str(const std::wstring& s);
  // A one-dimensional array of Variants with the given lower bound.
  static Var array(const std::vector<Var>& items, LONG lower = 0);
};

// "I4:5", "BSTR:'text'", "EMPTY", "ARRAY(UI1)[0..0]{UI1:0}", ...
std::string show(const VARIANT& v);

constexpr WORD GET = DISPATCH_PROPERTYGET, PUT = DISPATCH_PROPERTYPUT, CALL = DISPATCH_METHOD;

// A new object of the registered ProgID, asked for the given interface; null when it fails.
void* createByProgID(REFIID iid);
template <class I> I* create(REFIID iid) {
  return static_cast<I*>(createByProgID(iid));
}

// Calls name through IDispatch. Arguments are given in order; those marked in
// refs go as by-reference Variants, so results come back into args. A failure
// reported through EXCEPINFO answers its scode.
HRESULT callLate(IDispatch* target, const wchar_t* name, WORD flags, std::vector<Var>& args,
                 const std::vector<bool>& refs, VARIANT* result);

// Prints one verdict; failures counts the failed ones.
void check(bool ok, const std::string& what);
extern int failures;

// The parts of the client in hostile.cpp.
void hostileArguments();
void failuresAndServices();
void unloads();

} // namespace zvtest
