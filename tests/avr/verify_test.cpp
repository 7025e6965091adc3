// Verify on chip as scripts and the window drive it: the chip's numbers equal
// the panel's, what the chip cannot do is said, and the waveform read back
// from its VCD by sigrok-cli has the edges the measurement found.
#include <QAction>
#include <QTest>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

#include "host/gui/main_window.h"
#include "host/script/runner.h"
#include "host/verify/process.h"
#include "tests/qt/plugin_fixture.h"
#include "tests/qt/qt_app.h"

namespace {

using zvhost::Json;

std::string work(const std::string& name) {
  const std::string dir = zvqt_test::buildDir() + "/tests/verify-work/" + name;
  std::filesystem::remove_all(dir);
  std::filesystem::create_directories(dir);
  return dir;
}

class Verify : public ::testing::Test, zvqt_test::WithApp {
protected:
  static void SetUpTestSuite() {
    // verify finds pwm-measure beside the host; a test binary lives elsewhere.
    const std::string path = zvqt_test::buildDir() + "/bin:" + std::getenv("PATH");
    setenv("PATH", path.c_str(), 1);
  }
  // Runs the lines and answers the last one's answer.
  Json run(zvhost::Runner& runner, const std::vector<std::string>& lines) {
    Json last;
    for (const std::string& line : lines)
      if (std::optional<Json> answer = runner.execute(++line_, line))
        last = *answer;
    return last;
  }
  int line_ = 0;
};

const std::vector<std::string> kSetUp = {"create", "init", "put ZelvorVersion 1024",
                                         "put ZvdFilename \"" + zvqt_test::sourceDir() +
                                             "/devices/ATmega328P.zvd\"",
                                         "put ClockSpeed 16000000"};

TEST_F(Verify, ChipShowsWhatThePanelShows) {
  struct Case {
    const char* name;
    std::vector<std::string> lines;
    const char* error; // nullptr: verify runs and the chip agrees with the panel
  };
  const Case cases[] = {
      {"demo",
       {"pwm put Prescaler 8", "pwm put Pr2 199", "call StartSimulation", "call SimMacroCall 0 [1]",
        "call SimMacroCall 0 [2]", "call SimMacroCall 2 [1, 50]", "call SimMacroCall 2 [2, 150]",
        "call SimMacroCall 3 [99, 1]", "call SimMacroCall 4 [2, 1, 0]"},
       nullptr},
      // The page changes the period while the simulation runs; the window repaints after it.
      {"page-during-run",
       {"call StartSimulation", "call SimMacroCall 3 [99, 1]", "call SimMacroCall 0 [1]",
        "call SimMacroCall 2 [1, 25]", "page new", "page select", "page set cboClockSource 2",
        "page set txt_Pr2 \"49\"", "page apply", "paint"},
       nullptr},
      {"extra-parameter",
       {"call StartSimulation", "call SimMacroCall 0 [1, 9]", "call SimMacroCall 2 [1, 64, 3]"},
       nullptr},
      {"wide-period-register",
       {"pwm put Pr2 300", "call StartSimulation", "call SimMacroCall 0 [2]",
        "call SimMacroCall 2 [2, 200]"},
       nullptr},
      {"negative-period-register",
       {"pwm put Pr2 -5", "call StartSimulation", "call SimMacroCall 0 [1]"},
       "period register -5 is outside 0..32767, which Timer1 cannot do"},
      {"prescaler-outside-the-table",
       {"pwm put Prescaler 3", "call StartSimulation", "call SimMacroCall 0 [1]"},
       "the prescaler is 3, which is no clock source of Timer1"},
      {"clock-during-run",
       {"call StartSimulation", "call SimMacroCall 0 [1]", "put ClockSpeed 8000000"},
       "the clock changed while the simulation ran (line 8)"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    zvhost::Runner runner(zvqt_test::plugin());
    std::vector<std::string> lines = kSetUp;
    lines.insert(lines.end(), c.lines.begin(), c.lines.end());
    line_ = 0;
    run(runner, lines);
    const std::string dir = work(c.name);
    const Json answer = run(runner, {"verify " + dir});
    if (c.error) {
      ASSERT_TRUE(answer.contains("script_error")) << answer.dump();
      EXPECT_NE(answer["script_error"].get<std::string>().find(c.error), std::string::npos)
          << answer.dump();
      continue;
    }
    ASSERT_TRUE(answer.value("ok", false)) << answer.dump();
    const Json& r = answer["result"];
    EXPECT_TRUE(r["same"].get<bool>()) << r.dump(1);
    int waveforms = 0;
    for (const Json& channel : r["channels"]) {
      EXPECT_TRUE(channel["same"].get<bool>()) << channel.dump();
      if (channel["chip"]["period"] == "-")
        continue;
      ++waveforms;
      EXPECT_EQ(channel["chip"]["period"], channel["panel"]["period"]) << channel.dump();
      EXPECT_EQ(channel["chip"]["duty"], channel["panel"]["duty"]) << channel.dump();
    }
    EXPECT_GT(waveforms, 0);
    for (const char* file : {"c", "elf", "hex"})
      EXPECT_TRUE(std::filesystem::exists(r["files"][file].get<std::string>())) << file;
    EXPECT_NE(r["size"].get<std::string>().find("Program:"), std::string::npos);
  }
}

// Edges as sigrok-cli reads them from the VCD, in the file's time units:
// sigrok's own VCD output of what it read, one "#time" and its changes at a time.
std::map<std::string, std::vector<long long>> sigrokEdges(const std::string& vcd) {
  zvhost::Process sigrok;
  std::string error, out;
  EXPECT_TRUE(
      sigrok.start({"sigrok-cli", "-I", "vcd", "-i", vcd, "-O", "vcd"}, vcd + ".sigrok", error))
      << error;
  EXPECT_EQ(sigrok.finish(out), 0) << out;
  std::map<std::string, std::string> names; // id -> name
  std::map<std::string, std::vector<long long>> edges;
  std::istringstream in(out);
  long long now = 0;
  for (std::string line; std::getline(in, line);) {
    std::istringstream words(line);
    std::string word, type, width, id, name;
    if (line.rfind("$var", 0) == 0 && words >> word >> type >> width >> id >> name)
      names[id] = name;
    else if (line.rfind("#", 0) == 0) // "#time" and the changes at that time
      while (words >> word) {
        if (word[0] == '#')
          now = std::stoll(word.substr(1));
        else if (now > 0 && names.count(word.substr(1)))
          edges[names[word.substr(1)]].push_back(now);
      }
  }
  return edges;
}

TEST_F(Verify, VcdReadsBackWithTheMeasuredEdges) {
  zvhost::Runner runner(zvqt_test::plugin());
  std::vector<std::string> lines = kSetUp;
  lines.insert(lines.end(), {"call StartSimulation", "call SimMacroCall 3 [99, 1]",
                             "call SimMacroCall 0 [1]", "call SimMacroCall 0 [2]",
                             "call SimMacroCall 2 [1, 25]", "call SimMacroCall 2 [2, 80]"});
  run(runner, lines);
  const std::string dir = work("vcd");
  ASSERT_TRUE(run(runner, {"verify " + dir}).value("ok", false));
  const Json answer = run(runner, {"vcd " + dir + "/pins.vcd"});
  ASSERT_TRUE(answer.value("ok", false)) << answer.dump();

  // 16 MHz is 62.5 ns a cycle: the file counts in 10 ns.
  const std::string text = zvhost::readFile(dir + "/pins.vcd");
  EXPECT_NE(text.find("$timescale 10 ns $end"), std::string::npos);
  const auto edges = sigrokEdges(dir + "/pins.vcd");
  zvhost::Verification v; // the same run again, for the edges it found
  std::string error;
  ASSERT_TRUE(zvhost::verifyOnChip(
      *runner.current(), runner.recorderOf(runner.current())->simulation(), dir, v, error))
      << error;
  for (int i = 0; i < 2; ++i) {
    SCOPED_TRACE(v.pins[i].name);
    ASSERT_TRUE(edges.count(v.pins[i].name));
    const std::vector<long long>& read = edges.at(v.pins[i].name);
    ASSERT_EQ(read.size(), v.pins[i].changes.size());
    ASSERT_GT(read.size(), 20u);
    for (size_t k = 0; k < read.size(); ++k) // within the rounding to 10 ns
      EXPECT_NEAR(double(read[k]), double(v.pins[i].changes[k]) * 6.25, 0.5) << k;
  }
}

TEST_F(Verify, WindowActionDrawsTracesWithThePanelsNumbers) {
  const std::string devices = zvqt_test::sourceDir() + "/devices";
  zvhost::MainWindow window(zvqt_test::plugin(), devices);
  std::string error;
  ASSERT_TRUE(window.newComponent(nullptr, error)) << error;
  window.resize(1100, 760);
  window.show();
  const std::string script = work("window") + "/demo.zsc";
  std::ofstream(script)
      << "create\ninit\nput ZelvorVersion 1024\nput ZvdFilename \"" << devices
      << "/ATmega328P.zvd\"\nput ClockSpeed 16000000\npwm put Prescaler 8\n"
         "pwm put Pr2 199\npwm put Label1 \"Motor\"\npwm put Label2 \"Fan\"\n"
         "call StartSimulation\ncall SimMacroCall 0 [1]\ncall SimMacroCall 0 [2]\n"
         "call SimMacroCall 2 [1, 50]\ncall SimMacroCall 2 [2, 150]\n"
         "call SimMacroCall 3 [99, 1]\ncall SimMacroCall 4 [2, 1, 0]\n";
  ASSERT_TRUE(window.openScript(script));
  while (window.scriptPane()->step()) {
  }
  QAction* verify = nullptr;
  for (QAction* a : window.findChildren<QAction*>())
    if (a->text() == "&Verify on chip")
      verify = a;
  ASSERT_TRUE(verify);
  verify->trigger();
  QTest::qWait(50);
  const auto& shown = window.traces()->verification();
  ASSERT_TRUE(shown.has_value());
  for (const zvhost::ChannelCheck& c : shown->channels) {
    EXPECT_TRUE(c.same) << c.channel;
    EXPECT_EQ(c.chipPeriod, c.panelPeriod);
    EXPECT_EQ(c.chipDuty, c.panelDuty);
  }
  EXPECT_EQ(shown->channels[0].panelPeriod, "12.50 us");
  EXPECT_EQ(shown->channels[1].panelDuty, "64 %");
  const QString shot = QString::fromStdString(zvqt_test::buildDir() + "/qt-shots");
  std::filesystem::create_directories(shot.toStdString());
  window.grab().save(shot + "/gui-verify.png");

  const std::string vcd = work("window-vcd") + "/pins.vcd";
  ASSERT_TRUE(window.exportWaveform(vcd, error)) << error;
  EXPECT_EQ(sigrokEdges(vcd).size(), 2u);
}

} // namespace
