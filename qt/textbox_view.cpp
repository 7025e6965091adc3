#include "textbox_view.h"

#include <QSignalBlocker>
#include <algorithm>

namespace zvqt {

TextBoxView::TextBoxView(zv::TextBox& box, QWidget* parent)
    : QLineEdit(parent), box_(box), binding_(box, [this] { sync(); }) {
  connect(this, &QLineEdit::textEdited, this, [this](const QString& text) {
    runUserAction([&] { box_.setText(toAnsi(text)); });
    sync();
  });
  sync();
}

void TextBoxView::sync() {
  showControlState(*this, box_);
  QString text = fromAnsi(box_.Text());
  if (this->text() == text)
    return;
  QSignalBlocker block(this);
  // A caret at the end stays at the end; elsewhere it keeps its place as far
  // as the new text reaches.
  int caret = cursorPosition();
  bool atEnd = caret == this->text().size();
  setText(text);
  setCursorPosition(atEnd ? static_cast<int>(text.size())
                          : std::min<int>(caret, static_cast<int>(text.size())));
}

} // namespace zvqt
