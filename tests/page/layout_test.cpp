#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "page_fixture.h"

namespace zv::test {
namespace {

TEST(PageLayout, KeyboardOrderAmongFocusableControls) {
  Properties page;
  std::vector<Control*> focusable;
  for (Control* c : page.controls())
    if (c->kind() != "label" && c->kind() != "frame")
      focusable.push_back(c);
  std::sort(focusable.begin(), focusable.end(),
            [](Control* a, Control* b) { return a->TabIndex() < b->TabIndex(); });
  std::vector<std::string> names;
  for (Control* c : focusable)
    names.push_back(c->name());
  EXPECT_EQ(names, (std::vector<std::string>{"chkUseAltPin", "edtLabel1", "edtLabel2", "VScroll1",
                                             "txt_Pr2", "cboClockSource", "chkShowSim"}));
}

TEST(PageStartUp, ShowsDefaultsBeforeAnySelection) {
  PageTest t;
  Properties& p = t.page;
  EXPECT_EQ(p.cboClockSource.ListCount(), 8);
  EXPECT_EQ(p.cboClockSource.ListIndex(), 1);
  EXPECT_EQ(p.txt_Pr2.Text(), "0");
  EXPECT_EQ(p.VScroll1.Value(), 255);
  EXPECT_EQ(p.iPagePr2, 0);
  EXPECT_EQ(p.iPagePrescaler, 1);
  EXPECT_EQ(p.lblVersion.Caption(), "v4.0.0");
  EXPECT_EQ(p.lblPWMCount.Caption(), "");
  EXPECT_EQ(p.lblClockSpeed.Caption(), "0.0 kHz");
  EXPECT_EQ(p.Lbl_period.Caption(), "0.0 ms");
  EXPECT_EQ(p.Lbl_frequency.Caption(), "0.0 Hz");
  EXPECT_TRUE(p.site().Changed());
  // The bar's chain runs twice, the list's Click once.
  EXPECT_EQ(p.calcRuns, 3);
  EXPECT_TRUE(t.boxes.texts.empty());
}

} // namespace
} // namespace zv::test
