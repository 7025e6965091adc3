// The C code handed to the host: blocks of the code file, read at start-up
// (initialisation, interrupts) or afresh at each call (definitions, macros).
#include "../../platform/funnel.h"
#include "../core/pwm.h"

namespace zv {

namespace {

// The macro's name: the field between the first and second "|" of its MacroName.
std::string secondField(const std::string& macroName) {
  const size_t first = macroName.find('|');
  if (first == std::string::npos)
    return {};
  const size_t second = macroName.find('|', first + 1);
  return macroName.substr(first + 1,
                          second == std::string::npos ? std::string::npos : second - first - 1);
}

} // namespace

Status PWM::get_MacroCode(int32_t lMacroID, std::string& result) {
  return guard([&] {
    result.clear();
    if (lMacroID > aMacros.ubound() || lMacroID < aMacros.lbound())
      return;
    if (!aMacros[lMacroID])
      raise(errObjectNotSet);
    result = block("Macro_" + secondField(aMacros[lMacroID]->MacroName));
  });
}

Status PWM::get_DefinesCode(std::string& result) {
  return guard([&] { result = block("DefinesCode"); });
}

Status PWM::get_InitialisationCode(std::string& result) {
  return guard([&] { result = sInitialisationCode; });
}

Status PWM::get_InterruptCode(std::string& result) {
  return guard([&] { result = sInterruptCode; });
}

Status PWM::get_HasInitialisation(int32_t& result) {
  return guard([&] { result = sInitialisationCode.empty() ? 0 : -1; });
}

Status PWM::get_HasInterrupts(int32_t& result) {
  return guard([&] { result = sInterruptCode.empty() ? 0 : -1; });
}

Status PWM::get_HasExclusiveInts(int32_t& result) {
  return guard([&] { result = bHasExclusiveInts; });
}

Status PWM::get_ExclusiveInterrupts(Variant& result) {
  return guard([&] {
    // The claimed interrupts: aExclusiveInts, which nothing allocates.
    SafeArray list = SafeArray::none(VarType::I4);
    if (aExclusiveInts.allocated()) {
      list = SafeArray(VarType::I4, aExclusiveInts.lbound(), aExclusiveInts.ubound());
      for (int32_t i = aExclusiveInts.lbound(); i <= aExclusiveInts.ubound(); ++i)
        list.set(i, Variant::i4(aExclusiveInts[i]));
    }
    result = Variant::array(std::move(list));
  });
}

Status PWM::get_CodeFilename(std::string& result) {
  return guard([&] { result = codeFilePath(); });
}

Status PWM::put_WriteCustomImages(int32_t lID, const std::string& RHS) {
  return guard([&] { msgBox("id=" + std::to_string(lID) + "  and filename = " + "\r\n" + RHS); });
}

} // namespace zv
