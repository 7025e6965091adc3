// PWM: the component object. One class with plain fields (named as the
// component's documentation names them), whose operations are defined in the
// subsystem folders: core/ (start-up, versions, constant answers, public
// interface by name), codefile/, codegen/, pins/, sim/, persist/.
// Host operations run their bodies through guard(): a run-time error ends the
// call as a failed status and leaves what was written before it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "../../platform/controls/canvas.h"
#include "../../platform/controls/widgets.h"
#include "../../platform/library.h"
#include "../../platform/msgbox.h"
#include "../../platform/vbarray.h"
#include "../codefile/zvmacro.h"
#include "../pins/zvpin.h"
#include "zelvor/objects.h"

namespace zv {

class PWM final : public ComponentObject, private Dispatch {
public:
  // Runs the start-up; a failure in it raises RuntimeError. Its message boxes
  // go to boxes, or to the default service when that is null.
  explicit PWM(LibraryFacts library, MessageBoxService* boxes = nullptr);
  ~PWM() override;

  // ---- Fields, in their order ----
  int16_t iVersionMajor = 0;
  int16_t iVersionMinor = 0;
  int16_t bSimulating = 0;
  int16_t bHasExclusiveInts = 0;
  VbArray<int32_t> aExclusiveInts;
  int16_t bMultipleAllowed = 0;
  int16_t bIsAnalogue = 0;
  std::string sDescription;
  int32_t bSupportsKeys = 0;
  std::string sInitialisationCode;
  std::string sInterruptCode;
  std::string sTargetController;
  int32_t lClockSpeed = 0;
  std::string sAdcCaptureCode;
  std::string sAdcReadHighCode;
  std::string sAdcReadLowCode;
  int32_t lAnalogueBits = 0;
  int16_t bShowSim = 0;
  VbArray<std::unique_ptr<ZVPin>> aPins;
  int32_t lPinCount = 0;
  int32_t lMacroCount = 0;
  VbArray<std::unique_ptr<ZVMacro>> aMacros;
  int16_t iPwmNo = 0;
  int16_t iPr2 = 0;
  int16_t iPrescaler = 0;
  int16_t bUseAltPin = 0;
  std::string sLabel1;
  std::string sLabel2;
  int16_t iPwmCount = 0;
  int16_t iHasAltPin = 0;
  int16_t iClockDivider = 0;
  float fPeriod = 0.0f;
  float fTickPeriod = 0.0f;
  VbArray<int16_t> aChannelOn; // bounds 0..2, entries 0 and 1 in use
  VbArray<int16_t> aDuty;      // bounds 0..2, entries 0 and 1 in use
  std::string sCodeFilename;

  // The running library (folder, base name, version) and the help setting.
  LibraryFacts App;
  std::string appHelpFile;

  // ---- The panel's controls ----
  UserControlSurface UserControl;
  Canvas Pic_Graph0{"Pic_Graph(0)"};
  Canvas Pic_Graph1{"Pic_Graph(1)"};
  Label lblInfo0{"lblInfo(0)"};
  Label lblInfo1{"lblInfo(1)"};
  zv::Line Line1{"Line1"};
  zv::Line Line2{"Line2"};
  Canvas& Pic_Graph(int index) { return index == 0 ? Pic_Graph0 : Pic_Graph1; }
  Label& lblInfo(int index) { return index == 0 ? lblInfo0 : lblInfo1; }

  // ---- core/pwm.cpp: start-up and the component as a whole ----
  void setMessageBoxes(MessageBoxService* service) override { boxes_ = service; }
  // Shows text in a box of the object's service, under the default title.
  void msgBox(const std::string& text);
  Status get_MultipleAllowed(int32_t& result) override;
  Status get_IsAnalogue(int32_t& result) override;
  Status get_Description(std::string& result) override;
  Status put_ZelvorVersion(int32_t RHS) override;
  Status get_ComponentVersion(int32_t& result) override;
  Status put_PICAnalogueBits(int32_t RHS) override;
  // core/constant_ops.cpp: operations answered with a constant or ignored
  Status KeyDown(int32_t lElementID) override;
  Status KeyUp(int32_t lElementID) override;
  Status get_SupportsKeys(int32_t& result) override;
  Status put_ADCCaptureCode(const std::string& RHS) override;
  Status put_ADCReadHighCode(const std::string& RHS) override;
  Status put_ADCReadLowCode(const std::string& RHS) override;
  Status put_TargetController(const std::string& RHS) override;
  Status put_ADCReadIntCode(const std::string& RHS) override;
  Status GeneralMethod(int32_t lID, Variant& pVal) override;
  Status put_GeneralPut(int32_t lID, Variant& RHS) override;
  Status get_GeneralGet(int32_t lID, Variant& result) override;
  Status get_ReadCustomImages(int32_t lID, std::string& result) override;

