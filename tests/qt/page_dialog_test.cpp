// The property page in its dialog: a user's edit runs the same chain as a
// script's edit, and Apply follows the site's Changed flag.
#include <QCheckBox>
#include <QLineEdit>
#include <QTest>
#include <functional>
#include <gtest/gtest.h>

#include "platform/msgbox.h"
#include "platform/vbnum.h"
#include "plugin_fixture.h"
#include "qt/page_dialog.h"
#include "qt_app.h"

namespace {

class PageDialogTest : public ::testing::Test, zvqt_test::WithApp {
protected:
  void SetUp() override {
    component = zvqt_test::makeComponent("ATmega328P", &boxes);
    ASSERT_TRUE(component);
    zv::Status status;
    page = zvqt_test::plugin().createPage(status, &boxes);
    ASSERT_TRUE(page) << status.description;
    page->site().SelectedControls = {&component->publicInterface()};
    ASSERT_TRUE(page->PropertyPage_SelectionChanged().ok());
    dialog = std::make_unique<zvqt::PageDialog>(*page);
    pr2 = qobject_cast<QLineEdit*>(dialog->pageWidget()->viewOf("txt_Pr2"));
    ASSERT_TRUE(pr2);
  }
  void TearDown() override { dialog.reset(); }
  void clearRegister() {
    pr2->selectAll();
    QTest::keyClick(pr2, Qt::Key_Backspace);
  }
  int componentPr2() { return zv::toI4(component->publicInterface().getProperty("Pr2")); }

  zv::HeadlessMessageBoxes boxes;
  zvhost::Plugin::ComponentPtr component;
  zvhost::Plugin::PagePtr page;
  std::unique_ptr<zvqt::PageDialog> dialog;
  QLineEdit* pr2 = nullptr;
};

TEST_F(PageDialogTest, ApplyIsEnabledExactlyWhileChanged) {
  auto* showSim = qobject_cast<QCheckBox*>(dialog->pageWidget()->viewOf("chkShowSim"));
  ASSERT_TRUE(showSim);
  struct Step {
    const char* what;
    std::function<void()> act;
    bool enabled;
  };
  const Step steps[] = {
      {"after the selection", [] {}, true},
      {"apply", [&] { dialog->applyButton()->click(); }, false},
      {"typing a digit", [&] { QTest::keyClicks(pr2, "7"); }, true},
      {"apply again", [&] { dialog->applyButton()->click(); }, false},
      {"a check box click", [&] { showSim->click(); }, true},
  };
  for (const Step& step : steps) {
    step.act();
    EXPECT_EQ(page->site().Changed(), step.enabled) << step.what;
    EXPECT_EQ(dialog->applyButton()->isEnabled(), step.enabled) << step.what;
  }
}

TEST_F(PageDialogTest, OkAppliesTheEditsThenCloses) {
  clearRegister();
  QTest::keyClicks(pr2, "100");
  dialog->okButton()->click();
  EXPECT_EQ(dialog->result(), QDialog::Accepted);
  EXPECT_EQ(componentPr2(), 100);
  EXPECT_FALSE(page->site().Changed());
}

TEST_F(PageDialogTest, AFailedApplyKeepsTheDialogOpenAndChangedSet) {
  dialog->show();
  const QSize size = dialog->size();
  // An empty register has no 16-bit value for Pr2.
  clearRegister();
  dialog->okButton()->click();
  EXPECT_NE(dialog->result(), QDialog::Accepted);
  EXPECT_TRUE(page->site().Changed());
  EXPECT_TRUE(dialog->applyButton()->isEnabled());
  EXPECT_TRUE(dialog->failureLabel()->text().startsWith(
      "Not applied: the period register box is empty or holds no number."));
  EXPECT_EQ(dialog->size(), size);
  // The sentence goes with the next apply that works.
  QTest::keyClicks(pr2, "5");
  dialog->applyButton()->click();
  EXPECT_TRUE(dialog->failureLabel()->text().isEmpty());
  EXPECT_EQ(dialog->size(), size);
}

} // namespace
