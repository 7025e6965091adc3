// A PWM object built from a small code file in a temporary folder, with the
// panel's controls laid out, as the simulation tests need it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "component/core/pwm.h"
#include "platform/msgbox.h"

namespace zvtest {

// A zero-based array of Variant, as the host hands macro parameters.
zv::Variant params(std::vector<zv::Variant> items);
zv::Variant ints(std::initializer_list<int32_t> values);

// A code file named Fixture.c with macroCount macros under [MacroNames].
std::string writeFixtureFolder(int macroCount);

struct SimObject {
  explicit SimObject(int macroCount = 5, int16_t pwmCount = 2);
  ~SimObject();
  zv::HeadlessMessageBoxes boxes;
  std::unique_ptr<zv::PWM> pwm;
  std::string folder;
};

} // namespace zvtest
