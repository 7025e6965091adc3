// The macro table: built from the code file's macro sections when the host
// tells its version, then read by the host through four operations.
#include "../../platform/funnel.h"
#include "../core/counted_loop.h"
#include "../core/pwm.h"
#include "key_values.h"

namespace zv {

namespace {

// Beyond this many slots the table can't be allocated.
constexpr int32_t kMaxMacroSlots = 1 << 20;

Variant parameterList(PWM& pwm, int16_t i, const std::string& name) {
  const std::string sP = "MacroParameters_" + name;
  const std::string sT = "MacroParamTypes_" + name;
  const int16_t n = intOfKey(pwm.ini(sP, "Count", "0"));
  if (n == 0)
    return Variant::array(SafeArray::none(VarType::Variant));
  if (n < 0)
    raise(errSubscript); // a list can't end before it begins
  SafeArray params(VarType::BSTR, 0, n - 1);
  countedLoop16(1, n, [&](int16_t j) {
    const std::string k = numberedKey(j);
    const std::string pname = pwm.ini(sP, k, "");
    const std::string ptype = pwm.ini(sT, k, "char");
    if (pname.empty())
      pwm.msgBox("Error: Parameter " + std::to_string(i) + "." + std::to_string(j) +
                 " is missing from the code file!");
    params.set(j - 1, Variant::str(pname + "|" + pname + "|" + ptype));
  });
  return Variant::array(std::move(params));
}

} // namespace

void PWM::BuildMacroTable() {
  lMacroCount = longOfKey(ini("MacroNames", "Count", "0"));
  if (lMacroCount < 1)
    return;
  if (lMacroCount > kMaxMacroSlots)
    raise(errOutOfMemory);
  aMacros.redim(0, lMacroCount - 1);
  countedLoop16(1, lMacroCount, [&](int16_t i) {
    const std::string k = numberedKey(i);
    const std::string name = ini("MacroNames", k, "");
    const std::string returns = ini("MacroReturns", k, "void");
    const int16_t isPrivate = boolOfKey(ini("MacroIsPrivate", k, "0"));
    const int16_t isFunction = vbBool(returns != "void");
    if (name.empty())
      msgBox("Error: Macro " + std::to_string(i) + " is missing from the code file!");

    // A macro without a name still takes its slot, so the identifiers after it stay right.
    auto& record = aMacros[i - 1];
    record = std::make_unique<ZVMacro>();
    record->MacroName = name + "|" + name + "|" + returns;
    record->IsFunction = isFunction;
    record->IsPrivate = isPrivate;
    record->MacroParams = parameterList(*this, i, name);
  });
}

namespace {

// The record for an identifier, or nullptr when it lies outside the table.
// A table without bounds raises 9; an empty slot raises 91.
const ZVMacro* macroAt(const VbArray<std::unique_ptr<ZVMacro>>& macros, int32_t id) {
  if (id < macros.lbound() || id > macros.ubound())
    return nullptr;
  const auto& record = macros[id];
  if (!record)
    raise(errObjectNotSet);
  return record.get();
}

} // namespace

Status PWM::get_MacroNames(Variant& result) {
  return guard([&] {
    if (lMacroCount < 1) {
      result = Variant::str("");
      return;
    }
    SafeArray names(VarType::BSTR, aMacros.lbound(), aMacros.ubound());
    for (int32_t i = aMacros.lbound(); i <= aMacros.ubound(); ++i) {
      if (!aMacros[i])
        raise(errObjectNotSet);
      names.set(i, Variant::str(aMacros[i]->MacroName));
    }
    result = Variant::array(std::move(names));
  });
}

Status PWM::get_MacroIsFunction(int32_t lMacroID, int32_t& result) {
  return guard([&] {
    const ZVMacro* m = macroAt(aMacros, lMacroID);
    result = m ? m->IsFunction : 0;
  });
}

Status PWM::get_MacroIsPrivate(int32_t lMacroID, int32_t& result) {
  return guard([&] {
    const ZVMacro* m = macroAt(aMacros, lMacroID);
    result = m ? m->IsPrivate : 0;
  });
}

Status PWM::get_MacroParameters(int32_t lMacroID, Variant& result) {
  return guard([&] {
    const ZVMacro* m = macroAt(aMacros, lMacroID);
    result = m ? m->MacroParams : Variant();
  });
}

} // namespace zv
