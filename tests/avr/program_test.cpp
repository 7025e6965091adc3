#include <regex>

#include "harness.h"

namespace zvavr {
namespace {

TEST(Program, HasOneFunctionPerCalledMacroAndTheCallsInOrder) {
  Scenario s(byName("ATmega328P"));
  ASSERT_TRUE(
      s.run({{Enable, {1}}, {SetDuty, {1, 200}}, {Enable, {2}}, {SetDutyHighLow, {2, 3, 17}}}));
  std::string program, error;
  ASSERT_TRUE(zvhost::generateProgram(*s.pwm, s.calls, program, error)) << error;
  const size_t main = program.find("\nint main(void)");
  ASSERT_NE(main, std::string::npos);
  for (const char* text : {"#include <avr/io.h>", "\nvoid EnableChannel(unsigned char Channel)\n{",
                           "\nvoid SetDuty(unsigned char Channel, unsigned char Duty)\n{",
                           "\nvoid SetDutyHighLow(unsigned char Channel, unsigned char DutyHigh, "
                           "unsigned char DutyLow)\n{"})
    EXPECT_LT(program.find(text), main) << text;
  EXPECT_EQ(program.find("ChangePeriod"), std::string::npos);
  // Every text went through MacroCodeOverride: no placeholder is left.
  EXPECT_FALSE(std::regex_search(program, std::regex("%[abd]")));
  EXPECT_TRUE(program.ends_with("    EnableChannel(1);\n    SetDuty(1, 200);\n    EnableChannel(2);"
                                "\n    SetDutyHighLow(2, 3, 17);\n    for (;;) {}\n}\n"))
      << program;
}

TEST(Program, RefusesCallsThatNoFunctionCanTake) {
  struct Case {
    zvhost::MacroCall call;
    const char* error;
  };
  const Case cases[] = {
      {{9, {1}}, "no macro 9 in the component's table"},
      {{-1, {}}, "no macro -1 in the component's table"},
      {{2, {1}}, "SetDuty takes 2 arguments, not 1"},
      {{0, {1, 2}}, "EnableChannel takes 1 arguments, not 2"},
  };
  Scenario s(byName("ATmega328P"));
  for (const Case& c : cases) {
    std::string program = "untouched", error;
    EXPECT_FALSE(zvhost::generateProgram(*s.pwm, {c.call}, program, error));
    EXPECT_EQ(error, c.error);
    EXPECT_EQ(program, "untouched");
  }
}

// Settings and device choices that leave macros unused must still build
// warning-free for every device.
TEST(Program, BuildsWithoutCallsForEveryDeviceAndSetting) {
  for (const Device& device : allDevices()) {
    for (int16_t alt : {0, -1}) {
      SCOPED_TRACE(device.name + (alt ? " alternative pin" : ""));
      Scenario s(device);
      s.set("UseAltPin", zv::Variant::boolean(alt != 0));
      s.set("Pr2", zv::Variant::i2(255));
      s.set("Prescaler", zv::Variant::i2(-3));
      std::string program, error, log;
      ASSERT_TRUE(zvhost::generateProgram(*s.pwm, {}, program, error)) << error;
      const std::string dir = workDir("Program.BuildsWithoutCalls_" + device.name);
      EXPECT_TRUE(compile(device, dir, alt ? "alt" : "plain", program, log)) << log << program;
    }
  }
}

} // namespace
} // namespace zvavr
