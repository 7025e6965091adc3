// The desktop window's check on the chip: the program of what was simulated,
// built and run on simavr, its pins drawn under the panel and kept for export.
#include <QStatusBar>

#include "host/verify/vcd.h"
#include "main_window.h"

namespace zvhost {

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
