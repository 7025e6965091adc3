// The help of the desktop window: the pages the component's help file is
// compiled from, shown in a browser window of their own.
#pragma once

#include <QDialog>
#include <QTextBrowser>
#include <string>

namespace zvhost {

// The folder of the help pages: <exe dir>/../share/doc/zelvor-avr-pwm/help
// when installed, else the sources' docs/help; empty when neither exists.
std::string helpFolder(const std::string& exeDir);

class HelpWindow : public QDialog {
public:
  explicit HelpWindow(const std::string& folder, QWidget* parent = nullptr);
  // Shows a page of the folder ("index.html", "desktop.html#calculator").
  void showPage(const QString& page);
  QTextBrowser* browser() const { return browser_; }

private:
  QTextBrowser* browser_;
};

} // namespace zvhost
