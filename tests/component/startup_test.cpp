#include "fixture.h"

namespace zvtest {
namespace {

using ::testing::ElementsAre;

TEST_F(ComponentTest, WithoutCodeFileStartupShowsEightBoxesAndKeepsDefaults) {
  auto pwm = create();
  const std::string missing =
      "Error - cannot find C code file:\r\n\r\n" + folder.path() + "/Fixture.c";
  EXPECT_THAT(boxes.texts, ElementsAre(missing, missing, missing, missing, "File not found",
                                       missing, "File not found", missing));
  EXPECT_EQ(pwm->sDescription, "default");
  EXPECT_EQ(pwm->sInitialisationCode, "");
  EXPECT_EQ(pwm->aPins[0]->PinName, "Pin A0");
  EXPECT_EQ(pwm->iPr2, 255);
  EXPECT_EQ(pwm->sCodeFilename, "Fixture.c");
}

TEST_F(ComponentTest, BoxesGoToTheServiceTheObjectHoldsNow) {
  auto pwm = createWith({});
  zv::HeadlessMessageBoxes later;
  pwm->setMessageBoxes(&later);
  ASSERT_TRUE(pwm->put_WriteCustomImages(3, "x").ok());
  EXPECT_TRUE(boxes.texts.empty());
  EXPECT_EQ(later.texts.size(), 1u);
}

TEST_F(ComponentTest, SettingsAreReadAsBooleansAndText) {
  auto pwm =
      createWith({"[Settings]", "IsAnalogue=TRUE", "MultipleAllowed=2", "Description=PWM fixture"});
  int32_t multiple = 0;
  ASSERT_TRUE(pwm->get_MultipleAllowed(multiple).ok());
  EXPECT_EQ(multiple, -1);
  EXPECT_EQ(pwm->bIsAnalogue, -1);
  EXPECT_EQ(pwm->sDescription, "PWM fixture");
}

TEST_F(ComponentTest, HelpFileIsLookedForAsHlpThenChm) {
  struct Case {
    std::vector<std::string> files;
    std::string chosen; // empty: none, and a message box
  };
  const std::vector<Case> cases{
      {{"help/Fixture.hlp", "help/Fixture.chm"}, "help/Fixture.hlp"},
      {{"help/Fixture.chm"}, "help/Fixture.chm"},
      {{"help/Other.hlp"}, ""},
  };
  for (const Case& c : cases) {
    TempFolder here;
    here.write("Fixture.c", crlf({"[Settings]"}));
    for (const auto& f : c.files)
      here.write(f, "");
    boxes.texts.clear();
    zv::PWM pwm(zv::LibraryFacts{here.path(), "Fixture", 4, 0, 0}, &boxes);
    if (c.chosen.empty()) {
      EXPECT_EQ(pwm.appHelpFile, "");
      EXPECT_THAT(boxes.texts, ElementsAre("Can't find Fixture help file"));
    } else {
      EXPECT_EQ(pwm.appHelpFile, here.path() + "/" + c.chosen);
      EXPECT_TRUE(boxes.texts.empty());
    }
  }
}

TEST_F(ComponentTest, ZelvorVersionSplitsMajorAndMinor) {
  auto pwm = createWith({"[Settings]"});
  struct Case {
    int32_t rhs;
    bool ok;
    int16_t major, minor;
  };
  const std::vector<Case> cases{
      {1025, true, 4, 1},          {255, true, 0, 255},          {-1, true, -1, 255},
      {8388607, true, 32767, 255}, {8388608, false, 32767, 255}, {-8388609, false, 32767, 255},
      {-8388608, true, -32768, 0},
  };
  for (const Case& c : cases) {
    zv::Status s = pwm->put_ZelvorVersion(c.rhs);
    EXPECT_EQ(s.ok(), c.ok) << c.rhs;
    if (!c.ok) {
      EXPECT_EQ(s.number, zv::errOverflow);
    }
    EXPECT_EQ(pwm->iVersionMajor, c.major) << c.rhs;
    EXPECT_EQ(pwm->iVersionMinor, c.minor) << c.rhs;
  }
}

} // namespace
} // namespace zvtest
