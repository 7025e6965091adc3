#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "page_fixture.h"
#include "platform/vbnum.h"

namespace zv::test {
namespace {

struct StoredCase {
  const char* name;
  int16_t pr2, prescaler;
  const char* shownPr2;
  int listIndex;
  int calcRuns;
  int16_t appliedPr2, appliedPrescaler;
};

TEST(StoredValues, ShowRecalculateAndApplyWhatThePageHolds) {
  const StoredCase cases[] = {{"NothingMoves", 0, 1, "0", 1, 1, 0, 1},
                              {"RegisterMoves", 255, 1, "255", 1, 3, 255, 1},
                              {"SourceMoves", 0, 8, "0", 2, 2, 0, 8},
                              {"BothMove", 99, -3, "99", 7, 4, 99, -3},
                              {"RegisterAboveRange", 300, 1, "44", 1, 3, 44, 1},
                              {"RegisterMinusOne", -1, 1, "255", 1, 3, 255, 1},
                              {"UnknownPrescaler", 0, 5, "0", 0, 2, 0, -1}};
  for (const StoredCase& c : cases) {
    SCOPED_TRACE(c.name);
    PageTest t;
    t.resetWatch();
    Device d;
    d.pr2 = c.pr2;
    d.prescaler = c.prescaler;
    ASSERT_TRUE(t.select(d).ok());
    EXPECT_EQ(t.page.txt_Pr2.Text(), c.shownPr2);
    EXPECT_EQ(t.page.cboClockSource.ListIndex(), c.listIndex);
    EXPECT_EQ(t.page.calcRuns, c.calcRuns);
    ASSERT_TRUE(t.page.PropertyPage_ApplyChanges().ok());
    EXPECT_EQ(toI2(t.component.props["Pr2"]), c.appliedPr2);
    EXPECT_EQ(toI2(t.component.props["Prescaler"]), c.appliedPrescaler);
  }
}

struct EnablingCase {
  const char* name;
  int32_t channels, divider;
  int16_t hasAltPin;
  bool useAltPin;
  bool altEnabled, editEnabled, label2Enabled;
  int altBox;
};

TEST(Enabling, FollowsChannelsAndAlternativePinAtEverySelection) {
  const EnablingCase cases[] = {{"NoChannel", 0, 1, 1, true, false, false, false, 0},
                                {"OneWithPinUsed", 1, 1, 1, true, true, true, false, 1},
                                {"OneWithPinUnused", 1, 1, 1, false, true, true, false, 0},
                                {"OneWithoutPin", 1, 1, 0, true, false, true, false, 0},
                                {"TwoWithPin", 2, 2, -1, true, true, true, true, 1},
                                {"TwoWithoutPin", 2, 4, 0, true, false, true, true, 0}};
  for (const EnablingCase& c : cases) {
    SCOPED_TRACE(c.name);
    PageTest t;
    Device d;
    d.maxPwm = c.divider * 256 + c.channels;
    d.hasAltPin = c.hasAltPin;
    d.useAltPin = c.useAltPin;
    ASSERT_TRUE(t.select(d).ok());
    ASSERT_TRUE(t.select(d).ok()); // the second shows the same, though its values don't change
    Properties& p = t.page;
    EXPECT_EQ(p.iPagePwmCount, c.channels);
    EXPECT_EQ(p.iPageClockDivider, c.divider);
    EXPECT_EQ(p.chkUseAltPin.Enabled(), c.altEnabled);
    for (Control* ctl :
         std::vector<Control*>{&p.txt_Pr2, &p.VScroll1, &p.cboClockSource, &p.edtLabel1})
      EXPECT_EQ(ctl->Enabled(), c.editEnabled) << ctl->name();
    EXPECT_EQ(p.edtLabel2.Enabled(), c.label2Enabled);
    EXPECT_TRUE(p.chkShowSim.Enabled());
    EXPECT_EQ(p.chkUseAltPin.Value(), c.altBox);
    // The stored setting survives a box that can't show it.
    EXPECT_EQ(p.bPageUseAltPin, c.useAltPin);
  }
}

TEST(Apply, WritesSixPropertiesInOrderEvenWhenNothingIsEnabled) {
  PageTest t;
  Device d;
  d.maxPwm = 0;
  d.useAltPin = true;
  ASSERT_TRUE(t.select(d).ok());
  t.page.cboClockSource.setListIndex(2);
  t.page.chkShowSim.setValue(0);
  t.page.txt_Pr2.setText("12.5"); // rewritten as "13"
  t.page.txt_Pr2.setText("13.5"); // kept: iPagePr2 14
  EXPECT_TRUE(t.component.writes.empty());
  ASSERT_TRUE(t.page.PropertyPage_ApplyChanges().ok());
  const std::vector<std::pair<std::string, Variant>> expected{
      {"Prescaler", Variant::i2(8)},         {"Pr2", Variant::i2(14)},
      {"UseAltPin", Variant::boolean(true)}, {"ShowSim", Variant::boolean(false)},
      {"Label1", Variant::str("Motor")},     {"Label2", Variant::str("Fan")}};
  EXPECT_EQ(t.component.writes, expected);
}

TEST(Apply, EmptyRegisterFailsAfterThePrescaler) {
  PageTest t;
  ASSERT_TRUE(t.select(Device{}).ok());
  t.page.txt_Pr2.setText("");
  EXPECT_EQ(t.page.PropertyPage_ApplyChanges().number, errTypeMismatch);
  ASSERT_EQ(t.component.writes.size(), 1u);
  EXPECT_EQ(t.component.writes[0].first, "Prescaler");
}

TEST(Selection, NothingSelectedFailsWithSubscript) {
  PageTest t;
  EXPECT_EQ(t.page.PropertyPage_SelectionChanged().number, errSubscript);
  EXPECT_EQ(t.page.PropertyPage_ApplyChanges().number, errSubscript);
}

TEST(Clicks, OnlyTheListRecalculates) {
  PageTest t;
  ASSERT_TRUE(t.select(Device{}).ok());
  t.resetWatch();
  Properties& p = t.page;
  p.chkShowSim.setValue(0);
  p.chkUseAltPin.setValue(1);
  EXPECT_FALSE(p.bPageShowSim);
  EXPECT_TRUE(p.bPageUseAltPin);
  EXPECT_EQ(p.calcRuns, 0);
  EXPECT_TRUE(p.site().Changed());
  p.cboClockSource.setListIndex(6);
  p.cboClockSource.setListIndex(-1); // nothing selected keeps the prescaler
  EXPECT_EQ(p.iPagePrescaler, -2);
  EXPECT_EQ(p.calcRuns, 2);
}

} // namespace
} // namespace zv::test
