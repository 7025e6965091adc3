#include "label_view.h"

#include <algorithm>

namespace zvqt {

namespace {
Qt::Alignment alignmentOf(int alignment) {
  // Labels keep their text at the top, whatever the horizontal alignment.
  switch (alignment) {
  case zv::Label::RightJustify:
    return Qt::AlignRight | Qt::AlignTop;
  case zv::Label::Center:
    return Qt::AlignHCenter | Qt::AlignTop;
  default:
    return Qt::AlignLeft | Qt::AlignTop;
  }
}
} // namespace

LabelView::LabelView(zv::Label& label, QWidget* parent)
    : QLabel(parent), label_(label), binding_(label, [this] { sync(); }) {
  setTextFormat(Qt::PlainText);
  setWordWrap(true);
  sync();
}

void LabelView::sync() {
  showControlState(*this, label_);
  QString caption = QString::fromStdString(label_.Caption());
  if (text() != caption)
    setText(caption);
  setAlignment(alignmentOf(label_.Alignment()));
  const bool prompt = label_.Alignment() == zv::Label::RightJustify && label_.BorderStyle() == 0;
  setWordWrap(!prompt);
  if (prompt) {
    // The twips were laid out for a narrower font: a prompt grows to its left,
    // towards the space before it, rather than wrapping out of sight.
    const int need = fontMetrics().horizontalAdvance(caption) + 2;
    if (need > width()) {
      QRect g = geometry();
      g.setLeft(std::max(0, g.right() + 1 - need));
      setGeometry(g);
    }
  }
  if (label_.BorderStyle() == 1) {
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setLineWidth(1);
  } else {
    setFrameStyle(QFrame::NoFrame);
  }
}

} // namespace zvqt
