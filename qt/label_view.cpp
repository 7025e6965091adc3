#include "label_view.h"

#include <QPaintEvent>
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

void LabelView::prepareText(const QRect& area) {
  const Qt::Alignment horizontal = alignment() & Qt::AlignHorizontal_Mask;
  if (shapedValid_ && shapedText_ == text() && shapedArea_ == area.size() &&
      shapedFont_ == font() && shapedAlignment_ == horizontal && shapedWrap_ == wordWrap())
    return;
  shapedText_ = text();
  shapedArea_ = area.size();
  shapedFont_ = font();
  shapedAlignment_ = horizontal;
  shapedWrap_ = wordWrap();
  shaped_ = QStaticText(displayed(shapedText_));
  shaped_.setTextFormat(Qt::PlainText);
  QTextOption option(horizontal);
  option.setWrapMode(shapedWrap_ ? QTextOption::WordWrap : QTextOption::NoWrap);
  shaped_.setTextOption(option);
  shaped_.setTextWidth(shapedWrap_ ? area.width() : -1);
  shaped_.prepare(QTransform(), font());
  shapedValid_ = true;
}

void LabelView::paintEvent(QPaintEvent* event) {
  // Lines of their own are spaced by QLabel's rules, not the kept layout's.
  if (text().contains(u'\n')) {
    paintEdge();
    QLabel::paintEvent(event);
    return;
  }
  const QColor ink =
      palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, foregroundRole());
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
  QPainter painter(this);
  painter.drawImage(0, 0, picture_);
}

void LabelView::paintEdge() {
  if (frameShape() != QFrame::Box)
    return;
  QPainter painter(this);
  const QColor ink =
      palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, foregroundRole());
  fillEdge(painter, ink);
}

void LabelView::fillEdge(QPainter& painter, const QColor& ink) {
  // The widget's edge: frameRect() would be the contents widened by a frame
  // width of 0, a pixel inside it.
  const QRect r = rect();
  painter.fillRect(QRect(r.left(), r.top(), r.width(), 1), ink);
  painter.fillRect(QRect(r.left(), r.bottom(), r.width(), 1), ink);
  painter.fillRect(QRect(r.left(), r.top(), 1, r.height()), ink);
  painter.fillRect(QRect(r.right(), r.top(), 1, r.height()), ink);
}

void LabelView::paintCaption(QPainter& painter, const QColor& ink) {
  if (frameShape() == QFrame::Box)
    fillEdge(painter, ink);
  const QRect area = contentsRect();
  if (text().isEmpty() || area.isEmpty())
    return;
  prepareText(area);
  QPointF at = area.topLeft();
  // Unwrapped text is placed by hand: the layout aligns only within a width.
  if (!shapedWrap_) {
    const qreal spare = area.width() - shaped_.size().width();
    if (shapedAlignment_ & Qt::AlignRight)
      at.rx() += spare;
    else if (shapedAlignment_ & Qt::AlignHCenter)
      at.rx() += spare / 2;
  }
  painter.setFont(font());
  painter.setPen(ink);
  painter.drawStaticText(at, shaped_);
}

} // namespace zvqt
