#include "canvas_view.h"

#include <QImage>
#include <QPaintEngine>
#include <QPaintEvent>
#include <algorithm>
#include <cmath>
#include <vector>

#include "kept_texts.h"

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

// A line one of the painter's pixels wide, `scale` of the device's. An SVG's
// lines widen with the picture as it is enlarged.
QPen linePen(zv::Color color, int drawStyle, double scale, bool svg) {
  QPen pen(toQColor(color));
  pen.setStyle(penStyle(drawStyle));
  pen.setCosmetic(!svg);
  pen.setWidthF(svg ? 1 : scale);
  return pen;
}

// Cuts the segment p-q to the part inside `area`; false when none is.
bool cut(QPointF& p, QPointF& q, const QRectF& area) {
  const QPointF d = q - p;
  const double edges[4][2] = {{-d.x(), p.x() - area.left()},
                              {d.x(), area.right() - p.x()},
                              {-d.y(), p.y() - area.top()},
                              {d.y(), area.bottom() - p.y()}};
  double from = 0, to = 1;
  for (const auto& [toward, room] : edges) {
    if (toward == 0) {
      if (room < 0)
        return false;
      continue;
    }
    if (toward < 0)
      from = std::max(from, room / toward);
    else
      to = std::min(to, room / toward);
    if (from > to)
      return false;
  }
  const QPointF start = p;
  p = start + from * d;
  q = start + to * d;
  return true;
}

// Lines in drawing order. A solid line is filled run by run from the pixels
// every platform's view gives it (zv::linePixels), along a row or a column a
// single rectangle, far cheaper than stroking; in an SVG only those stay
// fills. Other lines of one pen go to the painter together. On a painter
// whose pixels are several of the device's, a line keeps to the painter's pixels.
class LineBatch {
public:
  // With a target, the image the painter paints on, filled lines are written
  // into its pixels, clipped to `clip` (in the image's pixels).
  explicit LineBatch(QPainter& painter, QImage* target = nullptr, QRect clip = {})
      : painter_(painter), clip_(clip) {
    const QTransform& t = painter.deviceTransform();
    fill_ = t.type() <= QTransform::TxScale && t.m11() == t.m22() && t.m11() > 0;
    scale_ = fill_ ? t.m11() : 1;
    svg_ = painter.paintEngine()->type() == QPaintEngine::SVG;
    dx_ = t.dx() / scale_;
    dy_ = t.dy() / scale_;
    whole_ = scale_ == 1 && dx_ == std::floor(dx_) && dy_ == std::floor(dy_);
    if (target && whole_ &&
        (target->format() == QImage::Format_RGB32 ||
         target->format() == QImage::Format_ARGB32_Premultiplied))
      target_ = target;
  }
  ~LineBatch() { flush(); }

  // For painters that can't clip, an SVG's in this Qt: lines are cut to the
  // area instead.
  void cutTo(QRectF area) { cut_ = area; }

  void add(QPointF p, QPointF q, zv::Color color, int style) {
    if (cut_.isValid() && !cut(p, q, cut_))
      return;
    if (fill_ && style == 0 && (!svg_ || p.x() == q.x() || p.y() == q.y())) {
      fillLine(p, q, color);
      return;
    }
    if (color != color_ || style != style_)
      flush();
    color_ = color;
    style_ = style;
    run_.emplace_back(p, q);
  }

  // A text's corner on the pixel that holds it, where the other views put it.
  QPointF onPixel(QPointF p) const {
    if (!fill_ || svg_)
      return p;
    return {std::floor(p.x() + dx_) - dx_, std::floor(p.y() + dy_) - dy_};
  }

  void flush() {
    if (run_.empty())
      return;
    painter_.setPen(linePen(color_, style_, scale_, svg_));
    painter_.drawLines(run_.data(), static_cast<int>(run_.size()));
    run_.clear();
  }

private:
  // The line's pixels as every platform's view draws them: a run of a row or
  // a column is one fill.
  void fillLine(QPointF p, QPointF q, zv::Color color) {
    flush();
    const auto pixel = [](double v) { return static_cast<int>(std::floor(v)); };
    for (const zv::PixelRun& run : zv::linePixels(pixel(p.x() + dx_), pixel(p.y() + dy_),
                                                  pixel(q.x() + dx_), pixel(q.y() + dy_)))
      fillPixels(runRect(run), color);
  }

  void fillPixels(QRect pixels, zv::Color color) {
    if (target_) {
      write(pixels, color);
      return;
    }
    const QRectF at = QRectF(pixels).translated(-dx_, -dy_);
    // Whole-pixel rectangles take the painter's integer path, which is cheaper.
    if (whole_)
      painter_.fillRect(at.toRect(), toQColor(color));
    else
      painter_.fillRect(at, toQColor(color));
  }

  // A painter fills a rectangle row by row, a call for each: a one-pixel
  // column of a plot costs a call per pixel there, a store per pixel here.
  void write(QRect pixels, zv::Color color) {
    pixels &= clip_;
    if (pixels.isEmpty())
      return;
    const uint32_t argb = 0xff000000u | color;
    const qsizetype stride = target_->bytesPerLine();
    uchar* row = target_->bits() + pixels.top() * stride;
    if (pixels.width() == 1) {
      for (int y = pixels.top(); y <= pixels.bottom(); ++y, row += stride)
        reinterpret_cast<uint32_t*>(row)[pixels.left()] = argb;
      return;
    }
    for (int y = pixels.top(); y <= pixels.bottom(); ++y, row += stride)
      std::fill_n(reinterpret_cast<uint32_t*>(row) + pixels.left(), pixels.width(), argb);
  }

