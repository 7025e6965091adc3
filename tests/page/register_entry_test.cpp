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

TEST(Typing, KeepsTextBarAndRegisterInStep) {
  const TypingCase cases[] = {
      {"Typing300", 7, {"", "3", "30", "300"}, {"", "3", "30", "0"}, 1, 0, 255, 3},
      {"Typing255", 7, {"", "2", "25", "255"}, {"", "2", "25", "255"}, 0, 255, 0, 2},
      {"PlainNumber", 3, {"100"}, {"100"}, 0, 100, 155, 2},
      {"LeadingZeroMovesBar", 3, {"07"}, {"7"}, 0, 7, 248, 3},
      {"LeadingZeroSameRegister", 7, {"07"}, {"07"}, 0, 7, 248, 1},
      {"HalfRoundsToEvenTwice", 3, {"12.5"}, {"13"}, 0, 13, 242, 3},
      {"HalfRoundsUpToEven", 13, {"13.5"}, {"13.5"}, 0, 14, 242, 1},
      {"BlanksAround", 3, {" 12 "}, {"12"}, 0, 12, 243, 3},
      {"Emptied", 42, {""}, {""}, 0, 42, 213, 0},
      {"EmptiedThenDigit", 42, {"", "9"}, {"", "9"}, 0, 9, 246, 2},
      {"LoneMinus", 42, {"-"}, {"0"}, 1, 0, 255, 3},
      {"JustAbove", 42, {"255.4"}, {"0"}, 1, 0, 255, 3},
      // From "0" the bar already stands at 255: only the nested and outer runs remain.
      {"BadFromZero", 0, {"x"}, {"0"}, 1, 0, 255, 2}};
  for (const TypingCase& c : cases) {
    SCOPED_TRACE(c.name);
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
}

struct BarCase {
  const char* name;
  int startRegister;
  int move; // +1 bottom arrow, -1 top arrow, else a value dragged to
  std::string text;
  int16_t pr2;
  int scroll;
  int calcRuns;
};

TEST(Bar, StepsTheRegisterAndStaysWithinRange) {
  const BarCase cases[] = {{"TopArrowRaises", 100, -1, "101", 101, 154, 2},
                           {"BottomArrowLowers", 100, 1, "99", 99, 156, 2},
                           {"TopArrowAtHighest", 255, -1, "255", 255, 0, 0},
                           {"BottomArrowAtZero", 0, 1, "0", 0, 255, 2},
                           {"DragAboveFromRegister", 100, 1000, "0", 0, 255, 3},
                           {"DragToTopOfRangeFromZero", 0, 32767, "0", 0, 255, 2},
                           {"DragWithinRange", 100, 5, "250", 250, 5, 2}};
  for (const BarCase& c : cases) {
    SCOPED_TRACE(c.name);
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
}

} // namespace
} // namespace zv::test
