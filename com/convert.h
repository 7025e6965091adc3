// Values across the COM boundary: BSTR <-> the component's Windows-1252 text,
// VARIANT <-> the platform's Variant, and writing a result back into a
// caller's by-reference argument.
#pragma once

#include <oaidl.h>

#include <string>

#include "platform/variant.h"

namespace zvcom {

std::string fromBstr(BSTR text);
// A new BSTR (nullptr only when memory runs out).
BSTR toBstr(const std::string& text);

// The value a VARIANTARG holds, through one level of reference: a by-reference
// Variant that holds another reference, a null, an object, an error value and
// arrays of more than one dimension are DISP_E_TYPEMISMATCH.
HRESULT fromVariant(const VARIANT& in, zv::Variant& out);
// Fills an empty (cleared) VARIANT.
HRESULT toVariant(const zv::Variant& in, VARIANT& out);

// The VARIANTARG a by-reference argument points to, or the argument itself.
const VARIANT& dereferenced(const VARIANT& arg);

// Stores value in what a by-reference argument points to, converted to the
// type it points to; a by-value argument is left alone.
HRESULT writeBack(VARIANT& arg, const VARIANT& value);

// A VARIANT that clears itself.
struct ScopedVariant {
  VARIANT v;
  ScopedVariant() { VariantInit(&v); }
  ~ScopedVariant() { VariantClear(&v); }
  ScopedVariant(const ScopedVariant&) = delete;
  ScopedVariant& operator=(const ScopedVariant&) = delete;
};

} // namespace zvcom
