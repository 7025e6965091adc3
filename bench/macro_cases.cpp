#include "macro_cases.h"

#include "benches.h"
#include "harness.h"

namespace zvbench {

zv::Variant params(std::initializer_list<int16_t> values) {
  zv::SafeArray list(zv::VarType::Variant, 0, static_cast<int32_t>(values.size()) - 1);
  int32_t i = 0;
  for (int16_t v : values)
    list.set(i++, zv::Variant::i2(v));
  return zv::Variant::array(std::move(list));
}

const std::array<MacroCase, 5>& macroCases() {
  static const std::array<MacroCase, 5> cases{{
      {"EnableChannel", 0, params({1}), params({2})},
      {"DisableChannel", 1, params({2}), params({2})},
      {"SetDuty", 2, params({1, 64}), params({2, 192})},
      {"ChangePeriod", 3, params({200, 3}), params({100, 4})},
      {"SetDutyHighLow", 4, params({1, 2, 0}), params({2, 1, 128})},
  }};
  return cases;
}

void callMacro(zv::ComponentObject& component, int32_t id, const zv::Variant& vParams) {
  int32_t result = 7;
  zv::Variant affected;
  int32_t cycles = 0;
  check(component.SimMacroCall(id, vParams, result, affected, cycles), "SimMacroCall");
}

void runBothChannels(zv::ComponentObject& component) {
  check(component.StartSimulation(), "StartSimulation");
  callMacro(component, 0, params({1}));
  callMacro(component, 0, params({2}));
  callMacro(component, 2, params({1, 64}));
  callMacro(component, 2, params({2, 192}));
}

} // namespace zvbench
