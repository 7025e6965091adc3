// The desktop window of the host: one component's panel, its simulation
// controls, a script pane, and the menus for projects, pictures, the program
// and the property page. The component shown is the window's own, or the
// current one of the script being run.
#pragma once

#include <QMainWindow>
#include <QScrollArea>
#include <QTemporaryDir>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "host/plugin/loader.h"
#include "host/program/recorder.h"
#include "host/script/runner.h"
#include "project_file.h"
#include "qt/message_boxes.h"
#include "qt/panel_widget.h"
#include "script_pane.h"
#include "sim_pane.h"
#include "trace_view.h"

namespace zvhost {

class MainWindow : public QMainWindow {
public:
  MainWindow(const Plugin& plugin, const std::string& devicesFolder, QWidget* parent = nullptr);
  ~MainWindow() override;

  // A new component of the window's own, from a project or with new properties.
  bool newComponent(const Project* project, std::string& error);
  bool openScript(const std::string& path);
  zv::ComponentObject* shown();
  zvqt::PanelWidget* panel() const { return panel_; }
  ScriptPane* scriptPane() const { return script_; }
  TraceView* traces() const { return traces_; }

  // The menu actions, reachable without dialogs.
  bool saveProjectTo(const std::string& path, std::string& error);
  bool exportPanel(const std::string& path, std::string& error);
  bool writeProgram(const std::string& path, std::string& error);
  // Verify on chip: builds and runs the program of the shown component and
  // shows its pins under the panel; false, error filled and shown, when it can't.
  bool verifyOnChip(std::string& error);
  bool exportWaveform(const std::string& path, std::string& error);
  void callMacro(int32_t macroId, const std::vector<long>& args);
  void showProperties();

private:
  void buildMenus();
  void showComponent();
  void showMacros();
  void report(const char* what, const zv::Status& status);
  std::optional<std::string> executeScriptLine(int lineNumber, const std::string& line);
  void dropScript();
  SimulationRecorder& recorder(zv::ComponentObject* c);

  const Plugin& plugin_;
  zvqt::QtMessageBoxes boxes_;
  Plugin::ComponentPtr own_;
  std::unique_ptr<Runner> runner_;
  std::string scriptPath_;
  zv::ComponentObject* panelOf_ = nullptr;
  std::map<zv::ComponentObject*, SimulationRecorder> recorders_; // of the window's own
  std::vector<MacroRow> shownMacros_;
  QScrollArea* panelArea_;
  zvqt::PanelWidget* panel_ = nullptr;
  TraceView* traces_;
  QTemporaryDir verifyDir_;
  SimPane* sim_;
  ScriptPane* script_;
};

} // namespace zvhost
