// The desktop window driven as a user drives it: keys and clicks on the real
// widgets, answers to its dialogs as they show. Each state is grabbed into
// the build folder's qt-shots, where docs/pictures takes its pictures from.
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QScrollBar>
#include <QStatusBar>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <map>

#include "host/gui/devices.h"
#include "host/gui/main_window.h"
#include "platform/controls/canvas.h"
#include "platform/vbnum.h"
#include "plugin_fixture.h"
#include "qt/page_dialog.h"
#include "qt_app.h"

namespace {

std::string shotDir() {
  std::string dir = zvqt_test::buildDir() + "/qt-shots";
  std::filesystem::create_directories(dir);
  return dir;
}

void shoot(QWidget& w, const char* name) {
  QApplication::processEvents(); // layouts settle before the picture
  w.grab().save(QString::fromStdString(shotDir() + "/desktop-" + name + ".png"));
}

// Answers still waiting for their dialog.
std::vector<QTimer*> waiting;

// Does what `act` says to the next modal dialog as soon as it shows.
void whenModal(std::function<void(QWidget*)> act) {
  auto* timer = new QTimer(qApp);
  waiting.push_back(timer);
  QObject::connect(timer, &QTimer::timeout, [timer, act] {
    QWidget* dialog = QApplication::activeModalWidget();
    if (!dialog || !dialog->isVisible())
      return;
    std::erase(waiting, timer);
    timer->deleteLater();
    timer->stop();
    act(dialog);
  });
  timer->start(20);
}

void answer(QMessageBox::StandardButton button) {
  whenModal([button](QWidget* w) {
    auto* box = qobject_cast<QMessageBox*>(w);
    ASSERT_TRUE(box);
    box->button(button)->click();
  });
}

void typeInto(QWidget* w, const QString& text) {
  auto* edit =
      qobject_cast<QLineEdit*>(w) ? qobject_cast<QLineEdit*>(w) : w->findChild<QLineEdit*>();
  ASSERT_TRUE(edit);
  edit->setFocus();
  edit->selectAll();
  QTest::keyClicks(edit, text);
  QTest::keyClick(edit, Qt::Key_Return);
}

// Picks an entry of a list as the keyboard does.
void choose(QComboBox* box, const QString& text) {
  const int target = box->findText(text);
  ASSERT_GE(target, 0) << text.toStdString();
  while (box->currentIndex() != target)
    QTest::keyClick(box, box->currentIndex() < target ? Qt::Key_Down : Qt::Key_Up);
}

// What the panel's canvas of a channel printed last.
std::string printed(zv::ComponentObject& c, int channel) {
  std::string text;
  auto* canvas = dynamic_cast<zv::Canvas*>(c.panelControls()[channel]);
  for (const zv::DrawOp& op : canvas->ops())
    if (op.kind == zv::DrawOp::Kind::Print)
      text += op.text + "|";
  return text;
}

class WindowTest : public ::testing::Test, zvqt_test::WithApp {
protected:
  void SetUp() override {
    window = std::make_unique<zvhost::MainWindow>(zvqt_test::plugin(), devices);
    std::string error;
    ASSERT_TRUE(window->newComponent(nullptr, error)) << error;
    window->resize(1100, 720);
    window->show();
    QApplication::setActiveWindow(window.get());
    sim = window->simPane();
  }
  void TearDown() override {
    EXPECT_TRUE(waiting.empty()) << "a dialog that was to be answered never showed";
    for (QTimer* timer : waiting)
      delete timer;
    waiting.clear();
    window.reset();
  }
  // A key of the window's menus; a dialog that closed may have left no window active.
  void press(int key, Qt::KeyboardModifiers modifiers = {}) {
    QApplication::setActiveWindow(window.get());
    QTest::keyClick(window.get(), static_cast<Qt::Key>(key), modifiers);
  }
  zv::ComponentObject& shown() { return *window->shown(); }
  int property(const char* name) { return zv::toI4(shown().publicInterface().getProperty(name)); }
  void call(int32_t macro, std::vector<int> values) {
    for (size_t i = 0; i < values.size(); ++i)
      typeInto(sim->parameterBox(macro, i), QString::number(values[i]));
    QTest::mouseClick(sim->macroButton(macro), Qt::LeftButton);
  }

