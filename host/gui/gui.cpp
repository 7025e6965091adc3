#include "gui.h"

#include <QApplication>
#include <QMessageBox>

#include "devices.h"
#include "help_window.h"
#include "host/plugin/loader.h"
#include "main_window.h"

namespace zvhost {

int runGui(int argc, char** argv, const std::string& pluginPath, const std::string& scriptPath) {
  QApplication app(argc, argv);
  const std::string path = pluginPath.empty() ? defaultPluginPath() : pluginPath;
  std::string error;
  Plugin plugin = Plugin::open(path, error);
  if (!plugin.loaded()) {
    QMessageBox::critical(nullptr, QStringLiteral("zelvor-host"),
                          QStringLiteral("Cannot load the plug-in %1: %2")
                              .arg(QString::fromStdString(path), QString::fromStdString(error)));
    return 1;
  }
  const std::string exeDir = QCoreApplication::applicationDirPath().toStdString();
  MainWindow window(plugin, devicesFolder(exeDir), nullptr, helpFolder(exeDir));
  if (!window.newComponent(nullptr, error))
    QMessageBox::warning(&window, window.windowTitle(), QString::fromStdString(error));
  if (!scriptPath.empty())
    window.openScript(scriptPath);
  window.resize(1100, 700);
  window.show();
  return app.exec();
}

} // namespace zvhost
