// A text box shown as a QLineEdit. Each edit by the user sets the model's
// text (one Change per edit); the model's text is shown back only when it
// differs from what the line holds, so an edit never echoes.
#pragma once

#include <QLineEdit>

#include "binding.h"
#include "platform/controls/widgets.h"

namespace zvqt {

class TextBoxView : public QLineEdit {
public:
  TextBoxView(zv::TextBox& box, QWidget* parent = nullptr);

private:
  void sync();
  zv::TextBox& box_;
  ControlBinding binding_;
};

} // namespace zvqt
