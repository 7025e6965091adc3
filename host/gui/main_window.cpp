#include "main_window.h"

#include <QApplication>
#include <QFileDialog>
#include <QMenuBar>
#include <QMessageBox>
#include <QSplitter>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>
#include <fstream>

#include "devices.h"
#include "host/pictures/render.h"
#include "host/script/json_out.h"
#include "host/verify/vcd.h"
#include "platform/vbnum.h"
#include "qt/page_dialog.h"

namespace zvhost {

namespace {

constexpr int32_t kHostVersion = 1024;

std::vector<std::string> stringsOf(const zv::Variant& v) {
  std::vector<std::string> out;
  if (!v.isArray())
    return out;
  const zv::SafeArray& a = v.arr();
  for (int32_t i = a.lbound(); i <= a.ubound(); ++i)
    out.push_back(zv::toStr(a.at(i)));
  return out;
}

zv::Variant paramsOf(const std::vector<long>& args) {
  zv::SafeArray a(zv::VarType::Variant, 0, static_cast<int32_t>(args.size()) - 1);
  for (size_t i = 0; i < args.size(); ++i) {
    long v = args[i];
    a.set(static_cast<int32_t>(i), v >= -32768 && v <= 32767
                                       ? zv::Variant::i2(static_cast<int16_t>(v))
                                       : zv::Variant::i4(static_cast<int32_t>(v)));
  }
  return zv::Variant::array(std::move(a));
}

} // namespace

MainWindow::MainWindow(const Plugin& plugin, const std::string& devicesFolder, QWidget* parent)
    : QMainWindow(parent), plugin_(plugin), boxes_(this) {
  zvqt::setErrorReporter([this](int number, const std::string& description) {
    statusBar()->showMessage(
        tr("Run-time error %1: %2").arg(number).arg(QString::fromStdString(description)));
  });
  setWindowTitle(tr("zelvor-host"));

  auto* splitter = new QSplitter(this);
  auto* left = new QWidget(splitter);
  auto* leftLayout = new QVBoxLayout(left);
  panelArea_ = new QScrollArea(left);
  panelArea_->setMinimumSize(200, 270);
  panelArea_->setAlignment(Qt::AlignCenter);
  leftLayout->addWidget(panelArea_, 1);
  traces_ = new TraceView(left);
  leftLayout->addWidget(traces_);
  sim_ = new SimPane(deviceFiles(devicesFolder), left);
  leftLayout->addWidget(sim_);
  script_ = new ScriptPane(splitter);
  splitter->addWidget(left);
  splitter->addWidget(script_);
  splitter->setStretchFactor(1, 1);
  splitter->setSizes({480, 620});
  setCentralWidget(splitter);

  sim_->setDevice(sim_->device().empty() ? std::string() : sim_->device());
  for (const std::string& path : deviceFiles(devicesFolder))
    if (path.find("ATmega328P") != std::string::npos)
      sim_->setDevice(path);

  sim_->onDevice = [this](const std::string& path) {
    if (auto* c = shown()) {
      report("ZvdFilename", c->put_ZvdFilename(path));
      recorder(c).deviceFile(path, "the window");
    }
  };
  sim_->onClock = [this](int32_t hz) {
    if (auto* c = shown()) {
      report("ClockSpeed", c->put_ClockSpeed(hz));
      recorder(c).observe(*c, "the window");
    }
  };
  sim_->onStart = [this] {
    if (auto* c = shown()) {
      const zv::Status status = c->StartSimulation();
      report("StartSimulation", status);
      if (status.ok())
        recorder(c).started(*c);
    }
  };
  sim_->onStop = [this] {
    if (auto* c = shown())
      report("StopSimulation", c->StopSimulation());
  };
  sim_->onMacro = [this](int32_t id, const std::vector<long>& args) { callMacro(id, args); };
  script_->execute = [this](int n, const std::string& line) { return executeScriptLine(n, line); };
  script_->onOpen = [this] {
    QString path = QFileDialog::getOpenFileName(this, tr("Open script"), QString(),
                                                tr("Scripts (*.zsc);;All files (*)"));
    if (!path.isEmpty())
      openScript(path.toStdString());
  };
  script_->onRestart = [this] {
    if (!scriptPath_.empty())
      openScript(scriptPath_);
  };
  buildMenus();
}

MainWindow::~MainWindow() {
  // The panel observes the component's controls, so it goes first.
  delete panelArea_->takeWidget();
  panel_ = nullptr;
  runner_.reset();
  own_.reset();
  zvqt::setErrorReporter(nullptr);
}

void MainWindow::buildMenus() {
  QMenu* file = menuBar()->addMenu(tr("&File"));
  file->addAction(tr("&New component"), this, [this] {
    std::string error;
    if (!newComponent(nullptr, error))
      QMessageBox::warning(this, windowTitle(), QString::fromStdString(error));
  });
  file->addAction(tr("&Open project..."), this, [this] {
    QString path = QFileDialog::getOpenFileName(this, tr("Open project"), QString(),
                                                tr("Projects (*.json);;All files (*)"));
    if (path.isEmpty())
      return;
    Project project;
    std::string error;
    if (!loadProject(path.toStdString(), project, error) || !newComponent(&project, error))
      QMessageBox::warning(this, windowTitle(), QString::fromStdString(error));
  });
  file->addAction(tr("&Save project..."), this, [this] {
    QString path =
        QFileDialog::getSaveFileName(this, tr("Save project"), QString(), tr("Projects (*.json)"));
    std::string error;
    if (!path.isEmpty() && !saveProjectTo(path.toStdString(), error))
      QMessageBox::warning(this, windowTitle(), QString::fromStdString(error));
  });
  file->addSeparator();
  file->addAction(tr("Open s&cript..."), this, [this] { script_->onOpen(); });
  file->addAction(tr("&Export panel..."), this, [this] {
    QString path = QFileDialog::getSaveFileName(this, tr("Export panel"), QString(),
                                                tr("PNG picture (*.png);;SVG picture (*.svg)"));
    std::string error;
    if (!path.isEmpty() && !exportPanel(path.toStdString(), error))
      QMessageBox::warning(this, windowTitle(), QString::fromStdString(error));
  });
  QAction* verify = new QAction(tr("&Verify on chip"), this);
  verify->setShortcut(QKeySequence(tr("F6")));
  verify->setToolTip(tr("Build the program with avr-gcc, run it in simavr and show its pins"));
  connect(verify, &QAction::triggered, this, [this] {
    std::string error;
    verifyOnChip(error);
  });
  addToolBar(tr("Verify"))->addAction(verify);
  file->addAction(tr("Export &waveform..."), this, [this] {
    QString path = QFileDialog::getSaveFileName(this, tr("Export waveform"), QString(),
                                                tr("Value Change Dump (*.vcd)"));
    std::string error;
    if (!path.isEmpty() && !exportWaveform(path.toStdString(), error))
      QMessageBox::warning(this, windowTitle(), QString::fromStdString(error));
  });
  file->addAction(tr("&Generate program..."), this, [this] {
    QString path = QFileDialog::getSaveFileName(this, tr("Generate program"), QString(),
                                                tr("C program (*.c)"));
    std::string error;
    if (!path.isEmpty() && !writeProgram(path.toStdString(), error))
      QMessageBox::warning(this, windowTitle(), QString::fromStdString(error));
  });
  file->addSeparator();
  file->addAction(tr("&Quit"), this, &QWidget::close);
  QMenu* component = menuBar()->addMenu(tr("&Component"));
  component->addAction(tr("&Properties..."), this, [this] { showProperties(); });
  component->addAction(verify);
  component->addAction(tr("&Refresh"), this, [this] {
    if (auto* c = shown())
      report("Refresh", c->Refresh());
  });
}

zv::ComponentObject* MainWindow::shown() {
  if (runner_ && runner_->current())
    return runner_->current();
  return own_.get();
}

void MainWindow::report(const char* what, const zv::Status& status) {
  if (status.ok())
    statusBar()->showMessage(tr("%1: done").arg(what));
  else
    statusBar()->showMessage(tr("%1 failed: run-time error %2: %3")
                                 .arg(what)
                                 .arg(status.number)
                                 .arg(QString::fromStdString(status.description)));
}

void MainWindow::showComponent() {
  zv::ComponentObject* c = shown();
  if (c != panelOf_ || !panel_) {
    delete panelArea_->takeWidget();
    panel_ = nullptr;
    panelOf_ = c;
    if (c) {
      panel_ = new zvqt::PanelWidget(*c);
      panelArea_->setWidget(panel_);
    }
  }
  showMacros();
}

void MainWindow::showMacros() {
  zv::ComponentObject* c = shown();
  std::vector<MacroRow> macros;
  if (c) {
    zv::Variant names;
    if (c->get_MacroNames(names).ok()) {
      std::vector<std::string> list = stringsOf(names);
      for (size_t i = 0; i < list.size(); ++i) {
        MacroRow row{firstField(list[i]), {}};
        zv::Variant params;
        if (c->get_MacroParameters(static_cast<int32_t>(i), params).ok())
          for (const std::string& p : stringsOf(params))
            row.params.push_back(firstField(p));
        macros.push_back(std::move(row));
      }
    }
  }
  // A script builds the table with its version call, after the component shows.
  if (macros != shownMacros_) {
    shownMacros_ = macros;
    sim_->setMacros(macros);
  }
}

bool MainWindow::newComponent(const Project* project, std::string& error) {
  dropScript();
  delete panelArea_->takeWidget();
  panel_ = nullptr;
  panelOf_ = nullptr;
  recorders_.erase(own_.get());
  own_.reset();
  zv::Status status;
  own_ = plugin_.createComponent("", "", status, &boxes_);
  if (!own_) {
    error = "the component could not be created: run-time error " + std::to_string(status.number) +
            ": " + status.description;
    showComponent();
    return false;
  }
  if (project) {
    report("ReadProperties", own_->ReadProperties(project->properties));
    sim_->setDevice(project->device);
    sim_->setClock(project->clock);
  } else {
    report("InitProperties", own_->InitProperties());
  }
  own_->put_ZelvorVersion(kHostVersion);
  if (!sim_->device().empty()) {
    report("ZvdFilename", own_->put_ZvdFilename(sim_->device()));
    recorders_[own_.get()].deviceFile(sim_->device(), "the window");
  }
  own_->put_ClockSpeed(sim_->clock());
  showComponent();
  return true;
}

bool MainWindow::openScript(const std::string& path) {
  dropScript();
  std::string error;
  if (!script_->load(path, error)) {
    statusBar()->showMessage(QString::fromStdString(error));
    return false;
  }
  scriptPath_ = path;
  // The runner answers the boxes of its own commands; the user answers the rest.
  runner_ = std::make_unique<Runner>(plugin_, &boxes_);
  showComponent();
  return true;
}

void MainWindow::dropScript() {
  if (!runner_)
    return;
  if (panelOf_ != own_.get()) {
    delete panelArea_->takeWidget();
    panel_ = nullptr;
    panelOf_ = nullptr;
  }
  runner_.reset();
  showComponent();
}

std::optional<std::string> MainWindow::executeScriptLine(int lineNumber, const std::string& line) {
  if (!runner_)
    return std::nullopt;
  std::optional<Json> answer = runner_->execute(lineNumber, line);
  showComponent();
  if (!answer)
    return std::nullopt;
  return dumpJson(*answer);
}

void MainWindow::callMacro(int32_t macroId, const std::vector<long>& args) {
  zv::ComponentObject* c = shown();
  if (!c)
    return;
  zv::Variant params = paramsOf(args);
  int32_t retVal = 0, cycles = 0;
  zv::Variant affected;
  zv::Status status = c->SimMacroCall(macroId, params, retVal, affected, cycles);
  report("SimMacroCall", status);
  if (status.ok())
    recorder(c).called(*c, macroId, params, "the window");
}

void MainWindow::showProperties() {
  zv::ComponentObject* c = shown();
  if (!c)
    return;
  zv::Status status;
  Plugin::PagePtr page = plugin_.createPage(status, &boxes_);
  if (!page) {
    report("Property page", status);
    return;
  }
  page->site().SelectedControls = {&c->publicInterface()};
  report("PropertyPage_SelectionChanged", page->PropertyPage_SelectionChanged());
  zvqt::PageDialog dialog(*page, this);
  dialog.onApplied = [this, c] {
    report("Refresh", c->Refresh());
    recorder(c).observe(*c, "the property page");
  };
  dialog.exec();
}

bool MainWindow::saveProjectTo(const std::string& path, std::string& error) {
  zv::ComponentObject* c = shown();
  if (!c) {
    error = "no component";
    return false;
  }
  Project project;
  project.device = sim_->device();
  project.clock = sim_->clock();
  zv::Status status = c->WriteProperties(project.properties);
  if (!status.ok()) {
    error = "WriteProperties failed: run-time error " + std::to_string(status.number) + ": " +
            status.description;
    return false;
  }
  return saveProject(path, project, error);
}

bool MainWindow::exportPanel(const std::string& path, std::string& error) {
  zv::ComponentObject* c = shown();
  if (!c) {
    error = "no component";
    return false;
  }
  return renderPanel(*c, path, error);
}

bool MainWindow::writeProgram(const std::string& path, std::string& error) {
  zv::ComponentObject* c = shown();
  if (!c) {
    error = "no component";
    return false;
  }
  std::string program;
  if (!generateProgram(*c, recorder(c).simulation(), program, error))
    return false;
  std::ofstream out(path, std::ios::binary);
  out << program;
  if (!out) {
    error = "cannot write " + path;
    return false;
  }
  return true;
}

SimulationRecorder& MainWindow::recorder(zv::ComponentObject* c) {
  SimulationRecorder* ofScript = runner_ ? runner_->recorderOf(c) : nullptr;
  return ofScript ? *ofScript : recorders_[c];
}

bool MainWindow::verifyOnChip(std::string& error) {
  zv::ComponentObject* c = shown();
  Verification v;
  if (!c)
    error = "no component";
  else if (!verifyDir_.isValid())
    error = "no folder for the program's files";
  else if (zvhost::verifyOnChip(*c, recorder(c).simulation(), verifyDir_.path().toStdString(), v,
                                error)) {
    traces_->show(v);
    statusBar()->showMessage(v.same ? tr("Verify on chip: the chip does what the panel shows")
                                    : tr("Verify on chip: the chip differs from the panel"));
    return true;
  }
  traces_->showError(QString::fromStdString(error));
  statusBar()->showMessage(tr("Verify on chip failed"));
  return false;
}

bool MainWindow::exportWaveform(const std::string& path, std::string& error) {
  if (!traces_->verification()) {
    error = "verify on chip first: there is no waveform yet";
    return false;
  }
  return writeVcd(*traces_->verification(), path, error);
}

} // namespace zvhost
