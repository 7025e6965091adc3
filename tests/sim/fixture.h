// A PWM object built from a small code file in a temporary folder, with the
// panel's controls laid out, as the simulation tests need it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/pwm.h"
#include "platform/msgbox.h"
#include "tests/common/temp_folder.h"

namespace zvtest {

// A zero-based array of Variant, as the host hands macro parameters.
inline zv::Variant params(const std::vector<zv::Variant>& items) {
  zv::SafeArray a(zv::VarType::Variant, 0, static_cast<int32_t>(items.size()) - 1);
  for (size_t i = 0; i < items.size(); ++i)
    a.set(static_cast<int32_t>(i), items[i]);
  return zv::Variant::array(std::move(a));
}

inline zv::Variant ints(std::initializer_list<int32_t> values) {
  std::vector<zv::Variant> items;
  for (int32_t v : values)
    items.push_back(zv::Variant::i4(v));
  return params(items);
}

// macroCount void macros named in turn after the five of the real code file;
// without macros no version call, so no macro table.
struct SimObject {
  explicit SimObject(int macroCount = 5, int16_t pwmCount = 2) {
    static const char* names[] = {"EnableChannel", "DisableChannel", "SetDuty",
                                  "ChangePeriod",  "SetDutyHighLow", "Spare"};
    std::vector<std::string> code{"[MacroNames]", "Count=" + std::to_string(macroCount)};
    for (int i = 1; i <= macroCount; ++i)
      code.push_back(std::to_string(i) + "=" + names[(i - 1) % 6]);
    folder.write("Fixture.c", crlf(code));
    pwm = std::make_unique<zv::PWM>(zv::LibraryFacts{folder.path(), "Fixture", 4, 0, 0}, &boxes);
    if (macroCount > 0)
      (void)pwm->put_ZelvorVersion(4 * 256);
    pwm->iPwmCount = pwmCount;
    pwm->iClockDivider = 1;
    pwm->bShowSim = -1;
    pwm->Calc_Period_Freq();
    boxes.texts.clear();
  }
  TempFolder folder;
  zv::HeadlessMessageBoxes boxes;
  std::unique_ptr<zv::PWM> pwm;
};

} // namespace zvtest
