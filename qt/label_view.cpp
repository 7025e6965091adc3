#include "label_view.h"

#include <QEvent>
#include <QPainter>
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
// Qt strokes a box frame as a rectangle, which costs a label's repaint more
// than its text: the frame keeps its shape with no line width of its own,
// and its one-pixel edge is filled here, on the same pixels, before the text.
class BoxEdge : public QObject {
public:
  using QObject::QObject;
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) {
      auto* label = static_cast<QLabel*>(watched);
      const QRect r = label->frameRect();
      if (r.width() > 0 && r.height() > 0) {
        QPainter painter(label);
        const QColor c = label->palette().color(label->foregroundRole());
        painter.fillRect(QRect(r.left(), r.top(), r.width(), 1), c);
        painter.fillRect(QRect(r.left(), r.bottom(), r.width(), 1), c);
        painter.fillRect(QRect(r.left(), r.top(), 1, r.height()), c);
        painter.fillRect(QRect(r.right(), r.top(), 1, r.height()), c);
      }
    }
    return false;
  }
};

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
  const bool boxed = label_.BorderStyle() == 1;
  auto* edge = findChild<BoxEdge*>(QString(), Qt::FindDirectChildrenOnly);
  if (boxed && !edge) {
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setLineWidth(0);
    setContentsMargins(1, 1, 1, 1); // where the frame's width would put the text
    installEventFilter(new BoxEdge(this));
  } else if (!boxed && edge) {
    removeEventFilter(edge);
    delete edge;
  }
  if (!boxed) {
    setFrameStyle(QFrame::NoFrame);
    setContentsMargins(0, 0, 0, 0);
  }
}

} // namespace zvqt
