// The views on bare control models: user actions reach the models through
// their setters, models reach the views, and nothing echoes.
#include <QBuffer>
#include <QImage>
#include <QLabel>
#include <QSvgGenerator>
#include <QSvgRenderer>
#include <QTest>
#include <cstdlib>
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

TEST_F(ViewsTest, TypedTextReachesTheModelInWindows1252) {
  zv::TextBox box("txt");
  zvqt::TextBoxView view(box, &root);
  // keyClicks knows ASCII keys only; these carry their characters as a keyboard does.
  for (QChar c : QString::fromUtf8("Caf\xC3\xA9\xE2\x86\x92"))
    QTest::sendKeyEvent(QTest::Click, &view, Qt::Key_unknown, QString(c), Qt::NoModifier);
  EXPECT_EQ(box.Text(), "Caf\xE9?"); // no Windows-1252 byte for the arrow
  EXPECT_EQ(view.text(), QString::fromUtf8("Caf\xC3\xA9?"));
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

QImage grab(QWidget& widget) {
  QImage image(widget.size(), QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::white);
  widget.render(&image);
  return image;
}

// The pixels where two pictures of one size differ, as "x,y" texts.
std::vector<std::string> differences(const QImage& a, const QImage& b) {
  std::vector<std::string> at;
  for (int y = 0; y < a.height(); ++y)
    for (int x = 0; x < a.width(); ++x)
      if (a.pixelColor(x, y) != b.pixelColor(x, y))
        at.push_back(std::to_string(x) + "," + std::to_string(y));
  return at;
}

// A label view keeps its edge and laid-out caption as a picture; what shows
// must be what a plain QLabel with a real one-pixel box shows.
TEST_F(ViewsTest, LabelsShowWhatAPlainQLabelShows) {
  const struct {
    const char* caption;
    int alignment;
    int border;
    float width;
  } rows[] = {
      {"CCP1", zv::Label::Center, 1, 2475},
      {"Prompt:", zv::Label::RightJustify, 0, 600},
      {"A prompt far wider than its box", zv::Label::RightJustify, 0, 600},
      {"words that wrap onto a second line", zv::Label::LeftJustify, 0, 900},
      {"boxed and wrapped over lines", zv::Label::Center, 1, 900},
      {"line\r\nbreak\ttab", zv::Label::LeftJustify, 1, 2000},
      {"", zv::Label::Center, 1, 600},
  };
  for (const auto& r : rows) {
    SCOPED_TRACE(r.caption);
    zv::Label label("lbl");
    label.setCaption(r.caption);
    label.setAlignment(r.alignment);
    label.setBorderStyle(r.border);
    label.Move(1200, 0, r.width, 500);
    zvqt::LabelView view(label, &root);
    QLabel plain(&root);
    plain.setGeometry(view.geometry());
    plain.setFont(view.font());
    plain.setPalette(view.palette());
    plain.setAutoFillBackground(view.autoFillBackground());
    plain.setTextFormat(Qt::PlainText);
    plain.setText(view.text());
    plain.setAlignment(view.alignment());
    plain.setWordWrap(view.wordWrap());
    if (r.border == 1) {
      plain.setFrameStyle(QFrame::Box | QFrame::Plain);
      plain.setIndent(0); // the text starts inside the edge, not half an "x" further
    }
    for (int paint = 0; paint < 2; ++paint) // the second from the kept picture
      EXPECT_EQ(differences(grab(view), grab(plain)), std::vector<std::string>{});
    // What the kept picture was painted from changes: it is painted again.
    label.setCaption(std::string(r.caption) + " more");
    plain.setGeometry(view.geometry()); // a prompt grows to fit
    plain.setText(view.text());
    EXPECT_EQ(differences(grab(view), grab(plain)), std::vector<std::string>{});
    label.setEnabled(false);
    plain.setEnabled(false);
    EXPECT_EQ(differences(grab(view), grab(plain)), std::vector<std::string>{});
  }
}

// A canvas view keeps a picture with its lines written straight into the
// pixels, and draws a text as glyphs at first and copied from an earlier
// drawing once it stays: every repaint shows what the painter alone draws,
// wherever in a pixel a text starts and whatever lies under it.
TEST_F(ViewsTest, CanvasViewShowsWhatThePainterAloneDraws) {
  // The second place leaves the widget a pixel wider than the canvas's own
  // rectangle: that edge shows what lies behind.
  for (const float left : {0.0f, 7.0f}) {
    SCOPED_TRACE(left);
    zv::Canvas canvas("pic");
    canvas.Move(left, 0, left == 0 ? 2475 : 2462, 1395);
    canvas.setBorderWidth(15);
    canvas.setBackColor(zv::rgb(0, 192, 0));
    canvas.Cls();
    const float places[][2] = {{0, 0}, {7, 4}, {8, 11}, {300, 400}, {1003, 997}, {2400, 1300}};
    int n = 0;
    for (const auto& place : places) {
      canvas.setForeColor(n % 2 ? zv::rgb(255, 255, 255) : zv::rgb(255, 255, 0));
      canvas.setCurrentX(place[0]);
      canvas.setCurrentY(place[1]);
      canvas.Print("Dutycycle =  " + std::to_string(n++) + " % jgy");
    }
    canvas.setForeColor(zv::rgb(255, 255, 255));
    canvas.Box(45, 45, 2430, 1350);
    canvas.Line(2000, 1390, 2000, -10); // a column through the border
    canvas.Line(-10, 700, 2500, 700);   // a row through it
    canvas.Line(100, 100, 400, 300);    // stroked
    zvqt::CanvasView view(canvas, &root);
    QImage painted(view.size(), QImage::Format_ARGB32_Premultiplied);
    painted.fill(Qt::white);
    {
      QPainter painter(&painted);
      painter.setFont(view.font());
      zvqt::paintCanvas(painter, canvas, zvqt::kPixelsPerTwip);
    }
    for (int paint = 0; paint < 8; ++paint) // well past the making of the stamps
      EXPECT_EQ(differences(grab(view), painted), std::vector<std::string>{});
    // A drawing on the canvas makes the kept picture stale.
    canvas.Line(600, 0, 600, 1395);
    {
      QPainter painter(&painted);
      painter.setFont(view.font());
      zvqt::paintCanvas(painter, canvas, zvqt::kPixelsPerTwip);
    }
    EXPECT_EQ(differences(grab(view), painted), std::vector<std::string>{});
  }
}

// Painted at another scale, or as an SVG, a canvas shows the window's pixels
// enlarged: its lines keep to whole pixels of the window, and what crosses
// the border stops at it.
TEST_F(ViewsTest, CanvasAtOtherScalesShowsTheWindowsPixels) {
  zv::Canvas canvas("pic");
  canvas.Move(0, 0, 1500, 900);
  canvas.setBorderWidth(15);
  canvas.setBackColor(zv::rgb(0, 192, 0));
  canvas.Cls();
  canvas.setForeColor(zv::rgb(255, 255, 255));
  canvas.Box(45, 45, 1400, 800);
  canvas.Line(700, -100, 700, 1000); // a column through the border
  canvas.Line(-100, 400, 1600, 400); // a row through it
  canvas.setForeColor(zv::rgb(255, 255, 0));
  canvas.Line(7, 608, 1003, 608); // ends and row within pixels
  zvqt::CanvasView view(canvas, &root);
  const QImage window = grab(view);
  for (const int scale : {0, 2, 4}) { // 0: an SVG
    SCOPED_TRACE(scale);
    QImage image(view.size() * std::max(scale, 1), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    if (scale == 0) {
      QBuffer svg;
      svg.open(QIODevice::WriteOnly);
      QSvgGenerator generator;
      generator.setOutputDevice(&svg);
      generator.setSize(view.size());
      generator.setViewBox(view.rect());
      {
        QPainter painter(&generator);
        view.render(&painter);
      }
      QPainter painter(&image);
      QSvgRenderer(svg.data()).render(&painter);
    } else {
      image.setDevicePixelRatio(scale);
      view.render(&image);
      image.setDevicePixelRatio(1);
    }
    EXPECT_EQ(differences(image, window.scaled(image.size())), std::vector<std::string>{});
  }
}

} // namespace