  // ---- codefile/code_reader.cpp ----
  std::string codeFilePath() const; // folder & "/" & sCodeFilename
  std::string GetIniKeyValue(std::string& lpApplicationName, std::string& lpKeyName,
                             std::string& lpDefault);
  std::string GetCodeFromFile(std::string& lpCodeName);
  // The two readers for the component's own reads, on copies of the in/out arguments.
  std::string ini(std::string section, std::string key, std::string fallback);
  std::string block(std::string name);
  // ---- codefile/macro_table.cpp ----
  void BuildMacroTable();
  Status get_MacroNames(Variant& result) override;
  Status get_MacroIsFunction(int32_t lMacroID, int32_t& result) override;
  Status get_MacroIsPrivate(int32_t lMacroID, int32_t& result) override;
  Status get_MacroParameters(int32_t lMacroID, Variant& result) override;

  // ---- codegen/placeholders.cpp ----
  std::string FillPlaceholders(std::string& text);
  Status MacroCodeOverride(std::string& pVal) override;
  // ---- codegen/code_supply.cpp ----
  Status get_MacroCode(int32_t lMacroID, std::string& result) override;
  Status get_DefinesCode(std::string& result) override;
  Status get_InitialisationCode(std::string& result) override;
  Status get_InterruptCode(std::string& result) override;
  Status get_HasInitialisation(int32_t& result) override;
  Status get_HasInterrupts(int32_t& result) override;
  Status get_HasExclusiveInts(int32_t& result) override;
  Status get_ExclusiveInterrupts(Variant& result) override;
  Status get_CodeFilename(std::string& result) override;
  Status put_WriteCustomImages(int32_t lID, const std::string& RHS) override;

  // ---- pins/pin_table.cpp ----
  void buildPinTable(); // start-up steps 10 to 12
  void setupAPin(int32_t& ArrayNumber, std::string& PinName, int32_t& PortAorB,
                 int16_t& MustUseThatPort, int32_t& SamePortAsPinX, int32_t& PinNum,
                 int16_t& MustUseThatPin, int32_t& PinDirection, int16_t& PinValue);
  Status get_PinCount(int32_t& result) override;
  Status get_PinName(int32_t PinID, std::string& result) override;
  Status get_DesiredPort(int32_t PinID, int32_t& result) override;
  Status get_Direction(int32_t PinID, int32_t& result) override;
  Status get_PortMandatory(int32_t PinID, int32_t& result) override;
  Status get_SamePortAsID(int32_t PinID, int32_t& result) override;
  Status get_DesiredBit(int32_t PinID, int32_t& result) override;
  Status get_BitMandatory(int32_t PinID, int32_t& result) override;
  Status get_Port(int32_t PinID, int32_t& result) override;
  Status put_Port(int32_t PinID, int32_t RHS) override;
  Status get_Bit(int32_t PinID, int32_t& result) override;
  Status put_Bit(int32_t PinID, int32_t RHS) override;
  Status get_ConnectedOK(int32_t& result) override;
  // ---- pins/device.cpp ----
  Status put_ZvdFilename(const std::string& RHS) override;
  Status put_ClockSpeed(int32_t RHS) override;
  // ---- pins/pin_exchange.cpp ----
  Status get_SimIODirection(int32_t PinID, int32_t& result) override;
  Status SimReadPins(Variant& pVal) override;
  Status SimWritePins(const Variant& newVal) override;
  int32_t VNodeCount();
  int32_t VNodeProtocol(int32_t lIdx);
  std::string VNodeName(int32_t lIdx);
  Variant VNodeMsgRead(int32_t lIdx, int32_t& lSize);
  void VNodeMsgWrite(int32_t lIdx, int32_t lSize, Variant& msg);
  Status get_VNodeCount(int32_t& result) override;
  Status get_VNodeProtocol(int32_t lIdx, int32_t& result) override;
  Status get_VNodeName(int32_t lIdx, std::string& result) override;
  Status get_VNodeMsgRead(int32_t lIdx, int32_t& lSize, Variant& result) override;
  Status put_VNodeMsgWrite(int32_t lIdx, int32_t lSize, Variant& msg) override;

