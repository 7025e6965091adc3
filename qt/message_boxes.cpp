#include "message_boxes.h"
#include "binding.h"

#include <QApplication>
#include <QMessageBox>

namespace zvqt {

void QtMessageBoxes::show(const std::string& text, const std::string& title) {
  QWidget* parent = parent_ ? parent_.data() : QApplication::activeWindow();
  QString caption = zvqt::fromAnsi(title.empty() ? kDefaultTitle : title);
  QString body = zvqt::fromAnsi(text);
  body.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  QMessageBox box(QMessageBox::NoIcon, caption, body, QMessageBox::Ok, parent);
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

} // namespace zvqt
