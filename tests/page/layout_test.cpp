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

} // namespace
} // namespace zv::test
