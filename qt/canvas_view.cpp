#include "canvas_view.h"

#include <QPaintEvent>
#include <algorithm>

namespace zvqt {

namespace {

Qt::PenStyle penStyle(int drawStyle) {
  switch (drawStyle) {
  case 1:
    return Qt::DashLine;
  case 2:
    return Qt::DotLine;
  case 3:
    return Qt::DashDotLine;
  case 4:
    return Qt::DashDotDotLine;
  case 5:
    return Qt::NoPen;
  default:
    return Qt::SolidLine;
  }
}

QPen cosmeticPen(zv::Color color, int drawStyle) {
  QPen pen(toQColor(color));
  pen.setStyle(penStyle(drawStyle));
  pen.setCosmetic(true);
  pen.setWidth(1);
  return pen;
}

// A bordered canvas shows a single grey edge, as the panel's pictures do.
void paintBorder(QPainter& painter, const QRectF& outer, double border) {
  if (border <= 0)
    return;
  QPen pen(QColor(128, 128, 128));
  pen.setCosmetic(true);
  painter.setPen(pen);
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(outer.adjusted(0, 0, -1, -1));
}

} // namespace

QColor toQColor(zv::Color color) {
  return QColor((color >> 16) & 255, (color >> 8) & 255, color & 255);
}

void paintCanvas(QPainter& painter, const zv::Canvas& canvas, double scale) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing, false);
  QRectF outer(0, 0, canvas.Width() * scale, canvas.Height() * scale);
  double border = canvas.BorderWidth() * scale;
  painter.fillRect(outer, toQColor(canvas.BackColor()));
  paintBorder(painter, outer, border);
  QRectF inner = outer.adjusted(border, border, -border, -border);
  painter.setClipRect(inner);
  painter.translate(inner.topLeft());
  for (const zv::DrawOp& op : canvas.ops()) {
    QPointF a(op.x1 * scale, op.y1 * scale), b(op.x2 * scale, op.y2 * scale);
    switch (op.kind) {
    case zv::DrawOp::Kind::Cls:
      break;
    case zv::DrawOp::Kind::Line:
      painter.setPen(cosmeticPen(op.color, op.style));
      painter.drawLine(a, b);
      break;
    case zv::DrawOp::Kind::Box:
      painter.setPen(cosmeticPen(op.color, op.style));
      painter.setBrush(Qt::NoBrush);
      painter.drawRect(QRectF(QPointF(std::min(a.x(), b.x()), std::min(a.y(), b.y())),
                              QPointF(std::max(a.x(), b.x()), std::max(a.y(), b.y()))));
      break;
    case zv::DrawOp::Kind::Print:
      painter.setPen(toQColor(op.color));
      painter.drawText(QRectF(a, QSizeF(outer.width() * 4, outer.height() * 4)),
                       Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine,
                       QString::fromStdString(op.text));
      break;
    }
  }
  painter.restore();
}

CanvasView::CanvasView(zv::Canvas& canvas, QWidget* parent)
    : QWidget(parent), canvas_(canvas), binding_(canvas, [this] { sync(); }) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  sync();
}

void CanvasView::sync() {
  showControlState(*this, canvas_);
  update();
}

void CanvasView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  paintCanvas(painter, canvas_, kPixelsPerTwip);
}

} // namespace zvqt
