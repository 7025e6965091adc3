#include "help_window.h"

#include <QDir>
#include <QHBoxLayout>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

#include "devices.h"

namespace zvhost {

std::string helpFolder(const std::string& exeDir) {
  // The package keeps the pages among its docs.
  return dataFolder(exeDir, "doc/zelvor-avr-pwm/help", "docs/help");
}

HelpWindow::HelpWindow(const std::string& folder, QWidget* parent) : QDialog(parent) {
  setWindowTitle(tr("AVR PWM help"));
  auto* layout = new QVBoxLayout(this);
  auto* buttons = new QHBoxLayout;
  auto* back = new QPushButton(tr("&Back"), this);
  auto* home = new QPushButton(tr("&Contents"), this);
  buttons->addWidget(back);
  buttons->addWidget(home);
  buttons->addStretch(1);
  layout->addLayout(buttons);
  browser_ = new QTextBrowser(this);
  browser_->setSearchPaths({QString::fromStdString(folder)});
  browser_->setOpenExternalLinks(true);
  layout->addWidget(browser_);
  connect(back, &QPushButton::clicked, browser_, &QTextBrowser::backward);
  connect(home, &QPushButton::clicked, this, [this] { showPage("index.html"); });
  resize(720, 560);
  if (folder.empty())
    browser_->setPlainText(tr("The help pages are not installed."));
}

void HelpWindow::showPage(const QString& page) {
  if (!browser_->searchPaths().isEmpty() && !browser_->searchPaths().front().isEmpty())
    browser_->setSource(QUrl(page));
}

} // namespace zvhost