  // ---- sim/timing.cpp ----
  void Calc_Period_Freq();
  Variant Calc_Pwm_Period(int16_t Pr2, float& clockPeriod, int16_t prescaler);
  // ---- sim/sim_macros.cpp ----
  Status SimMacroCall(int32_t lMacroID, const Variant& vParams, int32_t& pRetVal,
                      Variant& pvAffected, int32_t& pCycles) override;
  Status SimMacroCall2(int32_t lMacroID, const Variant& vParams, Variant& pRetVal,
                       Variant& pvAffected, int32_t& pCycles) override;
  Status StartSimulation() override;
  Status StopSimulation() override;
  Status get_IsSimulating(int32_t& result) override;
  uint8_t SimEnableChannel(const Variant& vParams, Variant& pvAffected, int32_t& pCycles);
  uint8_t SimDisableChannel(const Variant& vParams, Variant& pvAffected, int32_t& pCycles);
  uint8_t SimSetDuty(const Variant& vParams, Variant& pvAffected, int32_t& pCycles);
  uint8_t SimChangePeriod(const Variant& vParams, Variant& pvAffected, int32_t& pCycles);
  uint8_t SimSetDutyHighLow(const Variant& vParams, Variant& pvAffected, int32_t& pCycles);
  // ---- sim/plot.cpp ----
  void Plot_Channel(int16_t& Index);
  // ---- sim/panel.cpp ----
  void createPanel(); // the controls with their initial properties
  void UserControl_Paint();
  void UserControl_Resize();
  void Draw_Frames();
  void doRefresh(); // UserControl_Resize, then UserControl_Paint
  Status Refresh() override;
  Status Paint() override;
  Status Resize() override;
  UserControlSurface& panelSurface() override { return UserControl; }
  std::vector<Control*> panelControls() override;

  // ---- persist/properties.cpp: container calls and public properties ----
  Status InitProperties() override;
  Status ReadProperties(const PropertyBag& bag) override;
  Status WriteProperties(PropertyBag& bag) override;
  int16_t Pr2() const;
  void setPr2(int16_t NewPr2);
  int16_t Prescaler() const;
  void setPrescaler(int16_t NewPrescaler);
  int16_t PWM_No() const;
  void setPWM_No(int16_t New_PWM_No);
  int32_t ClockSpeed() const;
  void setClockSpeed(int32_t NewClockSpeed);
  int32_t MaxPwm() const;
  void setMaxPwm(int32_t NewMaxPwm);
  int16_t UseAltPin() const;
  void setUseAltPin(int16_t New_UseAltPin);
  int16_t HasAltPin() const;
  void setHasAltPin(int16_t NewHasAltPin);
  std::string Label1() const;
  void setLabel1(const std::string& New_Label);
  std::string Label2() const;
  void setLabel2(const std::string& New_Label);
  int16_t ShowSim() const;
  void setShowSim(int16_t New_Show);

  // ---- core/public_interface.cpp: _PWM by name, and inspection ----
  Dispatch& publicInterface() override { return *this; }
  Inspected inspect() const override;

private:
  MessageBoxService* boxes_;
  // Plot_Channel's operations before they go onto the canvas, kept for the
  // capacity: a simulation repaints both channels at every step.
  std::vector<DrawOp> plotOps_;
  Variant getProperty(const std::string& name) override;
  void putProperty(const std::string& name, const Variant& value) override;
  Variant callMethod(const std::string& name, std::vector<Variant>& args) override;
};

} // namespace zv