  QPainter& painter_;
  QImage* target_ = nullptr;
  QRect clip_;
  QRectF cut_;
  bool fill_ = false;
  bool svg_ = false;
  bool whole_ = false;
  double scale_ = 1, dx_ = 0, dy_ = 0; // in the painter's pixels
  std::vector<QLineF> run_;
  zv::Color color_ = 0;
  int style_ = -1;
};

// A bordered canvas shows a single grey edge, as the panel's pictures do.
void paintBorder(QPainter& painter, const QRectF& outer, double border, QImage* target) {
  if (border <= 0)
    return;
  const QRectF r = outer.adjusted(0, 0, -1, -1);
  const zv::Color grey = zv::rgb(128, 128, 128);
  LineBatch lines(painter, target, target ? target->rect() : QRect());
  lines.add(r.topLeft(), r.topRight(), grey, 0);
  lines.add(r.topRight(), r.bottomRight(), grey, 0);
  lines.add(r.bottomRight(), r.bottomLeft(), grey, 0);
  lines.add(r.bottomLeft(), r.topLeft(), grey, 0);
}

// Short of a pixel's far edge: a line there covers the pixel before it.
constexpr double kHair = 1.0 / 64;

} // namespace

QColor toQColor(zv::Color color) {
  return QColor((color >> 16) & 255, (color >> 8) & 255, color & 255);
}

QRect runRect(const zv::PixelRun& run) {
  return QRect(QPoint(std::min(run.x1, run.x2), std::min(run.y1, run.y2)),
               QPoint(std::max(run.x1, run.x2), std::max(run.y1, run.y2)));
}

void paintCanvas(QPainter& painter, const zv::Canvas& canvas, double scale, QImage* target) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing, false);
  QRectF outer(0, 0, canvas.Width() * scale, canvas.Height() * scale);
  double border = canvas.BorderWidth() * scale;
  painter.fillRect(outer, toQColor(canvas.BackColor()));
  // Pixels are written straight only where the painter would clip on whole pixels.
  const QRectF innerOnDevice =
      painter.deviceTransform().mapRect(outer.adjusted(border, border, -border, -border));
  if (innerOnDevice != QRectF(innerOnDevice.toRect()) ||
      painter.deviceTransform().type() > QTransform::TxTranslate)
    target = nullptr;
  paintBorder(painter, outer, border, target);
  QRectF inner = outer.adjusted(border, border, -border, -border);
  painter.setClipRect(inner);
  painter.translate(inner.topLeft());
  const QRect clip = target ? innerOnDevice.toRect() & target->rect() : QRect();
  LineBatch lines(painter, target, clip);
  if (painter.paintEngine()->type() == QPaintEngine::SVG)
    lines.cutTo(QRectF(0, 0, inner.width() - kHair, inner.height() - kHair));
  auto addLine = [&](const zv::DrawOp& op, QPointF p, QPointF q) {
    lines.add(p, q, op.color, op.style);
  };
  for (const zv::DrawOp& op : canvas.ops()) {
    QPointF a(op.x1 * scale, op.y1 * scale), b(op.x2 * scale, op.y2 * scale);
    switch (op.kind) {
    case zv::DrawOp::Kind::Cls:
      break;
    case zv::DrawOp::Kind::Line:
      addLine(op, a, b);
      break;
    case zv::DrawOp::Kind::Box:
      addLine(op, {a.x(), a.y()}, {b.x(), a.y()});
      addLine(op, {b.x(), a.y()}, {b.x(), b.y()});
      addLine(op, {b.x(), b.y()}, {a.x(), b.y()});
      addLine(op, {a.x(), b.y()}, {a.x(), a.y()});
      break;
    case zv::DrawOp::Kind::Print:
      lines.flush();
      if (target)
        drawText(painter, *target, clip, lines.onPixel(a), op.text, toQColor(op.color));
      else
        drawText(painter, lines.onPixel(a), op.text, toQColor(op.color));
      break;
    }
  }
  lines.flush();
  painter.restore();
}

CanvasView::CanvasView(zv::Canvas& canvas, QWidget* parent)
    : QWidget(parent), canvas_(canvas), binding_(canvas, [this] { sync(); }) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  sync();
}

void CanvasView::sync() {
  showControlState(*this, canvas_);
  stale_ = true;
  update();
}

void CanvasView::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange)
    stale_ = true;
  QWidget::changeEvent(event);
}

void CanvasView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (!paintsPixelForPixel(painter)) {
    paintCanvas(painter, canvas_, kPixelsPerTwip);
    return;
  }
  // The canvas is kept as a picture, painted again only after the canvas
  // changed, with its lines written straight into the picture's pixels.
  // Where the canvas's own rectangle, rounded, leaves an edge of the widget
  // uncovered, the picture is clear there, and blended rather than copied.
  const bool covered = qRound(canvas_.Width() * kPixelsPerTwip) >= width() &&
                       qRound(canvas_.Height() * kPixelsPerTwip) >= height();
  const QImage::Format format =
      covered ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied;
  if (stale_ || picture_.size() != size() || picture_.format() != format) {
    if (picture_.size() != size() || picture_.format() != format) {
      picture_ = QImage(size(), format);
      picture_.fill(Qt::transparent);
    }
    QPainter onto(&picture_);
    onto.setFont(font());
    paintCanvas(onto, canvas_, kPixelsPerTwip, &picture_);
    stale_ = false;
  }
  painter.drawImage(0, 0, picture_);
}

} // namespace zvqt
