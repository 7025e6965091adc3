#include "main_window.h"

#include <QCoreApplication>
#include <QSplitter>
#include <QStatusBar>
#include <QVBoxLayout>

#include "devices.h"
#include "platform/vbnum.h"
#include "qt/binding.h"
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

MainWindow::MainWindow(const Plugin& plugin, const std::string& devicesFolder, QWidget* parent,
                       const std::string& helpFolder)
    : QMainWindow(parent), plugin_(plugin), boxes_(this),
      helpFolder_(helpFolder.empty()
                      ? zvhost::helpFolder(QCoreApplication::applicationDirPath().toStdString())
                      : helpFolder),
      backend_(plugin) {
  zvqt::setErrorReporter([this](int number, const std::string& description) {
    statusBar()->showMessage(tr("The change was refused: %1 (run-time error %2).")
                                 .arg(QString::fromStdString(description))
                                 .arg(number));
  });

  auto* splitter = new QSplitter(this);
  auto* left = new QWidget(splitter);
  auto* leftLayout = new QVBoxLayout(left);
  panelArea_ = new QScrollArea(left);
  panelArea_->setMinimumSize(200, 270);
  panelArea_->setAlignment(Qt::AlignCenter);
  leftLayout->addWidget(panelArea_, 1);
  traces_ = new TraceView(left);
  leftLayout->addWidget(traces_);
  const std::vector<std::string> devices = deviceFiles(devicesFolder);
  sim_ = new SimPane(devices, left);
  leftLayout->addWidget(sim_);
  tabs_ = new QTabWidget(splitter);
  script_ = new ScriptPane(tabs_);
  calc_ = new CalcPane(tabs_);
  tabs_->addTab(script_, tr("Sc&ript"));
  tabs_->addTab(calc_, tr("Period c&alculator"));
  splitter->addWidget(left);
  splitter->addWidget(tabs_);
  splitter->setStretchFactor(1, 1);
  splitter->setSizes({480, 620});
  setCentralWidget(splitter);

  for (const std::string& path : devices)
    if (path.find("ATmega328P") != std::string::npos)
      sim_->setDevice(path);

  sim_->onDevice = [this](const std::string& path) { setDevice(path); };
  sim_->onClock = [this](int32_t hz) { setClock(hz); };
  sim_->onStart = [this] {
    if (auto* c = shown()) {
      const zv::Status status = c->StartSimulation();
      say(tr("Simulation running."), tr("The simulation could not start"), status);
      if (status.ok())
        recorder(c).started(*c);
      showSimulation();
    }
  };
  sim_->onStop = [this] {
    if (auto* c = shown()) {
      say(tr("Simulation stopped."), tr("The simulation could not stop"), c->StopSimulation());
      showSimulation();
    }
  };
  sim_->onMacro = [this](int32_t id, const std::vector<long>& args) { callMacro(id, args); };
  calc_->onToPage = [this](const PeriodSetting& s) { showProperties(&s); };
  calc_->onToMacro = [this](const PeriodSetting& s) { toMacro(s); };
  calc_->onHelp = [this] { showHelp("desktop.html#calculator"); };
  script_->execute = [this](int n, const std::string& line) { return executeScriptLine(n, line); };
  script_->onRestart = [this] {
    if (!scriptPath_.empty())
      openScript(scriptPath_);
  };
  script_->onClose = [this] { closeScript(); };
  buildMenus();
  statusBar()->showMessage(tr("Ready."));
  updateTitle();
}

MainWindow::~MainWindow() {
  // The panel observes the component's controls, so it goes first.
  delete panelArea_->takeWidget();
  panel_ = nullptr;
  runner_.reset();
  own_.reset();
  zvqt::setErrorReporter(nullptr);
}

zv::ComponentObject* MainWindow::shown() {
  if (runner_)
    if (ComponentHandle* current = runner_->current())
      return current->inProcess();
  return own_.get();
}

void MainWindow::say(const QString& done, const QString& failed, const zv::Status& status) {
  if (status.ok())
    statusBar()->showMessage(done);
  else
    statusBar()->showMessage(tr("%1: %2 (run-time error %3).")
                                 .arg(failed, QString::fromStdString(status.description))
                                 .arg(status.number));
}

void MainWindow::refresh(zv::ComponentObject& c) {
  zv::Status status = c.Refresh();
  if (!status.ok())
    say({}, tr("The panel could not be redrawn"), status);
}

const DeviceInfo& MainWindow::deviceInfo(const std::string& path) {
  // The window shows its target after every script line: the file is read
  // again only when another one is shown.
  if (path != shownDevice_.first)
    shownDevice_ = {path, path.empty() ? DeviceInfo{} : readDevice(path)};
  return shownDevice_.second;
}

QString MainWindow::deviceName(const std::string& path) {
  return path.empty() ? tr("no device") : QString::fromStdString(deviceInfo(path).name);
}

void MainWindow::setDevice(const std::string& path) {
  zv::ComponentObject* c = shown();
  if (!c)
    return;
  targets_[c].device = path;
  say(tr("Device %1 chosen.").arg(deviceName(path)),
      tr("The device file of %1 could not be used").arg(deviceName(path)),
      c->put_ZvdFilename(path));
  recorder(c).deviceFile(path, "the window");
  // A new device's clock divider counts from the next period calculation,
  // which the clock, told again, brings about.
  if (targets_[c].clock > 0)
    c->put_ClockSpeed(targets_[c].clock);
  refresh(*c);
  showTarget();
  updateTitle();
}

