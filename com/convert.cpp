#include "convert.h"

#include <limits>

#include "platform/errors.h"
#include "platform/win/wide_text.h"

namespace zvcom {

namespace {

// Variants hold arrays of Variants; deeper than this is no argument of ours.
constexpr int kMaxNesting = 8;

// The element types a SAFEARRAY of ours holds, both ways.
constexpr struct {
  VARTYPE vt;
  zv::VarType type;
} kElementTypes[] = {
    {VT_I2, zv::VarType::I2},   {VT_I4, zv::VarType::I4},           {VT_R4, zv::VarType::R4},
    {VT_R8, zv::VarType::R8},   {VT_BSTR, zv::VarType::BSTR},       {VT_BOOL, zv::VarType::Bool},
    {VT_UI1, zv::VarType::UI1}, {VT_VARIANT, zv::VarType::Variant},
};

VARTYPE elementVt(zv::VarType t) {
  for (const auto& e : kElementTypes)
    if (e.type == t)
      return e.vt;
  return VT_VARIANT;
}

bool elementType(VARTYPE vt, zv::VarType& t) {
  for (const auto& e : kElementTypes)
    if (e.vt == vt) {
      t = e.type;
      return true;
    }
  return false;
}

zv::Variant wholeOrReal(double v) {
  if (v >= std::numeric_limits<int32_t>::min() && v <= std::numeric_limits<int32_t>::max() &&
      v == static_cast<double>(static_cast<int32_t>(v)))
    return zv::Variant::i4(static_cast<int32_t>(v));
  return zv::Variant::r8(v);
}

HRESULT fromVariantAt(const VARIANT& in, zv::Variant& out, int depth);

HRESULT fromArray(SAFEARRAY* array, VARTYPE vt, zv::Variant& out, int depth) {
  zv::VarType type;
  if (!array || SafeArrayGetDim(array) != 1 || !elementType(vt, type))
    return DISP_E_TYPEMISMATCH;
  LONG lower = 0, upper = -1;
  if (FAILED(SafeArrayGetLBound(array, 1, &lower)) || FAILED(SafeArrayGetUBound(array, 1, &upper)))
    return DISP_E_TYPEMISMATCH;
  zv::SafeArray items(type, lower, upper);
  for (LONG i = lower; i <= upper; ++i) {
    ScopedVariant element;
    HRESULT hr = S_OK;
    if (vt == VT_VARIANT) {
      hr = SafeArrayGetElement(array, &i, &element.v);
    } else {
      element.v.vt = vt;
      hr = SafeArrayGetElement(array, &i, &element.v.lVal);
    }
    if (FAILED(hr))
      return hr == E_OUTOFMEMORY ? hr : DISP_E_TYPEMISMATCH;
    zv::Variant value;
    if (FAILED(hr = fromVariantAt(element.v, value, depth + 1)))
      return hr;
    items.set(i, value);
  }
  out = zv::Variant::array(std::move(items));
  return S_OK;
}

HRESULT fromVariantAt(const VARIANT& arg, zv::Variant& out, int depth) {
  if (depth > kMaxNesting)
    return DISP_E_TYPEMISMATCH;
  if (arg.vt == (VT_BYREF | VT_VARIANT)) {
    if (!arg.pvarVal || (arg.pvarVal->vt & VT_BYREF))
      return DISP_E_TYPEMISMATCH;
    return fromVariantAt(*arg.pvarVal, out, depth);
  }
  const bool byRef = arg.vt & VT_BYREF;
  if (byRef && !arg.byref)
    return DISP_E_TYPEMISMATCH;
  const VARTYPE vt = arg.vt & ~VT_BYREF;
  if (vt & VT_ARRAY) {
    if (vt & (VT_VECTOR | VT_RESERVED))
      return DISP_E_TYPEMISMATCH;
    return fromArray(byRef ? *arg.pparray : arg.parray, vt & VT_TYPEMASK, out, depth);
  }
  switch (vt) {
  case VT_EMPTY:
    out = {};
    return S_OK;
  case VT_I2:
    out = zv::Variant::i2(byRef ? *arg.piVal : arg.iVal);
    return S_OK;
  case VT_I4:
    out = zv::Variant::i4(byRef ? *arg.plVal : arg.lVal);
    return S_OK;
  case VT_INT:
    out = zv::Variant::i4(byRef ? *arg.pintVal : arg.intVal);
    return S_OK;
  case VT_I1:
    out = zv::Variant::i2(byRef ? *arg.pcVal : arg.cVal);
    return S_OK;
  case VT_UI1:
    out = zv::Variant::ui1(byRef ? *arg.pbVal : arg.bVal);
    return S_OK;
  case VT_UI2:
    out = zv::Variant::i4(byRef ? *arg.puiVal : arg.uiVal);
    return S_OK;
  case VT_UI4:
    out = wholeOrReal(byRef ? *arg.pulVal : arg.ulVal);
    return S_OK;
  case VT_UINT:
    out = wholeOrReal(byRef ? *arg.puintVal : arg.uintVal);
    return S_OK;
  case VT_I8:
    out = wholeOrReal(static_cast<double>(byRef ? *arg.pllVal : arg.llVal));
    return S_OK;
  case VT_UI8:
    out = wholeOrReal(static_cast<double>(byRef ? *arg.pullVal : arg.ullVal));
    return S_OK;
  case VT_BOOL:
    out = zv::Variant::boolean((byRef ? *arg.pboolVal : arg.boolVal) != VARIANT_FALSE);
    return S_OK;
  case VT_R4:
    out = zv::Variant::r4(byRef ? *arg.pfltVal : arg.fltVal);
    return S_OK;
  case VT_R8:
  case VT_DATE:
    out = zv::Variant::r8(byRef ? *arg.pdblVal : arg.dblVal);
    return S_OK;
  case VT_CY: {
    double d = 0;
    VarR8FromCy(byRef ? *arg.pcyVal : arg.cyVal, &d);
    out = zv::Variant::r8(d);
    return S_OK;
  }
  case VT_DECIMAL: {
    double d = 0;
    if (FAILED(VarR8FromDec(byRef ? arg.pdecVal : const_cast<DECIMAL*>(&arg.decVal), &d)))
      return DISP_E_OVERFLOW;
    out = zv::Variant::r8(d);
    return S_OK;
  }
  case VT_BSTR:
    out = zv::Variant::str(fromBstr(byRef ? *arg.pbstrVal : arg.bstrVal));
    return S_OK;
  default: // null, objects, error values and the rest
    return DISP_E_TYPEMISMATCH;
  }
}

} // namespace

std::string fromBstr(BSTR text) {
  return text ? zv::narrowTo1252(text, SysStringLen(text)) : std::string();
}

BSTR toBstr(const std::string& text) {
  const std::wstring wide = zv::wideFrom1252(text);
  return SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
}

HRESULT fromVariant(const VARIANT& in, zv::Variant& out) {
  try {
    return fromVariantAt(in, out, 0);
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (const zv::RuntimeError& e) {
    return e.number() == zv::errOverflow ? DISP_E_OVERFLOW : DISP_E_TYPEMISMATCH;
  }
}

HRESULT toVariant(const zv::Variant& in, VARIANT& out) {
  VariantInit(&out);
  if (in.isArray()) {
    const zv::SafeArray& items = in.arr();
    const VARTYPE vt = elementVt(items.elementType());
    SAFEARRAYBOUND bound{static_cast<ULONG>(items.size()), items.lbound()};
    SAFEARRAY* array = SafeArrayCreate(vt, 1, &bound);
    if (!array)
      return E_OUTOFMEMORY;
    for (LONG i = items.lbound(); i <= items.ubound(); ++i) {
      ScopedVariant element;
      HRESULT hr = toVariant(items.at(i), element.v);
      if (SUCCEEDED(hr) && vt != VT_VARIANT)
        hr = VariantChangeType(&element.v, &element.v, 0, vt);
      if (SUCCEEDED(hr))
        hr = SafeArrayPutElement(array, &i,
                                 vt == VT_VARIANT ? static_cast<void*>(&element.v)
                                 : vt == VT_BSTR  ? static_cast<void*>(element.v.bstrVal)
                                                  : static_cast<void*>(&element.v.lVal));
      if (FAILED(hr)) {
        SafeArrayDestroy(array);
        return hr;
      }
    }
    out.vt = VT_ARRAY | vt;
    out.parray = array;
    return S_OK;
  }
  switch (in.type()) {
  case zv::VarType::Empty:
    return S_OK;
  case zv::VarType::I2:
    out.vt = VT_I2;
    out.iVal = in.rawI2();
    return S_OK;
  case zv::VarType::I4:
    out.vt = VT_I4;
    out.lVal = in.rawI4();
    return S_OK;
  case zv::VarType::UI1:
    out.vt = VT_UI1;
    out.bVal = in.rawUI1();
    return S_OK;
  case zv::VarType::Bool:
    out.vt = VT_BOOL;
    out.boolVal = in.rawBool() ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
  case zv::VarType::R4:
    out.vt = VT_R4;
    out.fltVal = in.rawR4();
    return S_OK;
  case zv::VarType::R8:
    out.vt = VT_R8;
    out.dblVal = in.rawR8();
    return S_OK;
  case zv::VarType::BSTR:
    out.bstrVal = toBstr(in.rawStr());
    if (!out.bstrVal)
      return E_OUTOFMEMORY;
    out.vt = VT_BSTR;
    return S_OK;
  default:
    return DISP_E_TYPEMISMATCH;
  }
}

const VARIANT& dereferenced(const VARIANT& arg) {
  return arg.vt == (VT_BYREF | VT_VARIANT) && arg.pvarVal ? *arg.pvarVal : arg;
}

HRESULT writeBack(VARIANT& arg, const VARIANT& value) {
  if (!(arg.vt & VT_BYREF))
    return S_OK;
  if (!arg.byref)
    return DISP_E_TYPEMISMATCH;
  if (arg.vt == (VT_BYREF | VT_VARIANT))
    return VariantCopy(arg.pvarVal, const_cast<VARIANT*>(&value));
  const VARTYPE target = arg.vt & ~VT_BYREF;
  ScopedVariant converted;
  HRESULT hr = VariantChangeType(&converted.v, const_cast<VARIANT*>(&value), 0, target);
  if (FAILED(hr))
    return hr;
  if (target & VT_ARRAY) {
    SafeArrayDestroy(*arg.pparray);
    *arg.pparray = converted.v.parray;
    converted.v.vt = VT_EMPTY;
    return S_OK;
  }
  switch (target) {
  case VT_I2:
    *arg.piVal = converted.v.iVal;
    return S_OK;
  case VT_I4:
    *arg.plVal = converted.v.lVal;
    return S_OK;
  case VT_INT:
    *arg.pintVal = converted.v.intVal;
    return S_OK;
  case VT_UI1:
    *arg.pbVal = converted.v.bVal;
    return S_OK;
  case VT_BOOL:
    *arg.pboolVal = converted.v.boolVal;
    return S_OK;
  case VT_R4:
    *arg.pfltVal = converted.v.fltVal;
    return S_OK;
  case VT_R8:
    *arg.pdblVal = converted.v.dblVal;
    return S_OK;
  case VT_BSTR:
    SysFreeString(*arg.pbstrVal);
    *arg.pbstrVal = converted.v.bstrVal;
    converted.v.vt = VT_EMPTY;
    return S_OK;
  default:
    return DISP_E_TYPEMISMATCH;
  }
}

} // namespace zvcom
