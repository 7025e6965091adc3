// Message boxes on the desktop: a QMessageBox with one OK button, modal and
// blocking the running operation until it is answered.
#pragma once

#include <QPointer>
#include <QWidget>

#include "platform/msgbox.h"

namespace zvqt {

class QtMessageBoxes : public zv::MessageBoxService {
public:
  static constexpr const char* kDefaultTitle = "AVR_PWM";
  // parent: the window the boxes belong to; none means the active window.
  explicit QtMessageBoxes(QWidget* parent = nullptr) : parent_(parent) {}
  void show(const std::string& text, const std::string& title) override;

private:
  QPointer<QWidget> parent_;
};

} // namespace zvqt
