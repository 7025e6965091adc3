/// @file
/// The host interface: the one interface through which a host drives a
/// component.
#pragma once

#include <cstdint>
#include <string>

#include "platform/variant.h"
#include "status.h"

namespace zv {

/// The host interface of a component, its 62 operations in their fixed order.
///
/// Calls run from the host to the component only, one at a time, on the
/// host's user-interface thread; the component never calls back through it.
///
/// - **Answers.** A result travels through the last reference parameter
///   (`result`, or the one the operation names). Identifiers (`lMacroID`,
///   `PinID`, `lIdx`) are indexes from 0. A Boolean answer is a Long of -1
///   (true) or 0 (false). An identifier outside the component's table is no
///   failure: it gets a neutral answer (0, the empty string or an empty
///   Variant) and no message, as each operation says.
/// - **In and in/out.** Arguments passed by value or const reference are
///   only read. Non-const references other than the result are in/out: the
///   component may change them, and leaves them as they came where it says so.
/// - **Failure.** Every operation answers a Status. A failure carries a
///   run-time error number (ErrorNumber) and its text; the result and the
///   in/out arguments then hold whatever was written before the failure, and
///   so does the component's state: nothing is rolled back.
/// - **Ownership.** Everything handed over is copied: the caller owns its
///   results, and the component keeps no reference to any argument after the
///   call. Variant arrays handed out are copies of the component's own.
/// - **Message boxes.** Where an operation says it shows a message, it shows
///   it through the service of ComponentObject::setMessageBoxes, and the call
///   goes on when the box is answered.
class IZelvorComponentV4 {
public:
  virtual ~IZelvorComponentV4() = default;

