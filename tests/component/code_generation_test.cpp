#include <chrono>

#include "fixture.h"

namespace zvtest {
namespace {

using ::testing::ElementsAre;

TEST_F(ComponentTest, PlaceholdersTakeTheCurrentSettings) {
  auto pwm = createWith({});
  struct Case {
    int16_t pr2, prescaler, useAlt, hasAlt;
    std::string in, out;
  };
  const std::vector<Case> cases{
      {100, 64, -1, 1, "A%aB%bC%dD", "A100B3C1D"},
      {100, 64, 0, 1, "A%aB%bC%dD", "A100B3C0D"},
      {255, -1, -1, 3, "%b%d", "03"},
      {255, -3, 0, 0, "%b", "7"},
      {255, 1024, 0, 0, "%b", "5"},
      {255, 0, 0, 0, "%b", "1"}, // a value outside the table
      {-5, 1, 0, 0, "%a%a%a", "-5-5-5"},
      {7, 1, 0, 0, "%%a %A%B%D %", "%7 %A%B%D %"},
      {7, 1, 0, 0, "", ""},
      {7, 1, 0, 0, "no placeholders", "no placeholders"},
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

TEST_F(ComponentTest, PlaceholdersOnALargeTextTakeOnePass) {
  auto pwm = createWith({});
  pwm->iPr2 = 10; // no replacement grows the text, so every position stays reachable
  std::string text;
  while (text.size() < 30 * 1024)
    text += "x%ay%bz%d";
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < 50; ++i) {
    std::string copy = text;
    ASSERT_TRUE(pwm->MacroCodeOverride(copy).ok());
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
}

TEST_F(ComponentTest, CodeComesFromBlocksAtStartupOrAtEachCall) {
  const std::vector<std::string> file{"[Settings]",
                                      "Description=Fix",
                                      "[MacroNames]",
                                      "Count=2",
                                      "1=On",
                                      "2=Off",
                                      "/*InitialisationCode_Start*/",
                                      "init %a;",
                                      "/*InitialisationCode_End*/",
                                      "/*InterruptCode_Start*/",
                                      "/*InterruptCode_End*/",
                                      "/*DefinesCode_Start*/",
                                      "#define A 1",
                                      "/*DefinesCode_End*/",
                                      "/*Macro_On_Start*/",
                                      "on();",
                                      "/*Macro_On_End*/"};
  auto pwm = createWith(file);
  ASSERT_TRUE(pwm->put_ZelvorVersion(1024).ok());
  std::string code;
  int32_t has = 0;
  ASSERT_TRUE(pwm->get_InitialisationCode(code).ok());
  EXPECT_EQ(code, "init %a;\n");
  ASSERT_TRUE(pwm->get_HasInitialisation(has).ok());
  EXPECT_EQ(has, -1);
  ASSERT_TRUE(pwm->get_HasInterrupts(has).ok());
  EXPECT_EQ(has, 0);
  ASSERT_TRUE(pwm->get_MacroCode(0, code).ok());
  EXPECT_EQ(code, "on();\n");
  ASSERT_TRUE(pwm->get_MacroCode(1, code).ok());
  EXPECT_EQ(code, "//Error Reading Code For Fix::Macro_Off\r\n");

  // The file changes: blocks read at each call follow it, the start-up ones don't.
  std::vector<std::string> changed = file;
  changed[7] = "init2;";
  changed[12] = "#define A 2";
  changed[15] = "on2();";
  writeCode(changed);
  ASSERT_TRUE(pwm->get_DefinesCode(code).ok());
  EXPECT_EQ(code, "#define A 2\n");
  ASSERT_TRUE(pwm->get_MacroCode(0, code).ok());
  EXPECT_EQ(code, "on2();\n");
  ASSERT_TRUE(pwm->get_InitialisationCode(code).ok());
  EXPECT_EQ(code, "init %a;\n");
  EXPECT_TRUE(boxes.texts.empty());

  ASSERT_TRUE(pwm->get_CodeFilename(code).ok());
  EXPECT_EQ(code, folder.path() + "/Fixture.c");
  ASSERT_TRUE(pwm->put_WriteCustomImages(3, "pic.bmp").ok());
  EXPECT_THAT(boxes.texts, ElementsAre("id=3  and filename = \r\npic.bmp"));
}

} // namespace
} // namespace zvtest
