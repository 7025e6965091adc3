// The desktop window of the host: one component's panel, its simulation
// controls, a script pane and the period calculator, and the menus for
// projects, pictures, the program, the property page and the help. The
// component shown is the window's own, or the current one of the open script;
// the Target box, the macros and the calculator act on the one shown.
#pragma once

#include <QMainWindow>
#include <QScrollArea>
#include <QTabWidget>
#include <QTemporaryDir>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "calc_pane.h"
#include "devices.h"
#include "help_window.h"
#include "host/plugin/loader.h"
#include "host/plugin/plugin_backend.h"
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
  MainWindow(const Plugin& plugin, const std::string& devicesFolder, QWidget* parent = nullptr,
             const std::string& helpFolder = {});
  ~MainWindow() override;

  // A new component of the window's own, from a project or with new properties.
  bool newComponent(const Project* project, std::string& error);
  bool openProject(const std::string& path, std::string& error);
  // Asks first when the script makes components of its own; false when the
  // user declines or the file can't be read.
  bool openScript(const std::string& path);
  void closeScript();
  zv::ComponentObject* shown();
  zvqt::PanelWidget* panel() const { return panel_; }
  ScriptPane* scriptPane() const { return script_; }
  SimPane* simPane() const { return sim_; }
  CalcPane* calcPane() const { return calc_; }
  QTabWidget* tabs() const { return tabs_; }
  HelpWindow* helpWindow() const { return help_; }
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
  // The property page in its dialog; with a setting, the page gets it typed in first.
  void showProperties(const PeriodSetting* setting = nullptr);
  void showHelp(const QString& page = QStringLiteral("index.html"));

  // The window's own component differs from its project file as last opened or saved.
  bool isModified();
  QString projectName() const;

protected:
  void closeEvent(QCloseEvent* event) override;

private:
  struct Target {
    std::string device;
    int32_t clock = 0;
  };

  // window_files.cpp: menus, file dialogs, the title and unsaved changes.
  void buildMenus();
  // A file the user picks; filters and suffixes go in pairs ("PNG picture
  // (*.png)", "png"), and a name without one of the suffixes gets the filter's.
  QString askFile(bool save, const QString& caption, const QString& name,
                  const QStringList& filters, const QStringList& suffixes);
  bool saveProject(bool askName);
  bool maySetAside();
  void updateTitle();

  void showComponent();
  void showMacros();
  void showTarget();
  const DeviceInfo& deviceInfo(const std::string& path);
  QString deviceName(const std::string& path);
  void showSimulation();
  void setDevice(const std::string& path);
  void setClock(int32_t hz);
  void refresh(zv::ComponentObject& c);
  void toMacro(const PeriodSetting& setting);
  void say(const QString& done, const QString& failed, const zv::Status& status);
  std::optional<std::string> executeScriptLine(int lineNumber, const std::string& line);
  void noteScriptTarget(const std::string& line);
  void dropScript();
  std::string currentProjectText();
  // window_verify.cpp: what the simulation of a component did, for its program.
  SimulationRecorder& recorder(zv::ComponentObject* c);

  const Plugin& plugin_;
  zvqt::QtMessageBoxes boxes_;
  std::string helpFolder_;
  Plugin::ComponentPtr own_;
  PluginBackend backend_;
  std::unique_ptr<Runner> runner_;
  std::string scriptPath_;
  zv::ComponentObject* panelOf_ = nullptr;
  std::map<zv::ComponentObject*, SimulationRecorder> recorders_; // of the window's own
  std::map<zv::ComponentObject*, Target> targets_;
  std::vector<MacroRow> shownMacros_;
  std::pair<std::string, DeviceInfo> shownDevice_; // a device file's path and what it holds
  std::string projectPath_;
  std::string savedText_; // the project as last opened or saved
  QScrollArea* panelArea_;
  zvqt::PanelWidget* panel_ = nullptr;
  TraceView* traces_;
  QTemporaryDir verifyDir_;
  SimPane* sim_;
  QTabWidget* tabs_;
  ScriptPane* script_;
  CalcPane* calc_;
  HelpWindow* help_ = nullptr;
};

// "text.json" for "text" and for "text.json"; a name with another suffix of
// the filter's ("panel.svg" among png and svg) stays as it is.
QString withSuffix(const QString& path, const QString& suffix, const QStringList& allowed = {});

} // namespace zvhost
