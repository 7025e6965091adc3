// What the desktop shows against the panel's pictures: the panel widget of a
// component in simulation looks like the PNG the host renders of the same
// state. The grabs are kept in the build folder to be looked at.
#include <QDir>
#include <QImage>
#include <QLabel>
#include <QPushButton>
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

void simulate(zv::ComponentObject& c, const std::vector<std::vector<int>>& calls) {
  ASSERT_TRUE(c.StartSimulation().ok());
  for (const auto& call : calls) {
    zv::SafeArray params(zv::VarType::Variant, 0, static_cast<int32_t>(call.size()) - 2);
    for (size_t i = 1; i < call.size(); ++i)
      params.set(static_cast<int32_t>(i - 1), zv::Variant::i2(static_cast<int16_t>(call[i])));
    int32_t ret = 0, cycles = 0;
    zv::Variant affected;
    ASSERT_TRUE(
        c.SimMacroCall(call[0], zv::Variant::array(std::move(params)), ret, affected, cycles).ok());
  }
}

class PicturesTest : public ::testing::Test, zvqt_test::WithApp {
protected:
};

TEST_F(PicturesTest, PanelWidgetMatchesTheRenderedPanel) {
  struct Case {
    const char* name;
    const char* device;
    std::vector<std::vector<int>> calls; // macro id, then its parameters
  };
  const Case cases[] = {
      {"two-channels", "ATmega328P", {{0, 1}, {0, 2}, {2, 1, 64}, {2, 2, 200}}},
      {"one-off", "ATmega328P", {{0, 1}, {2, 1, 128}}},
      {"one-channel-device", "ATmega8", {}},
  };
  for (const Case& c : cases) {
    auto component = zvqt_test::makeComponent(c.device);
    ASSERT_TRUE(component);
    simulate(*component, c.calls);
    zvqt::PanelWidget panel(*component);
    QImage shot = panel.grab().toImage().convertToFormat(QImage::Format_RGB32);
    QString shotFile = shotPath((std::string("panel-widget-") + c.name + ".png").c_str());
    shot.save(shotFile);
    std::string renderFile =
        shotPath((std::string("panel-render-") + c.name + ".png").c_str()).toStdString();
    std::string error;
    ASSERT_TRUE(zvhost::renderPanel(*component, renderFile, error)) << error;
    QImage rendered =
        QImage(QString::fromStdString(renderFile)).convertToFormat(QImage::Format_RGB32);
    ASSERT_EQ(shot.size(), rendered.size()) << c.name;
    // Text is drawn by two painters with their own fonts; all else must agree.
    int budget = shot.width() * shot.height() / 200;
    int unmatched = std::max(unmatchedPixels(shot, rendered), unmatchedPixels(rendered, shot));
    EXPECT_LE(unmatched, budget) << c.name;
    RecordProperty(std::string("unmatched-") + c.name, unmatched);
  }
}

TEST_F(PicturesTest, WindowShowsTheComponentOfTheScript) {
  std::string devices = zvqt_test::sourceDir() + "/devices";
  zvhost::MainWindow window(zvqt_test::plugin(), devices);
  std::string error;
  ASSERT_TRUE(window.newComponent(nullptr, error)) << error;
  zv::ComponentObject* c = window.shown();
  ASSERT_TRUE(c && window.panel());
  EXPECT_EQ(window.panel()->height(), 252); // two channels: 3780 twips

  // A script's component takes the window's place once the script creates it.
  std::string script = shotPath("window.zsc").toStdString();
  std::ofstream(script) << "create\ninit\nput ZelvorVersion 1024\nput ZvdFilename \"" + devices +
                               "/ATmega328P.zvd\"\ncall StartSimulation\ncall SimMacroCall 0 [1]\n";
  ASSERT_TRUE(window.openScript(script));
  EXPECT_EQ(window.shown(), c);
  while (window.scriptPane()->step()) {
  }
  EXPECT_NE(window.shown(), c);
  ASSERT_TRUE(window.panel());
  auto* label = window.panel()->findChild<QLabel*>();
  ASSERT_TRUE(label);
  EXPECT_EQ(label->text(), "CCP1");
  // The macro rows follow the table that the script's version call built.
  bool setDuty = false;
  for (QPushButton* button : window.findChildren<QPushButton*>())
    setDuty = setDuty || button->text() == "SetDuty";
  EXPECT_TRUE(setDuty);
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