  /// Whether a flowchart may hold more than one such component: -1 or 0, from
  /// the code file's setting "MultipleAllowed".
  virtual Status get_MultipleAllowed(int32_t& result) = 0;
  /// The macro table. Before ZelvorVersion has built a table with at least
  /// one macro: a Variant holding the empty string. Otherwise an array of
  /// String, one element per macro with the macro's identifier as its index,
  /// each "name|name|return type".
  virtual Status get_MacroNames(Variant& result) = 0;
  /// Whether the macro returns a value (its return type is not "void"): -1
  /// or 0; 0 for an identifier outside the table. Fails while no table exists.
  virtual Status get_MacroIsFunction(int32_t lMacroID, int32_t& result) = 0;
  /// The macro's parameter list: an array of String, one "name|name|type"
  /// per parameter, or an array of Variant without elements for a macro
  /// without parameters; an empty Variant for an identifier outside the
  /// table. Fails while no table exists.
  virtual Status get_MacroParameters(int32_t lMacroID, Variant& result) = 0;
  /// The macro's C code, its block read from the code file at this call,
  /// placeholders unfilled; the empty string for an identifier outside the
  /// table. Fails while no table exists.
  virtual Status get_MacroCode(int32_t lMacroID, std::string& result) = 0;
  /// Whether a simulation runs (between StartSimulation and
  /// StopSimulation): -1 or 0.
  virtual Status get_IsSimulating(int32_t& result) = 0;
  /// The number of pins, the code file's pin count as it stands (0 for this
  /// component, although pin 0 then exists as a placeholder).
  virtual Status get_PinCount(int32_t& result) = 0;
  /// Whether there is initialisation code (its text is not empty): -1 or 0.
  virtual Status get_HasInitialisation(int32_t& result) = 0;
  /// Whether there is interrupt code (its text is not empty): -1 or 0.
  virtual Status get_HasInterrupts(int32_t& result) = 0;
  /// Whether the component claims interrupts for itself: always 0.
  virtual Status get_HasExclusiveInts(int32_t& result) = 0;
  /// The initialisation code, read from the code file once at creation.
  virtual Status get_InitialisationCode(std::string& result) = 0;
  /// The interrupt code, read from the code file once at creation.
  virtual Status get_InterruptCode(std::string& result) = 0;
  /// The claimed interrupts: an array of Long without elements.
  virtual Status get_ExclusiveInterrupts(Variant& result) = 0;
  /// The pin's name; the empty string for an identifier outside the table.
  virtual Status get_PinName(int32_t PinID, std::string& result) = 0;
  /// The port the pin would like, from 0 for port A. The one pin operation
  /// without a neutral answer: an identifier outside the table fails.
  virtual Status get_DesiredPort(int32_t PinID, int32_t& result) = 0;
  /// The pin's direction code (2 for the placeholder pin); 0 for an
  /// identifier outside the table.
  virtual Status get_Direction(int32_t PinID, int32_t& result) = 0;
  /// Whether the host must use the desired port: -1 or 0; 0 for an
  /// identifier outside the table.
  virtual Status get_PortMandatory(int32_t PinID, int32_t& result) = 0;
  /// The pin whose port this pin must share, -1 for none; 0 for an
  /// identifier outside the table.
  virtual Status get_SamePortAsID(int32_t PinID, int32_t& result) = 0;
  /// The component's description, from the code file ("default" when it
  /// names none).
  virtual Status get_Description(std::string& result) = 0;
  /// The bit the pin would like, from 0; 0 for an identifier outside the
  /// table.
  virtual Status get_DesiredBit(int32_t PinID, int32_t& result) = 0;
  /// Whether the host must use the desired bit: -1 or 0; 0 for an
  /// identifier outside the table.
  virtual Status get_BitMandatory(int32_t PinID, int32_t& result) = 0;
  /// The port the host connected the pin to, -1 while none; 0 for an
  /// identifier outside the table.
  virtual Status get_Port(int32_t PinID, int32_t& result) = 0;
  /// Connects the pin to port RHS, whatever its value; nothing happens for
  /// an identifier outside the table.
  virtual Status put_Port(int32_t PinID, int32_t RHS) = 0;
  /// The bit the host connected the pin to, -1 while none; 0 for an
  /// identifier outside the table.
  virtual Status get_Bit(int32_t PinID, int32_t& result) = 0;
  /// Connects the pin to bit RHS, whatever its value; nothing happens for an
  /// identifier outside the table.
  virtual Status put_Bit(int32_t PinID, int32_t RHS) = 0;
  /// Whether every pin, the placeholder included, has a port and a bit
  /// (neither is -1): -1 or 0.
  virtual Status get_ConnectedOK(int32_t& result) = 0;
  /// Begins a simulation: both channels go off (their duties and the period
  /// stay), and the panel is redrawn.
  virtual Status StartSimulation() = 0;
  /// Ends the simulation; the panel goes on showing the last waveforms.
  virtual Status StopSimulation() = 0;
  /// The pin's direction in simulation: what get_Direction answers.
  virtual Status get_SimIODirection(int32_t PinID, int32_t& result) = 0;
  /// The levels of the simulated pins, in/out: pVal is replaced by an array
  /// of Boolean, one element per pin (one element, false, while the pin
  /// count is 0).
  virtual Status SimReadPins(Variant& pVal) = 0;
  /// Takes the levels of the simulated pins from newVal, an array with one
  /// element per pin; ignored while the pin count is 0. Fails at an element
  /// that is missing or no Boolean, with the pins before it set.
  virtual Status SimWritePins(const Variant& newVal) = 0;
  /// Runs macro lMacroID in simulation with vParams, a zero-based array of
  /// its parameters: 0 enable channel, 1 disable channel, 2 set duty,
  /// 3 change period, 4 set a ten-bit duty in a high and a low part.
  /// Channels are 1 and 2; parameters must convert to 0..255. pRetVal (in/out)
  /// becomes 0; an identifier outside the table or above 4 runs nothing and
  /// leaves it. pvAffected and pCycles (in/out) come back as they came.
  /// Fails while no table exists, or at a parameter that doesn't convert,
  /// before the macro changes anything.
  virtual Status SimMacroCall(int32_t lMacroID, const Variant& vParams, int32_t& pRetVal,
                              Variant& pvAffected, int32_t& pCycles) = 0;
  /// Ignored; lElementID names the element the key went down on.
  virtual Status KeyDown(int32_t lElementID) = 0;
  /// Ignored; lElementID names the element the key went up on.
  virtual Status KeyUp(int32_t lElementID) = 0;
  /// Whether the component uses keys: always 0.
  virtual Status get_SupportsKeys(int32_t& result) = 0;
  /// Whether this is an analogue component: -1 or 0, from the code file's
  /// setting "IsAnalogue".
  virtual Status get_IsAnalogue(int32_t& result) = 0;
  /// Whether the macro is private: -1 or 0; 0 for an identifier outside the
  /// table. Fails while no table exists.
  virtual Status get_MacroIsPrivate(int32_t lMacroID, int32_t& result) = 0;
  /// The target's clock in hertz; the period is worked out anew. RHS 0 fails
  /// (division by zero) after the clock is stored.
  virtual Status put_ClockSpeed(int32_t RHS) = 0;
  /// The target's number of analogue bits; stored, and read by nothing.
  virtual Status put_PICAnalogueBits(int32_t RHS) = 0;
  /// C code for an analogue capture; stored, and read by nothing.
  virtual Status put_ADCCaptureCode(const std::string& RHS) = 0;
  /// C code that reads the high part; stored, and read by nothing.
  virtual Status put_ADCReadHighCode(const std::string& RHS) = 0;
  /// C code that reads the low part; stored, and read by nothing.
  virtual Status put_ADCReadLowCode(const std::string& RHS) = 0;
  /// The target's name; stored, and read by nothing.
  virtual Status put_TargetController(const std::string& RHS) = 0;
  /// C code for an integer read; ignored, not even stored.
  virtual Status put_ADCReadIntCode(const std::string& RHS) = 0;
  /// The host's version, major * 256 + minor. Stores it and builds the macro
  /// table from the code file, the one call that does: it comes before the
  /// macro operations. A major part beyond 16 bits fails before anything is
  /// stored.
  virtual Status put_ZelvorVersion(int32_t RHS) = 0;
  /// This component's version, major * 256 + minor (1024 for 4.0).
  virtual Status get_ComponentVersion(int32_t& result) = 0;
  /// Ignored; pVal (in/out) comes back as it came.
  virtual Status GeneralMethod(int32_t lID, Variant& pVal) = 0;
  /// Ignored; RHS (in/out) comes back as it came.
  virtual Status put_GeneralPut(int32_t lID, Variant& RHS) = 0;
  /// Always the 16-bit integer 0 (not an empty Variant), whatever lID is.
  virtual Status get_GeneralGet(int32_t lID, Variant& result) = 0;
  /// The path of the target's device file. Reads the channel count, the
  /// alternative pin and the clock divider from it (0 for each one missing,
  /// and no message), then redraws the panel. Fails at a value beyond
  /// 16 bits, with the values before it stored.
  virtual Status put_ZvdFilename(const std::string& RHS) = 0;
  /// The number of nodes: always 0.
  virtual Status get_VNodeCount(int32_t& result) = 0;
  /// A node's protocol: always 0, whatever lIdx is.
  virtual Status get_VNodeProtocol(int32_t lIdx, int32_t& result) = 0;
  /// A node's name: always the empty string.
  virtual Status get_VNodeName(int32_t lIdx, std::string& result) = 0;
  /// A node's message: an array of Byte with one element, 0, whatever lIdx
  /// is; lSize (in/out) becomes 0.
  virtual Status get_VNodeMsgRead(int32_t lIdx, int32_t& lSize, Variant& result) = 0;
  /// Ignored; msg (in/out) comes back as it came.
  virtual Status put_VNodeMsgWrite(int32_t lIdx, int32_t lSize, Variant& msg) = 0;
  /// Fills the current settings into the C code in pVal (in/out): "%a" the
  /// period register, "%b" the prescaler's code, "%d" the alternative pin
  /// while it is in use, else 0. A text without them comes back unchanged.
  virtual Status MacroCodeOverride(std::string& pVal) = 0;
  /// The full path of the code file, whether or not it exists.
  virtual Status get_CodeFilename(std::string& result) = 0;
  /// The code for the definitions section, its block read from the code file
  /// at this call, placeholders unfilled.
  virtual Status get_DefinesCode(std::string& result) = 0;
  /// Always the empty string, whatever lID is.
  virtual Status get_ReadCustomImages(int32_t lID, std::string& result) = 0;
  /// Stores nothing: shows a message naming lID and RHS.
  virtual Status put_WriteCustomImages(int32_t lID, const std::string& RHS) = 0;
  /// The second form of the simulated macro call runs no macro: it shows the
  /// message "Error in <SimMacroCall2>" and writes none of its in/out
  /// arguments (pRetVal, pvAffected, pCycles).
  virtual Status SimMacroCall2(int32_t lMacroID, const Variant& vParams, Variant& pRetVal,
                               Variant& pvAffected, int32_t& pCycles) = 0;
  /// Lays the panel out and redraws it.
  virtual Status Refresh() = 0;
};

} // namespace zv
