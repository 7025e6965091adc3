// The desktop window's script: opening it (with a word first when it makes
// components of its own), carrying out its lines, and closing it, after which
// the window's own component shows again.
#include <QFileInfo>
#include <QMessageBox>
#include <QStatusBar>

#include "host/script/json_out.h"
#include "main_window.h"
#include "platform/vbnum.h"

namespace zvhost {

bool MainWindow::openScript(const std::string& path) {
  // The script's components are its own: say so before the panel changes hands.
  if (own_ && path != scriptPath_ && scriptHasCommand(path, "create")) {
    QMessageBox box(QMessageBox::Question, tr("Open script"),
                    tr("The script %1 creates components of its own. While it is open, the "
                       "panel, the Target box, the macros and the calculator show the "
                       "script's component; yours stays as you configured it and comes back "
                       "when you close the script.")
                        .arg(QFileInfo(QString::fromStdString(path)).fileName()),
                    QMessageBox::Open | QMessageBox::Cancel, this);
    if (box.exec() != QMessageBox::Open)
      return false;
  }
  dropScript();
  std::string error;
  if (!script_->load(path, error)) {
    scriptPath_.clear();
    statusBar()->showMessage(
        tr("The script could not be read: %1.").arg(QString::fromStdString(path)));
    showComponent();
    return false;
  }
  scriptPath_ = path;
  // The runner answers the boxes of its own commands; the user answers the rest.
  runner_ = std::make_unique<Runner>(backend_, &boxes_);
  tabs_->setCurrentWidget(script_);
  statusBar()->showMessage(tr("Script %1 opened: Step carries out its next command.")
                               .arg(QFileInfo(QString::fromStdString(path)).fileName()));
  showComponent();
  return true;
}

void MainWindow::closeScript() {
  dropScript();
  scriptPath_.clear();
  script_->clear();
  statusBar()->showMessage(tr("Script closed."));
  showComponent();
}

void MainWindow::dropScript() {
  if (!runner_)
    return;
  if (panelOf_ != own_.get()) {
    delete panelArea_->takeWidget();
    panel_ = nullptr;
    panelOf_ = nullptr;
  }
  for (auto it = targets_.begin(); it != targets_.end();)
    it = it->first == own_.get() ? std::next(it) : targets_.erase(it);
  runner_.reset();
  showComponent();
}

std::optional<std::string> MainWindow::executeScriptLine(int lineNumber, const std::string& line) {
  if (!runner_)
    return std::nullopt;
  std::optional<Json> answer = runner_->execute(lineNumber, line);
  if (answer && answer->value("ok", false))
    noteScriptTarget(line);
  showComponent();
  if (!answer)
    return std::nullopt;
  return dumpJson(*answer);
}

void MainWindow::noteScriptTarget(const std::string& line) {
  ComponentHandle* handle = runner_ ? runner_->current() : nullptr;
  zv::ComponentObject* c = handle ? handle->inProcess() : nullptr;
  if (!c)
    return;
  try {
    LineScanner scan(line);
    if (scan.word() != "put")
      return;
    const std::string op = scan.word();
    if (op == "ZvdFilename")
      targets_[c].device = zv::toStr(scan.value());
    else if (op == "ClockSpeed")
      targets_[c].clock = zv::toI4(scan.value());
  } catch (const std::exception&) {
    // The runner has already answered a line it could not read.
  }
}

} // namespace zvhost
