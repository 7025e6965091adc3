// IZelvorComponentV4: the one interface through which the host drives a
// component. Calls run from the host to the component only, one at a time on
// the host's user-interface thread. Every operation answers a Status: on
// failure its results are unspecified, and in/out arguments hold whatever the
// component wrote before the failure. Results and in/out arguments travel
// through reference parameters. The order below is the interface's order.
#pragma once

#include <cstdint>
#include <string>

#include "platform/variant.h"
#include "status.h"

namespace zv {

class IZelvorComponentV4 {
public:
  virtual ~IZelvorComponentV4() = default;

  virtual Status get_MultipleAllowed(int32_t& result) = 0;
  virtual Status get_MacroNames(Variant& result) = 0;
  virtual Status get_MacroIsFunction(int32_t lMacroID, int32_t& result) = 0;
  virtual Status get_MacroParameters(int32_t lMacroID, Variant& result) = 0;
  virtual Status get_MacroCode(int32_t lMacroID, std::string& result) = 0;
  virtual Status get_IsSimulating(int32_t& result) = 0;
  virtual Status get_PinCount(int32_t& result) = 0;
  virtual Status get_HasInitialisation(int32_t& result) = 0;
  virtual Status get_HasInterrupts(int32_t& result) = 0;
  virtual Status get_HasExclusiveInts(int32_t& result) = 0;
  virtual Status get_InitialisationCode(std::string& result) = 0;
  virtual Status get_InterruptCode(std::string& result) = 0;
  virtual Status get_ExclusiveInterrupts(Variant& result) = 0;
  virtual Status get_PinName(int32_t PinID, std::string& result) = 0;
  virtual Status get_DesiredPort(int32_t PinID, int32_t& result) = 0;
  virtual Status get_Direction(int32_t PinID, int32_t& result) = 0;
  virtual Status get_PortMandatory(int32_t PinID, int32_t& result) = 0;
  virtual Status get_SamePortAsID(int32_t PinID, int32_t& result) = 0;
  virtual Status get_Description(std::string& result) = 0;
  virtual Status get_DesiredBit(int32_t PinID, int32_t& result) = 0;
  virtual Status get_BitMandatory(int32_t PinID, int32_t& result) = 0;
  virtual Status get_Port(int32_t PinID, int32_t& result) = 0;
  virtual Status put_Port(int32_t PinID, int32_t RHS) = 0;
  virtual Status get_Bit(int32_t PinID, int32_t& result) = 0;
  virtual Status put_Bit(int32_t PinID, int32_t RHS) = 0;
  virtual Status get_ConnectedOK(int32_t& result) = 0;
  virtual Status StartSimulation() = 0;
  virtual Status StopSimulation() = 0;
  virtual Status get_SimIODirection(int32_t PinID, int32_t& result) = 0;
  virtual Status SimReadPins(Variant& pVal) = 0;
  virtual Status SimWritePins(const Variant& newVal) = 0;
  virtual Status SimMacroCall(int32_t lMacroID, const Variant& vParams, int32_t& pRetVal,
                              Variant& pvAffected, int32_t& pCycles) = 0;
  virtual Status KeyDown(int32_t lElementID) = 0;
  virtual Status KeyUp(int32_t lElementID) = 0;
  virtual Status get_SupportsKeys(int32_t& result) = 0;
  virtual Status get_IsAnalogue(int32_t& result) = 0;
  virtual Status get_MacroIsPrivate(int32_t lMacroID, int32_t& result) = 0;
  virtual Status put_ClockSpeed(int32_t RHS) = 0;
  virtual Status put_PICAnalogueBits(int32_t RHS) = 0;
  virtual Status put_ADCCaptureCode(const std::string& RHS) = 0;
  virtual Status put_ADCReadHighCode(const std::string& RHS) = 0;
  virtual Status put_ADCReadLowCode(const std::string& RHS) = 0;
  virtual Status put_TargetController(const std::string& RHS) = 0;
  virtual Status put_ADCReadIntCode(const std::string& RHS) = 0;
  virtual Status put_ZelvorVersion(int32_t RHS) = 0;
  virtual Status get_ComponentVersion(int32_t& result) = 0;
  virtual Status GeneralMethod(int32_t lID, Variant& pVal) = 0;
  virtual Status put_GeneralPut(int32_t lID, Variant& RHS) = 0;
  virtual Status get_GeneralGet(int32_t lID, Variant& result) = 0;
  virtual Status put_ZvdFilename(const std::string& RHS) = 0;
  virtual Status get_VNodeCount(int32_t& result) = 0;
  virtual Status get_VNodeProtocol(int32_t lIdx, int32_t& result) = 0;
  virtual Status get_VNodeName(int32_t lIdx, std::string& result) = 0;
  virtual Status get_VNodeMsgRead(int32_t lIdx, int32_t& lSize, Variant& result) = 0;
  virtual Status put_VNodeMsgWrite(int32_t lIdx, int32_t lSize, Variant& msg) = 0;
  virtual Status MacroCodeOverride(std::string& pVal) = 0;
  virtual Status get_CodeFilename(std::string& result) = 0;
  virtual Status get_DefinesCode(std::string& result) = 0;
  virtual Status get_ReadCustomImages(int32_t lID, std::string& result) = 0;
  virtual Status put_WriteCustomImages(int32_t lID, const std::string& RHS) = 0;
  virtual Status SimMacroCall2(int32_t lMacroID, const Variant& vParams, Variant& pRetVal,
                               Variant& pvAffected, int32_t& pCycles) = 0;
  virtual Status Refresh() = 0;
};

} // namespace zv
