#include "message_boxes.h"

#include <QApplication>
#include <QMessageBox>

namespace zvqt {

void QtMessageBoxes::show(const std::string& text, const std::string& title) {
  QWidget* parent = parent_ ? parent_.data() : QApplication::activeWindow();
  QString caption = QString::fromStdString(title.empty() ? kDefaultTitle : title);
  QString body = QString::fromStdString(text);
  body.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  QMessageBox box(QMessageBox::NoIcon, caption, body, QMessageBox::Ok, parent);
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

} // namespace zvqt
