// IZelvorComponentV4 of a PWM object: a face of its own (an interface of the
// same object, its IUnknown the object's), because both it and _PWM are dual
// interfaces and each answers IDispatch for itself. Each operation converts
// its arguments and calls the component's operation of the same name.
#pragma once

#include "avr_pwm.h"
#include "convert.h"
#include "invoke.h"
#include "zelvor/objects.h"

namespace zvcom {

class PwmObject;

class V4Face final : public Dual<::IZelvorComponentV4, IID_IZelvorComponentV4> {
public:
  explicit V4Face(PwmObject& outer) : outer_(outer) {}

  // IUnknown: the object's.
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;

  // The operations, in their order.
  HRESULT STDMETHODCALLTYPE get_MultipleAllowed(LONG* result) override;
  HRESULT STDMETHODCALLTYPE get_MacroNames(VARIANT* result) override;
  HRESULT STDMETHODCALLTYPE get_MacroIsFunction(LONG lMacroID, LONG* result) override;
  HRESULT STDMETHODCALLTYPE get_MacroParameters(LONG lMacroID, VARIANT* result) override;
  HRESULT STDMETHODCALLTYPE get_MacroCode(LONG lMacroID, BSTR* result) override;
  HRESULT STDMETHODCALLTYPE get_IsSimulating(LONG* result) override;
  HRESULT STDMETHODCALLTYPE get_PinCount(LONG* result) override;
  HRESULT STDMETHODCALLTYPE get_HasInitialisation(LONG* result) override;
  HRESULT STDMETHODCALLTYPE get_HasInterrupts(LONG* result) override;
  HRESULT STDMETHODCALLTYPE get_HasExclusiveInts(LONG* result) override;
  HRESULT STDMETHODCALLTYPE get_InitialisationCode(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE get_InterruptCode(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE get_ExclusiveInterrupts(VARIANT* result) override;
  HRESULT STDMETHODCALLTYPE get_PinName(LONG PinID, BSTR* result) override;
  HRESULT STDMETHODCALLTYPE get_DesiredPort(LONG PinID, LONG* result) override;
  HRESULT STDMETHODCALLTYPE get_Direction(LONG PinID, LONG* result) override;
  HRESULT STDMETHODCALLTYPE get_PortMandatory(LONG PinID, LONG* result) override;
  HRESULT STDMETHODCALLTYPE get_SamePortAsID(LONG PinID, LONG* result) override;
  HRESULT STDMETHODCALLTYPE get_Description(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE get_DesiredBit(LONG PinID, LONG* result) override;
  HRESULT STDMETHODCALLTYPE get_BitMandatory(LONG PinID, LONG* result) override;
  HRESULT STDMETHODCALLTYPE get_Port(LONG PinID, LONG* result) override;
  HRESULT STDMETHODCALLTYPE put_Port(LONG PinID, LONG RHS) override;
  HRESULT STDMETHODCALLTYPE get_Bit(LONG PinID, LONG* result) override;
  HRESULT STDMETHODCALLTYPE put_Bit(LONG PinID, LONG RHS) override;
  HRESULT STDMETHODCALLTYPE get_ConnectedOK(LONG* result) override;
  HRESULT STDMETHODCALLTYPE StartSimulation() override;
  HRESULT STDMETHODCALLTYPE StopSimulation() override;
  HRESULT STDMETHODCALLTYPE get_SimIODirection(LONG PinID, LONG* result) override;
  HRESULT STDMETHODCALLTYPE SimReadPins(VARIANT* pVal) override;
  HRESULT STDMETHODCALLTYPE SimWritePins(VARIANT newVal) override;
  HRESULT STDMETHODCALLTYPE SimMacroCall(LONG lMacroID, VARIANT vParams, LONG* pRetVal,
                                         VARIANT* pvAffected, LONG* pCycles) override;
  HRESULT STDMETHODCALLTYPE KeyDown(LONG lElementID) override;
  HRESULT STDMETHODCALLTYPE KeyUp(LONG lElementID) override;
  HRESULT STDMETHODCALLTYPE get_SupportsKeys(LONG* result) override;
  HRESULT STDMETHODCALLTYPE get_IsAnalogue(LONG* result) override;
  HRESULT STDMETHODCALLTYPE get_MacroIsPrivate(LONG lMacroID, LONG* result) override;
  HRESULT STDMETHODCALLTYPE put_ClockSpeed(LONG RHS) override;
  HRESULT STDMETHODCALLTYPE put_PICAnalogueBits(LONG RHS) override;
  HRESULT STDMETHODCALLTYPE put_ADCCaptureCode(BSTR RHS) override;
  HRESULT STDMETHODCALLTYPE put_ADCReadHighCode(BSTR RHS) override;
  HRESULT STDMETHODCALLTYPE put_ADCReadLowCode(BSTR RHS) override;
  HRESULT STDMETHODCALLTYPE put_TargetController(BSTR RHS) override;
  HRESULT STDMETHODCALLTYPE put_ADCReadIntCode(BSTR RHS) override;
  HRESULT STDMETHODCALLTYPE put_ZelvorVersion(LONG RHS) override;
  HRESULT STDMETHODCALLTYPE get_ComponentVersion(LONG* result) override;
  HRESULT STDMETHODCALLTYPE GeneralMethod(LONG lID, VARIANT* pVal) override;
  HRESULT STDMETHODCALLTYPE put_GeneralPut(LONG lID, VARIANT* RHS) override;
  HRESULT STDMETHODCALLTYPE get_GeneralGet(LONG lID, VARIANT* result) override;
  HRESULT STDMETHODCALLTYPE put_ZvdFilename(BSTR RHS) override;
  HRESULT STDMETHODCALLTYPE get_VNodeCount(LONG* result) override;
  HRESULT STDMETHODCALLTYPE get_VNodeProtocol(LONG lIdx, LONG* result) override;
  HRESULT STDMETHODCALLTYPE get_VNodeName(LONG lIdx, BSTR* result) override;
  HRESULT STDMETHODCALLTYPE get_VNodeMsgRead(LONG lIdx, LONG* lSize, VARIANT* result) override;
  HRESULT STDMETHODCALLTYPE put_VNodeMsgWrite(LONG lIdx, LONG lSize, VARIANT* msg) override;
  HRESULT STDMETHODCALLTYPE MacroCodeOverride(BSTR* pVal) override;
  HRESULT STDMETHODCALLTYPE get_CodeFilename(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE get_DefinesCode(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE get_ReadCustomImages(LONG lID, BSTR* result) override;
  HRESULT STDMETHODCALLTYPE put_WriteCustomImages(LONG lID, BSTR RHS) override;
  HRESULT STDMETHODCALLTYPE SimMacroCall2(LONG lMacroID, VARIANT vParams, VARIANT* pRetVal,
                                          VARIANT* pvAffected, LONG* pCycles) override;
  HRESULT STDMETHODCALLTYPE Refresh() override;

private:
  zv::ComponentObject& c();
  template <class Op> HRESULT call(Op&& op);
  template <class Op> HRESULT longOut(LONG* out, Op&& op);
  template <class Op> HRESULT stringOut(BSTR* out, Op&& op);
  template <class Op> HRESULT variantOut(VARIANT* out, Op&& op);
  template <class Op> HRESULT variantInOut(VARIANT* io, Op&& op);

  PwmObject& outer_;
};

} // namespace zvcom
