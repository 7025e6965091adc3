#include "fixture.h"

namespace zvtest {
namespace {

TEST_F(ComponentTest, PlaceholdersTakeTheCurrentSettings) {
  auto pwm = createWith({});
  struct Case {
    int16_t pr2, prescaler, useAlt, hasAlt;
    std::string in, out;
  };
  const std::vector<Case> cases{
      {100, 64, -1, 1, "A%aB%bC%dD", "A100B3C1D"},
      {255, -1, -1, 3, "%b%d", "03"},
      {255, -3, 0, 0, "%b", "7"},
      {255, 1024, 0, 0, "%b", "5"},
      {255, 0, 0, 0, "%b", "1"}, // a value outside the table
      {-5, 1, 0, 0, "%a%a%a", "-5-5-5"},
      {7, 1, 0, 0, "%%a %A%B%D %", "%7 %A%B%D %"},
  };
  for (const Case& c : cases) {
    pwm->iPr2 = c.pr2;
    pwm->iPrescaler = c.prescaler;
    pwm->bUseAltPin = c.useAlt;
    pwm->iHasAltPin = c.hasAlt;
    std::string text = c.in;
    ASSERT_TRUE(pwm->MacroCodeOverride(text).ok()) << c.in;
    EXPECT_EQ(text, c.out) << c.in;
  }
}

TEST_F(ComponentTest, PlaceholderBeyond16BitPositionsFailsWithWhatWasReplaced) {
  auto pwm = createWith({});
  pwm->iPr2 = 1000; // each "%a" grows by two characters
  struct Case {
    size_t padding; // characters ahead of the last "%a"
    bool ok;
  };
  // Positions count in the text as replaced so far: the three "%a" ahead add six.
  for (const Case& c : {Case{32752, true}, Case{32753, false}}) {
    std::string text = "%a%a%a" + std::string(c.padding, 'x') + "%a";
    zv::Status s = pwm->MacroCodeOverride(text);
    EXPECT_EQ(s.ok(), c.ok) << c.padding;
    EXPECT_EQ(text.substr(0, 12), "100010001000");
    EXPECT_EQ(text.ends_with(c.ok ? "1000" : "%a"), true) << c.padding;
    if (!c.ok) {
      EXPECT_EQ(s.number, zv::errOverflow);
    }
  }
}

// What each block answers is pinned by the host script; here, when it is read.
TEST_F(ComponentTest, CodeComesFromBlocksAtStartupOrAtEachCall) {
  auto code = [](const char* init, const char* defines, const char* on) {
    return std::vector<std::string>{"[MacroNames]",
                                    "Count=1",
                                    "1=On",
                                    "/*InitialisationCode_Start*/",
                                    init,
                                    "/*InitialisationCode_End*/",
                                    "/*DefinesCode_Start*/",
                                    defines,
                                    "/*DefinesCode_End*/",
                                    "/*Macro_On_Start*/",
                                    on,
                                    "/*Macro_On_End*/"};
  };
  auto pwm = createWith(code("init %a;", "#define A 1", "on();"));
  ASSERT_TRUE(pwm->put_ZelvorVersion(1024).ok());
  writeCode(code("init2;", "#define A 2", "on2();"));
  std::string text;
  ASSERT_TRUE(pwm->get_DefinesCode(text).ok());
  EXPECT_EQ(text, "#define A 2\n");
  ASSERT_TRUE(pwm->get_MacroCode(0, text).ok());
  EXPECT_EQ(text, "on2();\n");
  ASSERT_TRUE(pwm->get_InitialisationCode(text).ok());
  EXPECT_EQ(text, "init %a;\n");
  EXPECT_TRUE(boxes.texts.empty());
}

} // namespace
} // namespace zvtest
