#include "label_view.h"

#include <QPaintEvent>
#include <QPainter>
#include <QStaticText>
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
// The caption as QLabel draws plain text: a CR shows as a space, an LF breaks
// the line, a tab is a space.
QString displayed(QString text) {
  for (QChar& c : text) {
    if (c == u'\r' || c == u'\t')
      c = u' ';
    else if (c == u'\n')
      c = QChar::LineSeparator;
  }
  return text;
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
  QString caption = fromAnsi(label_.Caption());
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
  // A box frame keeps its shape, but its one-pixel edge is filled in
  // paintEvent: Qt strokes a box frame as a rectangle, dearer than the text.
  if (label_.BorderStyle() == 1) {
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setLineWidth(0);
    setContentsMargins(1, 1, 1, 1); // where the frame's width would put the text
  } else {
    setFrameStyle(QFrame::NoFrame);
    setContentsMargins(0, 0, 0, 0);
  }
}

QColor LabelView::ink() const {
  return palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, foregroundRole());
}

void LabelView::paintEvent(QPaintEvent* event) {
  const QColor ink = this->ink();
  // Lines of their own are spaced by QLabel's rules, not the kept layout's.
  if (text().contains(u'\n')) {
    if (frameShape() == QFrame::Box) {
      QPainter painter(this);
      fillEdge(painter, ink);
    }
    QLabel::paintEvent(event);
    return;
  }
  QPainter painter(this);
  if (!paintsPixelForPixel(painter)) {
    paintCaption(painter, ink);
    return;
  }
  // The edge and caption are kept as a picture while what they show stays:
  // a panel repaints its labels at every step, their captions unchanged.
  if (picture_.size() != size() || pictureText_ != text() || pictureInk_ != ink ||
      pictureFont_ != font() || pictureAlignment_ != alignment() || pictureWrap_ != wordWrap() ||
      pictureBoxed_ != (frameShape() == QFrame::Box)) {
    picture_ = QImage(size(), QImage::Format_ARGB32_Premultiplied);
    picture_.fill(Qt::transparent);
    pictureText_ = text();
    pictureInk_ = ink;
    pictureFont_ = font();
    pictureAlignment_ = alignment();
    pictureWrap_ = wordWrap();
    pictureBoxed_ = frameShape() == QFrame::Box;
    QPainter onto(&picture_);
    paintCaption(onto, ink);
  }
  painter.drawImage(0, 0, picture_);
}

void LabelView::fillEdge(QPainter& painter, const QColor& ink) {
  // The widget's edge: frameRect() would be the contents widened by a frame
  // width of 0, a pixel inside it.
  const QRect r = rect();
  painter.fillRect(QRect(r.left(), r.top(), r.width(), 1), ink);
  painter.fillRect(QRect(r.right(), r.top(), 1, r.height()), ink);
  painter.fillRect(QRect(r.left(), r.bottom(), r.width(), 1), ink);
  painter.fillRect(QRect(r.left(), r.top(), 1, r.height()), ink);
}

void LabelView::paintCaption(QPainter& painter, const QColor& ink) {
  if (frameShape() == QFrame::Box)
    fillEdge(painter, ink);
  const QRect area = contentsRect();
  if (text().isEmpty() || area.isEmpty())
    return;
  const Qt::Alignment horizontal = alignment() & Qt::AlignHorizontal_Mask;
  QStaticText shaped(displayed(text()));
  shaped.setTextFormat(Qt::PlainText);
  QTextOption option(horizontal);
  option.setWrapMode(wordWrap() ? QTextOption::WordWrap : QTextOption::NoWrap);
  shaped.setTextOption(option);
  shaped.setTextWidth(wordWrap() ? area.width() : -1);
  shaped.prepare(QTransform(), font());
  QPointF at = area.topLeft();
  // Unwrapped text is placed by hand: the layout aligns only within a width.
  if (!wordWrap()) {
    const qreal spare = area.width() - shaped.size().width();
    if (horizontal & Qt::AlignRight)
      at.rx() += spare;
    else if (horizontal & Qt::AlignHCenter)
      at.rx() += spare / 2;
  }
  painter.setFont(font());
  painter.setPen(ink);
  painter.drawStaticText(at, shaped);
}

} // namespace zvqt
