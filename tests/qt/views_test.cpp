// The views on bare control models: user actions reach the models through
// their setters, models reach the views, and nothing echoes.
#include <QImage>
#include <QTest>
#include <gtest/gtest.h>

#include "platform/controls/canvas.h"
#include "platform/controls/widgets.h"
#include "qt/canvas_view.h"
#include "qt/checkbox_view.h"
#include "qt/combobox_view.h"
#include "qt/label_view.h"
#include "qt/scrollbar_view.h"
#include "qt/textbox_view.h"
#include "qt_app.h"

namespace {

class ViewsTest : public ::testing::Test, zvqt_test::WithApp {
protected:
  void SetUp() override {
    zvqt::setErrorReporter([this](int number, const std::string&) { errors.push_back(number); });
  }
  void TearDown() override { zvqt::setErrorReporter(nullptr); }
  QWidget root;
  std::vector<int> errors;
};

// A handler in the manner of the page: a text above 255 is rewritten to "0".
void rewriteAbove255(zv::TextBox& box) {
  if (!box.Text().empty() && std::stoi(box.Text()) > 255)
    box.setText("0");
}

TEST_F(ViewsTest, TypedTextRunsOneChangePerKeyAndARewriteShowsWithoutEcho) {
  struct Case {
    const char* typed;
    const char* shown;
    std::vector<std::string> seen; // the model's text in each Change
  };
  const Case cases[] = {
      {"255", "255", {"2", "25", "255"}},
      {"300", "0", {"3", "30", "300", "0"}},
  };
  for (const Case& c : cases) {
    zv::TextBox box("txt");
    std::vector<std::string> seen;
    box.Change = [&] {
      seen.push_back(box.Text());
      rewriteAbove255(box);
    };
    zvqt::TextBoxView view(box, &root);
    QTest::keyClicks(&view, c.typed);
    EXPECT_EQ(view.text().toStdString(), c.shown) << c.typed;
    EXPECT_EQ(box.Text(), c.shown) << c.typed;
    EXPECT_EQ(seen, c.seen) << c.typed;
    EXPECT_EQ(view.cursorPosition(), view.text().size()) << c.typed;
  }
}

// A handler in the manner of the page: values above 255 come back to 255.
void pullBackAbove255(zv::ScrollBar& bar) {
  if (bar.Value() > 255)
    bar.setValue(255);
}

TEST_F(ViewsTest, ScrollBarActionsGoThroughTheModel) {
  struct Case {
    int start;
    QAbstractSlider::SliderAction action;
    int end;
    int changes;
  };
  const Case cases[] = {
      {10, QAbstractSlider::SliderSingleStepSub, 9, 1},
      {10, QAbstractSlider::SliderSingleStepAdd, 11, 1},
      {0, QAbstractSlider::SliderSingleStepSub, 0, 0},
      {255, QAbstractSlider::SliderSingleStepAdd, 255, 2}, // 256, then back to 255
      {250, QAbstractSlider::SliderPageStepAdd, 255, 2},   // 260, then back
  };
  for (const Case& c : cases) {
    zv::ScrollBar bar("bar");
    bar.setChanges(1, 10);
    bar.setValue(c.start);
    int changes = 0;
    bar.Change = [&] {
      ++changes;
      pullBackAbove255(bar);
    };
    zvqt::ScrollBarView view(bar, &root);
    view.triggerAction(c.action);
    EXPECT_EQ(bar.Value(), c.end) << c.start << " " << c.action;
    EXPECT_EQ(view.value(), c.end) << c.start << " " << c.action;
    EXPECT_EQ(changes, c.changes) << c.start << " " << c.action;
  }
  EXPECT_TRUE(errors.empty());
}

TEST_F(ViewsTest, AFailureInsideANotificationIsReportedNotThrown) {
  zv::ScrollBar bar("bar");
  bar.Change = [] { zv::raise(zv::errOverflow); };
  zvqt::ScrollBarView view(bar, &root);
  view.triggerAction(QAbstractSlider::SliderSingleStepAdd);
  EXPECT_EQ(errors, std::vector<int>{zv::errOverflow});
  EXPECT_EQ(view.value(), bar.Value());
}

TEST_F(ViewsTest, ListAndCheckBoxFollowClicksAndModel) {
  zv::ComboBox combo("cbo");
  int clicks = 0;
  combo.Click = [&] { ++clicks; };
  zvqt::ComboBoxView comboView(combo, &root);
  combo.AddItem("a");
  combo.AddItem("b");
  EXPECT_EQ(comboView.count(), 2);
  EXPECT_EQ(comboView.currentIndex(), -1);
  emit comboView.activated(1);
  EXPECT_EQ(combo.ListIndex(), 1);
  emit comboView.activated(1);
  EXPECT_EQ(clicks, 1);
  combo.Clear();
  EXPECT_EQ(comboView.count(), 0);

  zv::CheckBox check("chk");
  zvqt::CheckBoxView checkView(check, &root);
  check.setValue(2);
  EXPECT_EQ(checkView.checkState(), Qt::PartiallyChecked);
  // A click never leads into the greyed state, whatever the box showed.
  const int afterClicks[] = {1, 0, 1, 0};
  for (int expected : afterClicks) {
    checkView.click();
    EXPECT_EQ(check.Value(), expected);
    EXPECT_EQ(checkView.checkState(), expected ? Qt::Checked : Qt::Unchecked);
  }
}

TEST_F(ViewsTest, GeometryEnablingAndVisibilityFollowTheModel) {
  zv::Label label("lbl");
  zv::TextBox box("txt");
  zvqt::LabelView labelView(label, &root);
  zvqt::TextBoxView boxView(box, &root);
  const std::vector<std::pair<zv::Control*, QWidget*>> pairs = {{&label, &labelView},
                                                                {&box, &boxView}};
  for (auto [control, view] : pairs) {
    control->Move(1515, 345, 495, 315);
    EXPECT_EQ(view->geometry(), QRect(101, 23, 33, 21)) << control->name();
    control->setEnabled(false);
    control->setVisible(false);
    EXPECT_FALSE(view->isEnabled()) << control->name();
    EXPECT_TRUE(view->isHidden()) << control->name();
  }
  label.setCaption("CCP1");
  label.setBorderStyle(1);
  label.setAlignment(zv::Label::Center);
  EXPECT_EQ(labelView.text(), "CCP1");
  EXPECT_EQ(labelView.frameShape(), QFrame::Box);
  EXPECT_TRUE(labelView.alignment() & Qt::AlignHCenter);
}

TEST_F(ViewsTest, CanvasPaintsBackgroundAndRecordedDrawingInsideItsBorder) {
  zv::Canvas canvas("pic");
  canvas.Move(0, 0, 1500, 1500); // 100 x 100 pixels
  canvas.setBorderWidth(30);     // 2 pixels
  canvas.setBackColor(zv::rgb(0, 192, 0));
  canvas.Cls();
  canvas.setForeColor(zv::rgb(255, 255, 0));
  canvas.Line(0, 300, 1200, 300); // inner row 20
  canvas.setForeColor(zv::rgb(255, 255, 255));
  canvas.Box(600, 600, 900, 900);
  QImage image(100, 100, QImage::Format_RGB32);
  image.fill(Qt::black);
  QPainter painter(&image);
  zvqt::paintCanvas(painter, canvas, zvqt::kPixelsPerTwip);
  painter.end();
  const QColor green(0, 192, 0), yellow(255, 255, 0), white(255, 255, 255);
  struct Probe {
    int x, y;
    QColor color;
  };
  const Probe probes[] = {
      {50, 80, green},         {2 + 10, 2 + 20, yellow}, {2 + 40, 2 + 50, white},
      {2 + 60, 2 + 50, white}, {2 + 50, 2 + 50, green}, // inside the box outline
  };
  for (const Probe& p : probes)
    EXPECT_EQ(image.pixelColor(p.x, p.y), p.color) << p.x << "," << p.y;
  EXPECT_EQ(image.pixelColor(0, 0), QColor(128, 128, 128)); // the border
}

} // namespace
