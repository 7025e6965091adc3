// What the desktop shows against the panel's pictures: the host's PNG of a
// component in simulation is its panel widget's grab. The grabs and pictures
// are kept in the build folder to be looked at.
#include <QDir>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QSvgRenderer>
#include <fstream>
#include <gtest/gtest.h>

#include "host/gui/main_window.h"
#include "host/pictures/render.h"
#include "platform/vbnum.h"
#include "plugin_fixture.h"
#include "qt/panel_widget.h"
#include "qt_app.h"

namespace {

QString shotPath(const char* name) {
  QString dir = QString::fromStdString(zvqt_test::buildDir()) + "/qt-shots";
  QDir().mkpath(dir);
  return dir + "/" + name;
}

// Two painters smooth the edges of text differently, by up to about a third
// of the way between text and background.
bool near(QColor p, QColor q) {
  return std::abs(p.red() - q.red()) <= 100 && std::abs(p.green() - q.green()) <= 100 &&
         std::abs(p.blue() - q.blue()) <= 100;
}

// Pixels of a with no like-coloured pixel within one pixel in b: a shift of a
// pixel, as two painters place text, is no difference; a missing stroke is.
int unmatchedPixels(const QImage& a, const QImage& b) {
  int count = 0;
  for (int y = 0; y < a.height(); ++y)
    for (int x = 0; x < a.width(); ++x) {
      bool matched = false;
      for (int dy = -1; dy <= 1 && !matched; ++dy)
        for (int dx = -1; dx <= 1 && !matched; ++dx)
          matched =
              b.valid(x + dx, y + dy) && near(a.pixelColor(x, y), b.pixelColor(x + dx, y + dy));
      count += matched ? 0 : 1;
    }
  return count;
}

int unmatchedEitherWay(const QImage& a, const QImage& b) {
  return std::max(unmatchedPixels(a, b), unmatchedPixels(b, a));
}

QImage load(const std::string& path) {
  return QImage(QString::fromStdString(path)).convertToFormat(QImage::Format_ARGB32);
}

// A simulated macro call: the macro's id, then its parameters.
void simulate(zv::ComponentObject& c, const std::vector<int>& call) {
  zv::SafeArray params(zv::VarType::Variant, 0, static_cast<int32_t>(call.size()) - 2);
  for (size_t i = 1; i < call.size(); ++i)
    params.set(static_cast<int32_t>(i - 1), zv::Variant::i2(static_cast<int16_t>(call[i])));
  int32_t ret = 0, cycles = 0;
  zv::Variant affected;
  ASSERT_TRUE(
      c.SimMacroCall(call[0], zv::Variant::array(std::move(params)), ret, affected, cycles).ok());
}

class PicturesTest : public ::testing::Test, zvqt_test::WithApp {
protected:
};

// What the desktop shows is what the host exports. The PNG is the grab of the
// panel widget pixel for pixel, however often the widget was painted before;
// at twice the scale, what the widget paints onto a screen of twice the
// pixels; the SVG shows the same but for how the text's edges are smoothed.
TEST_F(PicturesTest, ExportedPanelIsTheWidgetsGrab) {
  struct Case {
    const char* name;
    const char* device;
    std::vector<std::vector<int>> calls;
  };
  const Case cases[] = {
      {"two-channels", "ATmega328P", {{0, 1}, {0, 2}, {2, 1, 64}, {2, 2, 200}, {2, 1, 64}}},
      {"one-off", "ATmega328P", {{0, 1}, {2, 1, 128}, {1, 1}, {0, 1}}},
      {"one-channel-device", "ATmega8", {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    auto component = zvqt_test::makeComponent(c.device);
    ASSERT_TRUE(component);
    ASSERT_TRUE(component->StartSimulation().ok());
    zvqt::PanelWidget panel(*component);
    // The views keep pictures and texts from one repaint to the next.
    for (const auto& call : c.calls) {
      simulate(*component, call);
      for (int paint = 0; paint < 3; ++paint)
        panel.grab();
    }
    const QImage shot = panel.grab().toImage().convertToFormat(QImage::Format_ARGB32);
    shot.save(shotPath((std::string("panel-widget-") + c.name + ".png").c_str()));
    QImage onDoubleScreen(panel.size() * 2, QImage::Format_ARGB32_Premultiplied);
    onDoubleScreen.setDevicePixelRatio(2);
    onDoubleScreen.fill(Qt::transparent);
    panel.render(&onDoubleScreen);
    onDoubleScreen.setDevicePixelRatio(1);

    const std::string base =
        shotPath((std::string("panel-render-") + c.name).c_str()).toStdString();
    std::string error;
    ASSERT_TRUE(zvhost::renderPanel(*component, base + ".png", error)) << error;
    ASSERT_TRUE(zvhost::renderPanel(*component, base + "-2x.png", error, 2)) << error;
    ASSERT_TRUE(zvhost::renderPanel(*component, base + ".svg", error)) << error;
    EXPECT_TRUE(load(base + ".png") == shot);
    EXPECT_TRUE(load(base + "-2x.png") == onDoubleScreen.convertToFormat(QImage::Format_ARGB32));

    QImage drawn(shot.size(), QImage::Format_ARGB32);
    drawn.fill(Qt::transparent);
    {
      QSvgRenderer svg(QString::fromStdString(base + ".svg"));
      ASSERT_TRUE(svg.isValid());
      QPainter painter(&drawn);
      svg.render(&painter);
    }
    drawn.save(QString::fromStdString(base + "-svg.png"));
    const int unmatched = unmatchedEitherWay(shot, drawn);
    EXPECT_LE(unmatched, shot.width() * shot.height() / 200);
    RecordProperty(std::string("svg-unmatched-") + c.name, unmatched);
  }
}

TEST_F(PicturesTest, ProjectRoundTripKeepsTheSavedProperties) {
  std::string devices = zvqt_test::sourceDir() + "/devices";
  zvhost::MainWindow window(zvqt_test::plugin(), devices);
  std::string error;
  ASSERT_TRUE(window.newComponent(nullptr, error)) << error;
  window.shown()->publicInterface().putProperty("Label1", zv::Variant::str("Motor"));
  window.shown()->publicInterface().putProperty("Pr2", zv::Variant::i2(99));
  std::string path = shotPath("project.json").toStdString();
  ASSERT_TRUE(window.saveProjectTo(path, error)) << error;
  zvhost::Project project;
  ASSERT_TRUE(zvhost::loadProject(path, project, error)) << error;
  ASSERT_TRUE(window.newComponent(&project, error)) << error;
  zv::PropertyBag again;
  window.shown()->WriteProperties(again);
  EXPECT_EQ(again.entries(), project.properties.entries());
  EXPECT_EQ(zv::toStr(window.shown()->publicInterface().getProperty("Label1")), "Motor");
}

} // namespace
