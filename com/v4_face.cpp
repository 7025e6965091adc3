#include "v4_face.h"

#include "pwm_object.h"

namespace zvcom {

HRESULT V4Face::QueryInterface(REFIID iid, void** out) {
  return outer_.QueryInterface(iid, out);
}
ULONG V4Face::AddRef() {
  return outer_.AddRef();
}
ULONG V4Face::Release() {
  return outer_.Release();
}

zv::ComponentObject& V4Face::c() {
  return outer_.component();
}

template <class Op> HRESULT V4Face::call(Op&& op) {
  return outer_.call(IID_IZelvorComponentV4, std::forward<Op>(op));
}

template <class Op> HRESULT V4Face::longOut(LONG* out, Op&& op) {
  if (!out)
    return E_POINTER;
  int32_t value = 0;
  const HRESULT hr = call([&] { return op(value); });
  *out = value;
  return hr;
}

template <class Op> HRESULT V4Face::stringOut(BSTR* out, Op&& op) {
  if (!out)
    return E_POINTER;
  *out = nullptr;
  std::string value;
  HRESULT hr = call([&] { return op(value); });
  if (SUCCEEDED(hr) && !(*out = toBstr(value)))
    hr = E_OUTOFMEMORY;
  return hr;
}

template <class Op> HRESULT V4Face::variantOut(VARIANT* out, Op&& op) {
  if (!out)
    return E_POINTER;
  VariantInit(out);
  zv::Variant value;
  HRESULT hr = call([&] { return op(value); });
  return SUCCEEDED(hr) ? toVariant(value, *out) : hr;
}

// What the operation leaves in an in/out Variant goes back, after a failure too.
template <class Op> HRESULT V4Face::variantInOut(VARIANT* io, Op&& op) {
  if (!io)
    return E_POINTER;
  zv::Variant value;
  if (HRESULT hr = fromVariant(*io, value); FAILED(hr))
    return hr;
  const HRESULT hr = call([&] { return op(value); });
  VariantClear(io);
  const HRESULT stored = toVariant(value, *io);
  return FAILED(hr) ? hr : stored;
}

HRESULT V4Face::get_MultipleAllowed(LONG* result) {
  return longOut(result, [&](int32_t& r) { return c().get_MultipleAllowed(r); });
}
HRESULT V4Face::get_MacroNames(VARIANT* result) {
  return variantOut(result, [&](zv::Variant& r) { return c().get_MacroNames(r); });
}
HRESULT V4Face::get_MacroIsFunction(LONG lMacroID, LONG* result) {
  return longOut(result, [&](int32_t& r) { return c().get_MacroIsFunction(lMacroID, r); });
}
HRESULT V4Face::get_MacroParameters(LONG lMacroID, VARIANT* result) {
  return variantOut(result, [&](zv::Variant& r) { return c().get_MacroParameters(lMacroID, r); });
}
HRESULT V4Face::get_MacroCode(LONG lMacroID, BSTR* result) {
  return stringOut(result, [&](std::string& r) { return c().get_MacroCode(lMacroID, r); });
}
HRESULT V4Face::get_IsSimulating(LONG* result) {
  return longOut(result, [&](int32_t& r) { return c().get_IsSimulating(r); });
}
HRESULT V4Face::get_PinCount(LONG* result) {
  return longOut(result, [&](int32_t& r) { return c().get_PinCount(r); });
}
HRESULT V4Face::get_HasInitialisation(LONG* result) {
  return longOut(result, [&](int32_t& r) { return c().get_HasInitialisation(r); });
}
HRESULT V4Face::get_HasInterrupts(LONG* result) {
  return longOut(result, [&](int32_t& r) { return c().get_HasInterrupts(r); });
}
HRESULT V4Face::get_HasExclusiveInts(LONG* result) {
  return longOut(result, [&](int32_t& r) { return c().get_HasExclusiveInts(r); });
}
HRESULT V4Face::get_InitialisationCode(BSTR* result) {
  return stringOut(result, [&](std::string& r) { return c().get_InitialisationCode(r); });
}
HRESULT V4Face::get_InterruptCode(BSTR* result) {
  return stringOut(result, [&](std::string& r) { return c().get_InterruptCode(r); });
}
HRESULT V4Face::get_ExclusiveInterrupts(VARIANT* result) {
  return variantOut(result, [&](zv::Variant& r) { return c().get_ExclusiveInterrupts(r); });
}
HRESULT V4Face::get_PinName(LONG PinID, BSTR* result) {
  return stringOut(result, [&](std::string& r) { return c().get_PinName(PinID, r); });
}
HRESULT V4Face::get_DesiredPort(LONG PinID, LONG* result) {
  return longOut(result, [&](int32_t& r) { return c().get_DesiredPort(PinID, r); });
}
HRESULT V4Face::get_Direction(LONG PinID, LONG* result) {
  return longOut(result, [&](int32_t& r) { return c().get_Direction(PinID, r); });
}
HRESULT V4Face::get_PortMandatory(LONG PinID, LONG* result) {
  return longOut(result, [&](int32_t& r) { return c().get_PortMandatory(PinID, r); });
}
HRESULT V4Face::get_SamePortAsID(LONG PinID, LONG* result) {
  return longOut(result, [&](int32_t& r) { return c().get_SamePortAsID(PinID, r); });
}
HRESULT V4Face::get_Description(BSTR* result) {
  return stringOut(result, [&](std::string& r) { return c().get_Description(r); });
}
HRESULT V4Face::get_DesiredBit(LONG PinID, LONG* result) {
  return longOut(result, [&](int32_t& r) { return c().get_DesiredBit(PinID, r); });
}
HRESULT V4Face::get_BitMandatory(LONG PinID, LONG* result) {
  return longOut(result, [&](int32_t& r) { return c().get_BitMandatory(PinID, r); });
}
HRESULT V4Face::get_Port(LONG PinID, LONG* result) {
  return longOut(result, [&](int32_t& r) { return c().get_Port(PinID, r); });
}
HRESULT V4Face::put_Port(LONG PinID, LONG RHS) {
  return call([&] { return c().put_Port(PinID, RHS); });
}
HRESULT V4Face::get_Bit(LONG PinID, LONG* result) {
  return longOut(result, [&](int32_t& r) { return c().get_Bit(PinID, r); });
}
HRESULT V4Face::put_Bit(LONG PinID, LONG RHS) {
  return call([&] { return c().put_Bit(PinID, RHS); });
}
HRESULT V4Face::get_ConnectedOK(LONG* result) {
  return longOut(result, [&](int32_t& r) { return c().get_ConnectedOK(r); });
}
HRESULT V4Face::StartSimulation() {
  return call([&] { return c().StartSimulation(); });
}
HRESULT V4Face::StopSimulation() {
  return call([&] { return c().StopSimulation(); });
}
HRESULT V4Face::get_SimIODirection(LONG PinID, LONG* result) {
  return longOut(result, [&](int32_t& r) { return c().get_SimIODirection(PinID, r); });
}
HRESULT V4Face::SimReadPins(VARIANT* pVal) {
  return variantInOut(pVal, [&](zv::Variant& v) { return c().SimReadPins(v); });
}
HRESULT V4Face::SimWritePins(VARIANT newVal) {
  zv::Variant value;
  if (HRESULT hr = fromVariant(newVal, value); FAILED(hr))
    return hr;
  return call([&] { return c().SimWritePins(value); });
}

HRESULT V4Face::SimMacroCall(LONG lMacroID, VARIANT vParams, LONG* pRetVal, VARIANT* pvAffected,
                             LONG* pCycles) {
  if (!pRetVal || !pCycles)
    return E_POINTER;
  zv::Variant params;
  if (HRESULT hr = fromVariant(vParams, params); FAILED(hr))
    return hr;
  int32_t retVal = *pRetVal;
  int32_t cycles = *pCycles;
  const HRESULT hr = variantInOut(pvAffected, [&](zv::Variant& affected) {
    return c().SimMacroCall(lMacroID, params, retVal, affected, cycles);
  });
  *pRetVal = retVal;
  *pCycles = cycles;
  return hr;
}

HRESULT V4Face::KeyDown(LONG lElementID) {
  return call([&] { return c().KeyDown(lElementID); });
}
HRESULT V4Face::KeyUp(LONG lElementID) {
  return call([&] { return c().KeyUp(lElementID); });
}
HRESULT V4Face::get_SupportsKeys(LONG* result) {
  return longOut(result, [&](int32_t& r) { return c().get_SupportsKeys(r); });
}
HRESULT V4Face::get_IsAnalogue(LONG* result) {
  return longOut(result, [&](int32_t& r) { return c().get_IsAnalogue(r); });
}
HRESULT V4Face::get_MacroIsPrivate(LONG lMacroID, LONG* result) {
  return longOut(result, [&](int32_t& r) { return c().get_MacroIsPrivate(lMacroID, r); });
}
HRESULT V4Face::put_ClockSpeed(LONG RHS) {
  return call([&] { return c().put_ClockSpeed(RHS); });
}
HRESULT V4Face::put_PICAnalogueBits(LONG RHS) {
  return call([&] { return c().put_PICAnalogueBits(RHS); });
}
HRESULT V4Face::put_ADCCaptureCode(BSTR RHS) {
  return call([&] { return c().put_ADCCaptureCode(fromBstr(RHS)); });
}
HRESULT V4Face::put_ADCReadHighCode(BSTR RHS) {
  return call([&] { return c().put_ADCReadHighCode(fromBstr(RHS)); });
}
HRESULT V4Face::put_ADCReadLowCode(BSTR RHS) {
  return call([&] { return c().put_ADCReadLowCode(fromBstr(RHS)); });
}
HRESULT V4Face::put_TargetController(BSTR RHS) {
  return call([&] { return c().put_TargetController(fromBstr(RHS)); });
}
HRESULT V4Face::put_ADCReadIntCode(BSTR RHS) {
  return call([&] { return c().put_ADCReadIntCode(fromBstr(RHS)); });
}
HRESULT V4Face::put_ZelvorVersion(LONG RHS) {
  return call([&] { return c().put_ZelvorVersion(RHS); });
}
HRESULT V4Face::get_ComponentVersion(LONG* result) {
  return longOut(result, [&](int32_t& r) { return c().get_ComponentVersion(r); });
}
HRESULT V4Face::GeneralMethod(LONG lID, VARIANT* pVal) {
  return variantInOut(pVal, [&](zv::Variant& v) { return c().GeneralMethod(lID, v); });
}
HRESULT V4Face::put_GeneralPut(LONG lID, VARIANT* RHS) {
  return variantInOut(RHS, [&](zv::Variant& v) { return c().put_GeneralPut(lID, v); });
}
HRESULT V4Face::get_GeneralGet(LONG lID, VARIANT* result) {
  return variantOut(result, [&](zv::Variant& r) { return c().get_GeneralGet(lID, r); });
}
HRESULT V4Face::put_ZvdFilename(BSTR RHS) {
  return call([&] { return c().put_ZvdFilename(fromBstr(RHS)); });
}
HRESULT V4Face::get_VNodeCount(LONG* result) {
  return longOut(result, [&](int32_t& r) { return c().get_VNodeCount(r); });
}
HRESULT V4Face::get_VNodeProtocol(LONG lIdx, LONG* result) {
  return longOut(result, [&](int32_t& r) { return c().get_VNodeProtocol(lIdx, r); });
}
HRESULT V4Face::get_VNodeName(LONG lIdx, BSTR* result) {
  return stringOut(result, [&](std::string& r) { return c().get_VNodeName(lIdx, r); });
}
HRESULT V4Face::get_VNodeMsgRead(LONG lIdx, LONG* lSize, VARIANT* result) {
  if (!lSize)
    return E_POINTER;
  int32_t size = *lSize;
  const HRESULT hr =
      variantOut(result, [&](zv::Variant& r) { return c().get_VNodeMsgRead(lIdx, size, r); });
  *lSize = size;
  return hr;
}
HRESULT V4Face::put_VNodeMsgWrite(LONG lIdx, LONG lSize, VARIANT* msg) {
  return variantInOut(msg, [&](zv::Variant& v) { return c().put_VNodeMsgWrite(lIdx, lSize, v); });
}
HRESULT V4Face::MacroCodeOverride(BSTR* pVal) {
  if (!pVal)
    return E_POINTER;
  std::string code = fromBstr(*pVal);
  const HRESULT hr = call([&] { return c().MacroCodeOverride(code); });
  BSTR replaced = toBstr(code);
  if (!replaced)
    return E_OUTOFMEMORY;
  SysFreeString(*pVal);
  *pVal = replaced;
  return hr;
}
HRESULT V4Face::get_CodeFilename(BSTR* result) {
  return stringOut(result, [&](std::string& r) { return c().get_CodeFilename(r); });
}
HRESULT V4Face::get_DefinesCode(BSTR* result) {
  return stringOut(result, [&](std::string& r) { return c().get_DefinesCode(r); });
}
HRESULT V4Face::get_ReadCustomImages(LONG lID, BSTR* result) {
  return stringOut(result, [&](std::string& r) { return c().get_ReadCustomImages(lID, r); });
}
HRESULT V4Face::put_WriteCustomImages(LONG lID, BSTR RHS) {
  return call([&] { return c().put_WriteCustomImages(lID, fromBstr(RHS)); });
}

HRESULT V4Face::SimMacroCall2(LONG lMacroID, VARIANT vParams, VARIANT* pRetVal, VARIANT* pvAffected,
                              LONG* pCycles) {
  if (!pRetVal || !pCycles)
    return E_POINTER;
  zv::Variant params;
  if (HRESULT hr = fromVariant(vParams, params); FAILED(hr))
    return hr;
  zv::Variant retVal;
  if (HRESULT hr = fromVariant(*pRetVal, retVal); FAILED(hr))
    return hr;
  int32_t cycles = *pCycles;
  const HRESULT hr = variantInOut(pvAffected, [&](zv::Variant& affected) {
    return c().SimMacroCall2(lMacroID, params, retVal, affected, cycles);
  });
  *pCycles = cycles;
  VariantClear(pRetVal);
  const HRESULT stored = toVariant(retVal, *pRetVal);
  return FAILED(hr) ? hr : stored;
}

HRESULT V4Face::Refresh() {
  return call([&] { return c().Refresh(); });
}

} // namespace zvcom
