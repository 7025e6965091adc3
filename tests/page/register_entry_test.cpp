#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "page_fixture.h"

namespace zv::test {
namespace {

const std::string kMessage = " Invalid Data ...\r\n Data range between 0 and 255";

struct TypingCase {
  const char* name;
  int startRegister;
  std::vector<std::string> edits; // the field's text after each keystroke or paste
  std::vector<std::string> shown; // the field's text after each edit
  int messages;
  int16_t pr2;
  int scroll;
  int lastEditCalcRuns;
};

class Typing : public ::testing::TestWithParam<TypingCase> {};

TEST_P(Typing, KeepsTextBarAndRegisterInStep) {
  const TypingCase& c = GetParam();
  PageTest t;
  Properties& p = t.page;
  p.txt_Pr2.setText(std::to_string(c.startRegister));
  t.resetWatch();
  p.site().setFocus(nullptr);

  std::vector<std::string> shown;
  for (const std::string& text : c.edits) {
    p.calcRuns = 0;
    p.txt_Pr2.setText(text);
    shown.push_back(p.txt_Pr2.Text());
  }
  EXPECT_EQ(shown, c.shown);
  EXPECT_EQ(t.boxes.texts, std::vector<std::string>(static_cast<size_t>(c.messages), kMessage));
  EXPECT_EQ(p.iPagePr2, c.pr2);
  EXPECT_EQ(p.VScroll1.Value(), c.scroll);
  EXPECT_EQ(p.calcRuns, c.lastEditCalcRuns);
  EXPECT_EQ(p.site().Changed(), c.lastEditCalcRuns > 0);
  EXPECT_EQ(p.site().focus(), c.messages > 0 ? &p.txt_Pr2 : nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    Table, Typing,
    ::testing::Values(
        TypingCase{"Typing300", 7, {"", "3", "30", "300"}, {"", "3", "30", "0"}, 1, 0, 255, 3},
        TypingCase{"Typing255", 7, {"", "2", "25", "255"}, {"", "2", "25", "255"}, 0, 255, 0, 2},
        TypingCase{"PlainNumber", 3, {"100"}, {"100"}, 0, 100, 155, 2},
        TypingCase{"LeadingZeroMovesBar", 3, {"07"}, {"7"}, 0, 7, 248, 3},
        TypingCase{"LeadingZeroSameRegister", 7, {"07"}, {"07"}, 0, 7, 248, 1},
        TypingCase{"HalfRoundsToEvenTwice", 3, {"12.5"}, {"13"}, 0, 13, 242, 3},
        TypingCase{"HalfRoundsUpToEven", 13, {"13.5"}, {"13.5"}, 0, 14, 242, 1},
        TypingCase{"BlanksAround", 3, {" 12 "}, {"12"}, 0, 12, 243, 3},
        TypingCase{"Emptied", 42, {""}, {""}, 0, 42, 213, 0},
        TypingCase{"EmptiedThenDigit", 42, {"", "9"}, {"", "9"}, 0, 9, 246, 2},
        TypingCase{"LoneMinus", 42, {"-"}, {"0"}, 1, 0, 255, 3},
        TypingCase{"JustAbove", 42, {"255.4"}, {"0"}, 1, 0, 255, 3},
        // From "0" the bar already stands at 255: only the nested and outer runs remain.
        TypingCase{"BadFromZero", 0, {"x"}, {"0"}, 1, 0, 255, 2}),
    caseName<TypingCase>);

struct BarCase {
  const char* name;
  int startRegister;
  int move; // +1 bottom arrow, -1 top arrow, else a value dragged to
  std::string text;
  int16_t pr2;
  int scroll;
  int calcRuns;
};

class Bar : public ::testing::TestWithParam<BarCase> {};

TEST_P(Bar, StepsTheRegisterAndStaysWithinRange) {
  const BarCase& c = GetParam();
  PageTest t;
  Properties& p = t.page;
  p.txt_Pr2.setText(std::to_string(c.startRegister));
  t.resetWatch();

  if (c.move == 1)
    p.VScroll1.arrowDown();
  else if (c.move == -1)
    p.VScroll1.arrowUp();
  else
    p.VScroll1.setValue(c.move);

  EXPECT_EQ(p.txt_Pr2.Text(), c.text);
  EXPECT_EQ(p.iPagePr2, c.pr2);
  EXPECT_EQ(p.VScroll1.Value(), c.scroll);
  EXPECT_EQ(p.calcRuns, c.calcRuns);
  EXPECT_EQ(p.site().Changed(), c.calcRuns > 0);
  EXPECT_TRUE(t.boxes.texts.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Table, Bar,
    ::testing::Values(BarCase{"TopArrowRaises", 100, -1, "101", 101, 154, 2},
                      BarCase{"BottomArrowLowers", 100, 1, "99", 99, 156, 2},
                      BarCase{"TopArrowAtHighest", 255, -1, "255", 255, 0, 0},
                      BarCase{"BottomArrowAtZero", 0, 1, "0", 0, 255, 2},
                      BarCase{"DragAboveFromRegister", 100, 1000, "0", 0, 255, 3},
                      BarCase{"DragToTopOfRangeFromZero", 0, 32767, "0", 0, 255, 2},
                      BarCase{"DragWithinRange", 100, 5, "250", 250, 5, 2}),
    caseName<BarCase>);

} // namespace
} // namespace zv::test