  std::string devices = zvqt_test::sourceDir() + "/devices";
  std::string error;
  std::unique_ptr<zvhost::MainWindow> window;
  zvhost::SimPane* sim = nullptr;
};

TEST_F(WindowTest, ConfigureSimulateAndChangeThePageMidRun) {
  choose(sim->deviceBox(), "ATmega128");
  EXPECT_EQ(sim->deviceBox()->currentText(), "ATmega128");
  bool pinsShown = false;
  for (QLabel* label : window->findChildren<QLabel*>())
    pinsShown = pinsShown || label->text().contains("OC1A PB5, OC1B PB6, OC1C PB7, T1 PD6");
  EXPECT_TRUE(pinsShown);
  typeInto(sim->clockBox(), "16000000");
  EXPECT_TRUE(window->isModified());
  EXPECT_TRUE(window->windowTitle().startsWith("Untitled"));
  shoot(*window, "configured");

  EXPECT_FALSE(sim->stopButton()->isEnabled());
  QTest::mouseClick(sim->startButton(), Qt::LeftButton);
  EXPECT_FALSE(sim->startButton()->isEnabled());
  EXPECT_TRUE(sim->stopButton()->isEnabled());
  call(0, {1});
  call(2, {1, 64});
  EXPECT_NE(printed(shown(), 0).find("Period =  32.00 us"), std::string::npos)
      << printed(shown(), 0);
  // The clock changes the period on the panel at once.
  typeInto(sim->clockBox(), "8000000");
  EXPECT_NE(printed(shown(), 0).find("Period =  64.00 us"), std::string::npos)
      << printed(shown(), 0);
  EXPECT_EQ(window->statusBar()->currentMessage(), "Clock set to 8 MHz.");
  shoot(*window, "simulating");

  // The page, mid-run: register 99 on clk / 8 is 2 x 100 x 8 cycles, 200 us.
  whenModal([](QWidget* w) {
    auto* dialog = dynamic_cast<zvqt::PageDialog*>(w);
    ASSERT_TRUE(dialog);
    typeInto(dialog->pageWidget()->viewOf("txt_Pr2"), "99");
    choose(qobject_cast<QComboBox*>(dialog->pageWidget()->viewOf("cboClockSource")), "clk / 8");
    shoot(*dialog, "property-page");
    QTest::mouseClick(dialog->okButton(), Qt::LeftButton);
  });
  press(Qt::Key_F4);
  EXPECT_EQ(property("Pr2"), 99);
  EXPECT_EQ(property("Prescaler"), 8);
  EXPECT_NE(printed(shown(), 0).find("Period =  200.00 us"), std::string::npos);
  EXPECT_EQ(window->statusBar()->currentMessage(), "Properties applied.");
  shoot(*window, "page-applied");

  QTest::mouseClick(sim->stopButton(), Qt::LeftButton);
  EXPECT_TRUE(sim->startButton()->isEnabled());
  EXPECT_FALSE(sim->stopButton()->isEnabled());
  EXPECT_NE(printed(shown(), 0).find("Period =  200.00 us"), std::string::npos);
}

TEST_F(WindowTest, CalculatorSettingGoesOntoThePageAndIntoChangePeriod) {
  typeInto(sim->clockBox(), "16000000");
  press(Qt::Key_F7);
  zvhost::CalcPane* calc = window->calcPane();
  ASSERT_EQ(window->tabs()->currentWidget(), calc);
  typeInto(calc->valueBox(), "1000");
  choose(calc->dutyUnitBox(), "Duty (%)");
  typeInto(calc->dutyBox(), "25");
  ASSERT_FALSE(calc->settings().empty());
  EXPECT_EQ(calc->table()->item(0, 0)->text(), "clk / 64");
  EXPECT_EQ(calc->table()->item(0, 1)->text(), "124");
  EXPECT_EQ(calc->table()->item(0, 4)->text(), "exact");
  EXPECT_EQ(calc->table()->item(0, 5)->text(), "31");
  shoot(*window, "calculator");

  // Onto the page: the user sees it typed in and applies it with OK.
  whenModal([](QWidget* w) {
    auto* dialog = dynamic_cast<zvqt::PageDialog*>(w);
    ASSERT_TRUE(dialog);
    EXPECT_EQ(qobject_cast<QLineEdit*>(dialog->pageWidget()->viewOf("txt_Pr2"))->text(), "124");
    EXPECT_EQ(
        qobject_cast<QComboBox*>(dialog->pageWidget()->viewOf("cboClockSource"))->currentText(),
        "clk / 64");
    QTest::mouseClick(dialog->okButton(), Qt::LeftButton);
  });
  QTest::mouseClick(calc->toPageButton(), Qt::LeftButton);
  EXPECT_EQ(property("Pr2"), 124);
  EXPECT_EQ(property("Prescaler"), 64);

  // A second row, into ChangePeriod; SetDuty gets the duty that goes with it.
  QTest::mouseClick(calc->table()->viewport(), Qt::LeftButton, {},
                    calc->table()->visualItemRect(calc->table()->item(1, 0)).center());
  const zvhost::PeriodSetting second = *calc->chosen();
  EXPECT_NE(second.code, 3);
  QTest::mouseClick(calc->toMacroButton(), Qt::LeftButton);
  EXPECT_EQ(property("Pr2"), second.pr2);
  EXPECT_EQ(sim->parameterBox(2, 1)->value(), second.duty);
  EXPECT_EQ(window->statusBar()->currentMessage().toStdString(),
            "ChangePeriod(" + std::to_string(second.pr2) + ", " + std::to_string(second.code) +
                ") called.");
}

TEST_F(WindowTest, HabitsOfADesktop) {
  // Parameter boxes hold what the macros take.
  EXPECT_EQ(sim->parameterBox(2, 1)->maximum(), 255);
  EXPECT_EQ(sim->parameterBox(3, 1)->maximum(), 7);
  EXPECT_EQ(sim->parameterBox(0, 0)->minimum(), 1);
  typeInto(sim->parameterBox(2, 1), "300");
  EXPECT_EQ(sim->parameterBox(2, 1)->value(), 30);

  // Quit with changes asks; Cancel keeps the window.
  typeInto(sim->clockBox(), "12000000");
  answer(QMessageBox::Cancel);
  EXPECT_FALSE(window->close());
  // Ctrl+S offers a name with the extension; a name typed without one gets it.
  whenModal([](QWidget* w) {
    auto* dialog = qobject_cast<QFileDialog*>(w);
    ASSERT_TRUE(dialog);
    EXPECT_EQ(dialog->defaultSuffix(), "json");
    EXPECT_EQ(dialog->findChild<QLineEdit*>("fileNameEdit")->text(), "Untitled.json");
    dialog->reject();
  });
  press(Qt::Key_S, Qt::ControlModifier);
  const struct {
    const char *typed, *suffix, *saved;
  } names[] = {{"motor", "json", "motor.json"},
               {"motor.json", "json", "motor.json"},
               {"motor.JSON", "json", "motor.JSON"},
               {"panel.svg", "png", "panel.svg"},
               {"panel.txt", "png", "panel.txt.png"}};
  for (const auto& n : names)
    EXPECT_EQ(zvhost::withSuffix(n.typed, n.suffix, {"png", "svg"}), n.saved) << n.typed;
  // Saved, the title carries the project's name and no mark of changes.
  EXPECT_TRUE(window->isWindowModified());
  ASSERT_TRUE(window->saveProjectTo(shotDir() + "/motor.json", error)) << error;
  EXPECT_FALSE(window->isWindowModified());
  EXPECT_TRUE(window->windowTitle().startsWith("motor[*]")) << window->windowTitle().toStdString();

  // F1 opens the help.
  press(Qt::Key_F1);
  ASSERT_TRUE(window->helpWindow() && window->helpWindow()->isVisible());
  EXPECT_TRUE(window->helpWindow()->browser()->toPlainText().contains("AVR PWM"));
  window->helpWindow()->close();
}

TEST_F(WindowTest, AScriptAsksBeforeItsComponentTakesThePanel) {
  const std::string script = shotDir() + "/own.zsc";
  std::ofstream(script) << "create\ninit\nput ZelvorVersion 1024\nput ZvdFilename \"" + devices +
                               "/ATmega8.zvd\"\nput ClockSpeed 4000000\n"
                               "# a comment long enough to tempt a view into scrolling sideways, "
                               "far past the width of the pane\n";
  zv::ComponentObject* own = window->shown();
  answer(QMessageBox::Cancel);
  EXPECT_FALSE(window->openScript(script));
  answer(QMessageBox::Open);
  ASSERT_TRUE(window->openScript(script));
  while (window->scriptPane()->step()) {
  }
  EXPECT_NE(window->shown(), own);
  // The Target box and the macro rows are those of the script's component.
  EXPECT_EQ(sim->deviceBox()->currentText(), "ATmega8");
  EXPECT_EQ(sim->macroButton(2)->text(), "SetDuty");
  EXPECT_EQ(sim->clock(), 4000000);
  EXPECT_EQ(window->scriptPane()->scriptView()->horizontalScrollBar()->value(), 0);
  EXPECT_TRUE(window->windowTitle().contains("own.zsc"));
  shoot(*window, "script");
  window->closeScript();
  EXPECT_EQ(window->shown(), own);
  EXPECT_EQ(sim->deviceBox()->currentText(), "ATmega328P");
}

TEST(DevicePins, TheHelpTableHasThePinsOfEveryDeviceFile) {
  std::ifstream in(zvqt_test::sourceDir() + "/docs/help/pins.html");
  const std::string help{std::istreambuf_iterator<char>(in), {}};
  const auto files = zvhost::deviceFiles(zvqt_test::sourceDir() + "/devices");
  ASSERT_FALSE(files.empty());
  for (const std::string& file : files) {
    const zvhost::DeviceInfo d = zvhost::readDevice(file);
    std::map<std::string, std::string> pins(d.pins.begin(), d.pins.end());
    ASSERT_TRUE(pins.count("OC1A") && pins.count("OC1B") && pins.count("T1")) << file;
    const std::string row = "<tr><td>" + d.name + "</td><td>" + pins["OC1A"] + "</td><td>" +
                            pins["OC1B"] + "</td><td>" +
                            (pins.count("OC1C") ? pins["OC1C"] : "&ndash;") + "</td><td>" +
                            pins["T1"] + "</td></tr>";
    EXPECT_NE(help.find(row), std::string::npos) << row;
  }
}

} // namespace
