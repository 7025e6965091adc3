// The desktop window's menus and files: projects with their name in the
// title and a question before unsaved changes are lost, the panel's picture,
// the program, and the help.
#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>
#include <QToolBar>
#include <fstream>

#include "host/pictures/render.h"
#include "main_window.h"

namespace zvhost {

QString withSuffix(const QString& path, const QString& suffix, const QStringList& allowed) {
  const QString has = QFileInfo(path).suffix().toLower();
  if (!has.isEmpty() && (has == suffix || allowed.contains(has)))
    return path;
  return path + "." + suffix;
}

QString MainWindow::projectName() const {
  return projectPath_.empty() ? tr("Untitled")
                              : QFileInfo(QString::fromStdString(projectPath_)).completeBaseName();
}

void MainWindow::updateTitle() {
  QString title = projectName() + "[*]";
  if (!scriptPath_.empty())
    title += tr(" - script %1").arg(QFileInfo(QString::fromStdString(scriptPath_)).fileName());
  setWindowTitle(title + " - zelvor-host");
  setWindowModified(isModified());
}

QString MainWindow::askFile(bool save, const QString& caption, const QString& name,
                            const QStringList& filters, const QStringList& suffixes) {
  QFileDialog dialog(this, caption);
  dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  dialog.setNameFilters(filters + QStringList{tr("All files (*)")});
  dialog.setDefaultSuffix(suffixes.value(0));
  connect(&dialog, &QFileDialog::filterSelected, &dialog, [&](const QString& filter) {
    const qsizetype i = filters.indexOf(filter);
    if (i >= 0)
      dialog.setDefaultSuffix(suffixes.value(i));
  });
  if (!name.isEmpty())
    dialog.selectFile(name);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
    return {};
  const QString path = dialog.selectedFiles().front();
  if (!save)
    return path;
  const qsizetype chosen = filters.indexOf(dialog.selectedNameFilter());
  return withSuffix(path, suffixes.value(chosen < 0 ? 0 : chosen), suffixes);
}

bool MainWindow::saveProject(bool askName) {
  std::string path = projectPath_;
  if (askName || path.empty()) {
    QString name =
        projectPath_.empty() ? projectName() + ".json" : QString::fromStdString(projectPath_);
    path =
        askFile(true, tr("Save project"), name, {tr("Projects (*.json)")}, {"json"}).toStdString();
    if (path.empty())
      return false;
  }
  std::string error;
  if (!saveProjectTo(path, error)) {
    QMessageBox::warning(
        this, tr("Save project"),
        tr("The project could not be saved: %1.").arg(QString::fromStdString(error)));
    return false;
  }
  statusBar()->showMessage(tr("Project saved as %1.").arg(QString::fromStdString(path)));
  return true;
}

bool MainWindow::maySetAside() {
  if (!isModified())
    return true;
  QMessageBox box(QMessageBox::Question, tr("Unsaved changes"),
                  tr("%1 has changes that are not saved. Save them?").arg(projectName()),
                  QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
  box.setDefaultButton(QMessageBox::Save);
  switch (box.exec()) {
  case QMessageBox::Save:
    return saveProject(false);
  case QMessageBox::Discard:
    return true;
  default:
    return false;
  }
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (maySetAside())
    event->accept();
  else
    event->ignore();
}

void MainWindow::buildMenus() {
  auto warn = [this](const QString& what, const std::string& error) {
    QMessageBox::warning(this, what, tr("%1 failed: %2.").arg(what, QString::fromStdString(error)));
  };
  QMenu* file = menuBar()->addMenu(tr("&File"));
  file->addAction(tr("&New project"), QKeySequence::New, this, [this, warn] {
    std::string error;
    if (maySetAside() && !newComponent(nullptr, error))
      warn(tr("New project"), error);
  });
  file->addAction(tr("&Open project..."), QKeySequence::Open, this, [this, warn] {
    if (!maySetAside())
      return;
    QString path = askFile(false, tr("Open project"), {}, {tr("Projects (*.json)")}, {"json"});
    std::string error;
    if (!path.isEmpty() && !openProject(path.toStdString(), error))
      warn(tr("Opening the project"), error);
  });
  file->addAction(tr("&Save project"), QKeySequence::Save, this, [this] { saveProject(false); });
  file->addAction(tr("Save project &as..."), QKeySequence::SaveAs, this,
                  [this] { saveProject(true); });
  file->addSeparator();
  auto openScriptFile = [this] {
    QString path = askFile(false, tr("Open script"), {}, {tr("Scripts (*.zsc)")}, {"zsc"});
    if (!path.isEmpty())
      openScript(path.toStdString());
  };
  script_->onOpen = openScriptFile;
  file->addAction(tr("Open s&cript..."), QKeySequence(tr("Ctrl+Shift+O")), this, openScriptFile);
  file->addAction(tr("C&lose script"), this, [this] { closeScript(); });
  file->addAction(tr("&Export panel..."), QKeySequence(tr("Ctrl+E")), this, [this, warn] {
    QString path = askFile(true, tr("Export panel"), projectName() + "-panel.png",
                           {tr("PNG picture (*.png)"), tr("SVG picture (*.svg)")}, {"png", "svg"});
    std::string error;
    if (!path.isEmpty() && !exportPanel(path.toStdString(), error))
      warn(tr("Exporting the panel"), error);
    else if (!path.isEmpty())
      statusBar()->showMessage(tr("Panel exported to %1.").arg(path));
  });
  file->addAction(tr("&Generate program..."), QKeySequence(tr("Ctrl+G")), this, [this, warn] {
    QString path =
        askFile(true, tr("Generate program"), projectName() + ".c", {tr("C program (*.c)")}, {"c"});
    std::string error;
    if (!path.isEmpty() && !writeProgram(path.toStdString(), error))
      warn(tr("Generating the program"), error);
    else if (!path.isEmpty())
      statusBar()->showMessage(tr("Program written to %1.").arg(path));
  });
  file->addAction(tr("Export &waveform..."), this, [this, warn] {
    QString path = askFile(true, tr("Export waveform"), projectName() + ".vcd",
                           {tr("Value Change Dump (*.vcd)")}, {"vcd"});
    std::string error;
    if (!path.isEmpty() && !exportWaveform(path.toStdString(), error))
      warn(tr("Exporting the waveform"), error);
    else if (!path.isEmpty())
      statusBar()->showMessage(tr("Waveform exported to %1.").arg(path));
  });
  file->addSeparator();
  file->addAction(tr("&Quit"), QKeySequence::Quit, this, &QWidget::close);

  QMenu* component = menuBar()->addMenu(tr("&Component"));
  component->addAction(tr("&Properties..."), QKeySequence(Qt::Key_F4), this,
                       [this] { showProperties(); });
  QAction* verify = new QAction(tr("&Verify on chip"), this);
  verify->setShortcut(QKeySequence(Qt::Key_F6));
  verify->setToolTip(tr("Build the program with avr-gcc, run it in simavr and show its pins"));
  connect(verify, &QAction::triggered, this, [this] {
    std::string error;
    verifyOnChip(error);
  });
  addToolBar(tr("Verify"))->addAction(verify);
  component->addAction(verify);
  component->addAction(tr("Period &calculator"), QKeySequence(Qt::Key_F7), this,
                       [this] { tabs_->setCurrentWidget(calc_); });
  component->addAction(tr("&Refresh"), QKeySequence(Qt::Key_F5), this, [this] {
    if (auto* c = shown()) {
      refresh(*c);
      statusBar()->showMessage(tr("Panel redrawn."));
    }
  });

  QMenu* help = menuBar()->addMenu(tr("&Help"));
  help->addAction(tr("&Help"), QKeySequence::HelpContents, this, [this] { showHelp(); });
  help->addAction(tr("The &desktop window"), this, [this] { showHelp("desktop.html"); });
  help->addAction(tr("Device &pins"), this, [this] { showHelp("pins.html"); });
  help->addAction(tr("&Messages"), this, [this] { showHelp("messages.html"); });
  help->addSeparator();
  help->addAction(tr("&About"), this, [this] {
    QMessageBox::about(this, tr("About zelvor-host"),
                       tr("zelvor-host: the reference host of the AVR PWM component, with its "
                          "desktop window, script runner and period calculator."));
  });
}

bool MainWindow::openProject(const std::string& path, std::string& error) {
  Project project;
  if (!loadProject(path, project, error) || !newComponent(&project, error))
    return false;
  projectPath_ = path; // newComponent kept the project's text as saved
  updateTitle();
  return true;
}

std::string MainWindow::currentProjectText() {
  if (!own_)
    return {};
  Project project;
  project.device = targets_[own_.get()].device;
  project.clock = targets_[own_.get()].clock;
  if (!own_->WriteProperties(project.properties).ok())
    return {};
  return projectText(project);
}

bool MainWindow::isModified() {
  return own_ && currentProjectText() != savedText_;
}

bool MainWindow::saveProjectTo(const std::string& path, std::string& error) {
  if (!own_) {
    error = "no component";
    return false;
  }
  Project project;
  project.device = targets_[own_.get()].device;
  project.clock = targets_[own_.get()].clock;
  zv::Status status = own_->WriteProperties(project.properties);
  if (!status.ok()) {
    error = "the properties could not be written: run-time error " + std::to_string(status.number) +
            ": " + status.description;
    return false;
  }
  if (!zvhost::saveProject(path, project, error))
    return false;
  projectPath_ = path;
  savedText_ = projectText(project);
  updateTitle();
  return true;
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

} // namespace zvhost