void MainWindow::setClock(int32_t hz) {
  zv::ComponentObject* c = shown();
  if (!c)
    return;
  if (hz <= 0) {
    // The component divides by the clock; it keeps the last one it was told.
    statusBar()->showMessage(tr("Choose a clock above 0 Hz."));
    return;
  }
  targets_[c].clock = hz;
  say(tr("Clock set to %1.").arg(hertzText(hz)), tr("The clock was refused"),
      c->put_ClockSpeed(hz));
  recorder(c).observe(*c, "the window");
  // The component works out the new period but leaves the panel as it was.
  refresh(*c);
  showTarget();
  updateTitle();
}

void MainWindow::showTarget() {
  zv::ComponentObject* c = shown();
  const Target t = c ? targets_[c] : Target{};
  sim_->setDevice(t.device);
  sim_->setClock(t.clock);
  const DeviceInfo& info = deviceInfo(t.device);
  const QString pins = t.device.empty() ? tr("no device") : QString::fromStdString(pinsText(info));
  sim_->setPins(pins);
  calc_->setTarget(QString::fromStdString(info.name), pins, t.clock);
}

void MainWindow::showSimulation() {
  int32_t running = 0;
  if (zv::ComponentObject* c = shown())
    c->get_IsSimulating(running);
  sim_->setSimulating(running != 0);
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
  showTarget();
  showSimulation();
  updateTitle();
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
  targets_.erase(own_.get());
  own_.reset();
  zv::Status status;
  own_ = plugin_.createComponent("", "", status, &boxes_);
  if (!own_) {
    error = "the component could not be created: run-time error " + std::to_string(status.number) +
            ": " + status.description;
    showComponent();
    return false;
  }
  Target& target = targets_[own_.get()];
  target = {sim_->device(), sim_->clock()};
  if (project) {
    zv::PropertyBag bag = project->properties;
    say(tr("Project opened."), tr("The project's properties could not be read"),
        own_->ReadProperties(bag));
    target = {project->device, project->clock};
  } else {
    say(tr("New component."), tr("The new component could not be set up"), own_->InitProperties());
  }
  own_->put_ZelvorVersion(kHostVersion);
  if (!target.device.empty()) {
    say(tr("Device %1 chosen.").arg(deviceName(target.device)),
        tr("The device file of %1 could not be used").arg(deviceName(target.device)),
        own_->put_ZvdFilename(target.device));
    recorders_[own_.get()].deviceFile(target.device, "the window");
  }
  if (target.clock > 0)
    own_->put_ClockSpeed(target.clock);
  refresh(*own_);
  if (!project)
    projectPath_.clear();
  savedText_ = currentProjectText();
  showComponent();
  return true;
}

void MainWindow::callMacro(int32_t macroId, const std::vector<long>& args) {
  zv::ComponentObject* c = shown();
  if (!c)
    return;
  const QString name = macroId >= 0 && static_cast<size_t>(macroId) < shownMacros_.size()
                           ? QString::fromStdString(shownMacros_[macroId].name)
                           : tr("Macro %1").arg(macroId);
  QStringList values;
  for (long a : args)
    values << QString::number(a);
  zv::Variant params = paramsOf(args);
  int32_t retVal = 0, cycles = 0;
  zv::Variant affected;
  zv::Status status = c->SimMacroCall(macroId, params, retVal, affected, cycles);
  say(tr("%1(%2) called.").arg(name, values.join(", ")), tr("%1 was refused").arg(name), status);
  if (status.ok())
    recorder(c).called(*c, macroId, params, "the window");
  updateTitle();
}

void MainWindow::toMacro(const PeriodSetting& setting) {
  int32_t changePeriod = -1, setDuty = -1;
  for (size_t i = 0; i < shownMacros_.size(); ++i) {
    if (shownMacros_[i].name == "ChangePeriod")
      changePeriod = static_cast<int32_t>(i);
    if (shownMacros_[i].name == "SetDuty")
      setDuty = static_cast<int32_t>(i);
  }
  if (changePeriod < 0) {
    statusBar()->showMessage(tr("This component has no ChangePeriod macro."));
    return;
  }
  sim_->setParameter(changePeriod, 0, setting.pr2);
  sim_->setParameter(changePeriod, 1, setting.code);
  if (setDuty >= 0 && setting.duty >= 0)
    sim_->setParameter(setDuty, 1, setting.duty);
  callMacro(changePeriod, {setting.pr2, setting.code});
}

void MainWindow::showProperties(const PeriodSetting* setting) {
  zv::ComponentObject* c = shown();
  if (!c)
    return;
  zv::Status status;
  Plugin::PagePtr page = plugin_.createPage(status, &boxes_);
  if (!page) {
    say({}, tr("The property page could not be made"), status);
    return;
  }
  page->site().SelectedControls = {&c->publicInterface()};
  status = page->PropertyPage_SelectionChanged();
  if (!status.ok())
    say({}, tr("The property page could not show the component"), status);
  if (setting) {
    // Typed in as a user would, so the page's own handlers check and show it.
    zvqt::runUserAction([&] {
      if (auto* box = dynamic_cast<zv::TextBox*>(page->control("txt_Pr2")))
        box->setText(std::to_string(setting->pr2));
      if (auto* list = dynamic_cast<zv::ComboBox*>(page->control("cboClockSource")))
        list->setListIndex(setting->code);
    });
  }
  zvqt::PageDialog dialog(*page, this);
  dialog.onApplied = [this, c] {
    refresh(*c);
    recorder(c).observe(*c, "the property page");
    statusBar()->showMessage(tr("Properties applied."));
    updateTitle();
  };
  dialog.exec();
}

void MainWindow::showHelp(const QString& page) {
  if (!help_)
    help_ = new HelpWindow(helpFolder_, this);
  help_->showPage(page);
  help_->show();
  help_->raise();
}

} // namespace zvhost
