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
      {{2, {1}, "line 4"}, "SetDuty takes 2 arguments, not 1 (line 4)"},
  };
  Scenario s(byName("ATmega328P"));
  for (const Case& c : cases) {
    std::string program = "untouched", error;
    EXPECT_FALSE(zvhost::generateProgram(*s.pwm, {c.call}, program, error));
    EXPECT_EQ(error, c.error);
    EXPECT_EQ(program, "untouched");
  }
}

TEST(Program, DropsArgumentsBeyondTheMacrosParameters) {
  Scenario s(byName("ATmega328P"));
  std::string program, error;
  ASSERT_TRUE(
      zvhost::generateProgram(*s.pwm, {{Enable, {1, 7}}, {SetDuty, {1, 9, 9, 9}}}, program, error))
      << error;
  EXPECT_NE(program.find("    EnableChannel(1);\n    SetDuty(1, 9);\n"), std::string::npos);
}

// Changes made outside the macros while the simulation ran: the program makes
// them where they happened, or says why it cannot.
TEST(Program, ReplaysSettingsChangedDuringTheRun) {
  const zvhost::Settings start{"199", "2", "0", 16000000};
  auto with = [&](const char* pr2, const char* source, const char* alt, int32_t hertz) {
    return zvhost::Settings{pr2, source, alt, hertz};
  };
  struct Case {
    zvhost::Settings after;
    const char* wanted; // in main, or the error
    bool made;
  };
  const Case cases[] = {
      {with("99", "1", "0", 16000000),
       "    EnableChannel(1);\n    ChangePeriod(99, 1); /* settings changed (line 7) */\n"
       "    SetDuty(1, 50);\n",
       true},
      {with("199", "2", "1", 16000000),
       "the alternative pin changed while the simulation ran (line 7): one program cannot change "
       "it while it runs",
       false},
      {with("199", "2", "0", 8000000),
       "the clock changed while the simulation ran (line 7): one program cannot change it while it "
       "runs",
       false},
      {{"199", "1", "0", 16000000, 3},
       "the prescaler is 3 (line 7), which is no clock source of Timer1",
       false},
      {with("300", "2", "0", 16000000),
       "the period register became 300 while the simulation ran (line 7): the period macro takes "
       "0 to 255",
       false},
  };
  Scenario s(byName("ATmega328P"));
  for (const Case& c : cases) {
    zvhost::Simulation sim;
    sim.start = start;
    sim.deviceFile = s.device.file;
    sim.steps = {zvhost::MacroCall{Enable, {1}}, zvhost::SettingsChange{start, c.after, "line 7"},
                 zvhost::MacroCall{SetDuty, {1, 50}}};
    std::string program, error;
    EXPECT_EQ(zvhost::generateProgram(*s.pwm, sim, program, error), c.made) << error;
    if (c.made) {
      EXPECT_NE(program.find(c.wanted), std::string::npos) << program;
      // Made from the settings it began with, and saying so.
      EXPECT_NE(program.find("#define ZV_PWM_PR2 199\n"), std::string::npos);
      EXPECT_NE(program.find(" * Device: ATmega328P (avr-gcc -mmcu=atmega328p)"),
                std::string::npos);
      EXPECT_NE(program.find("period register 199, clock source 2, alternative pin 0"),
                std::string::npos);
      EXPECT_NE(program.find("#define F_CPU 16000000UL"), std::string::npos);
    } else {
      EXPECT_EQ(error, c.wanted);
    }
  }
}

// A period register past 255 is Timer1's to do up to 32767; below 0 the
// program stops at compile time, saying why.
TEST(Program, PeriodRegisterOutsideAByteBuildsOrStopsWithAReason) {
  const Device device = byName("ATmega328P");
  {
    Scenario s(device);
    s.set("Pr2", zv::Variant::i2(300));
    s.set("Prescaler", zv::Variant::i2(1));
    ASSERT_TRUE(s.run({{Enable, {1}}, {SetDuty, {1, 100}}}));
    EXPECT_EQ(s.expected(1).period, 602u);
    expectOnChip(s, {.channel2 = false});
  }
  Scenario s(device);
  s.set("Pr2", zv::Variant::i2(-5));
  std::string program, error, log;
  ASSERT_TRUE(zvhost::generateProgram(*s.pwm, zvhost::Simulation{}, program, error)) << error;
  EXPECT_FALSE(compile(device, workDir("Program.PeriodRegisterBelowZero"), "pwm", program, log));
  EXPECT_NE(log.find("#error \"AVR PWM: period register -5 is outside 0..32767, which Timer1 "
                     "cannot do\""),
            std::string::npos)
      << log;
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
      ASSERT_TRUE(zvhost::generateProgram(*s.pwm, zvhost::Simulation{}, program, error)) << error;
      const std::string dir = workDir("Program.BuildsWithoutCalls_" + device.name);
      EXPECT_TRUE(compile(device, dir, alt ? "alt" : "plain", program, log)) << log << program;
    }
  }
}

} // namespace
} // namespace zvavr
