#include "canvas_view.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPaintEngine>
#include <QPaintEvent>
#include <QStaticText>
#include <algorithm>
#include <cmath>
#include <string>
#include <unordered_map>
#include <vector>

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

// Lines in drawing order. A solid line along a pixel row or column is filled
// as a rectangle, far cheaper than stroking, with the same pixels: an aliased
// cosmetic line covers the pixels that hold its end points and those between.
// Other lines of one pen go to the painter together.
class LineBatch {
public:
  // With a target, the image the painter paints on, filled lines are written
  // into its pixels, clipped to `clip` (in the image's pixels).
  explicit LineBatch(QPainter& painter, QImage* target = nullptr, QRect clip = {})
      : painter_(painter), clip_(clip) {
    const QTransform& t = painter.deviceTransform();
    fill_ = t.type() <= QTransform::TxTranslate;
    dx_ = t.dx();
    dy_ = t.dy();
    whole_ = dx_ == std::floor(dx_) && dy_ == std::floor(dy_);
    if (target && whole_ &&
        (target->format() == QImage::Format_RGB32 ||
         target->format() == QImage::Format_ARGB32_Premultiplied))
      target_ = target;
  }
  ~LineBatch() { flush(); }

  void add(QPointF p, QPointF q, zv::Color color, int style) {
    if (fill_ && style == 0 && (p.x() == q.x() || p.y() == q.y()) && fillLine(p, q, color))
      return;
    if (color != color_ || style != style_)
      flush();
    color_ = color;
    style_ = style;
    run_.emplace_back(p, q);
  }

  void flush() {
    if (run_.empty())
      return;
    painter_.setPen(cosmeticPen(color_, style_));
    painter_.drawLines(run_.data(), static_cast<int>(run_.size()));
    run_.clear();
  }

private:
  // False for a line within one pixel, which the stroker draws its own way.
  bool fillLine(QPointF p, QPointF q, zv::Color color) {
    const double x1 = std::floor(std::min(p.x(), q.x()) + dx_);
    const double x2 = std::floor(std::max(p.x(), q.x()) + dx_);
    const double y1 = std::floor(std::min(p.y(), q.y()) + dy_);
    const double y2 = std::floor(std::max(p.y(), q.y()) + dy_);
    if (x1 == x2 && y1 == y2)
      return false;
    flush();
    if (target_) {
      write(QRect(QPoint(static_cast<int>(x1), static_cast<int>(y1)),
                  QPoint(static_cast<int>(x2), static_cast<int>(y2))),
            color);
      return true;
    }
    const QRectF pixels(x1 - dx_, y1 - dy_, x2 - x1 + 1, y2 - y1 + 1);
    // Whole-pixel rectangles take the painter's integer path, which is cheaper.
    if (whole_)
      painter_.fillRect(pixels.toRect(), toQColor(color));
    else
      painter_.fillRect(pixels, toQColor(color));
    return true;
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
  bool fill_ = false;
  bool whole_ = false;
  double dx_ = 0, dy_ = 0;
  std::vector<QLineF> run_;
  zv::Color color_ = 0;
  int style_ = -1;
};

// Shaping a text costs more than drawing it: keep the texts a panel shows,
// a swept duty's 101 among them.
const QStaticText& shapedText(QPainter& painter, const std::string& text) {
  static std::unordered_map<std::string, QStaticText> shaped;
  if (shaped.size() > 256)
    shaped.clear();
  auto it = shaped.find(text);
  if (it == shaped.end()) {
    it = shaped.emplace(text, QStaticText(QString::fromStdString(text))).first;
    it->second.setTextFormat(Qt::PlainText);
    it->second.prepare(painter.transform(), painter.font());
  }
  return it->second;
}

// A text drawn once into a transparent image, at the same fraction of a pixel,
// and stamped at each repaint: one blend of the image costs a fraction of
// blending every glyph afresh, and from one step of a simulation to the next
// most of a panel's texts stay as they were.
struct Stamp {
  QRgb color;
  QPointF fraction;
  QFont font;
  QImage image;
  QPoint offset; // of the image's top left from the text's whole pixel
  int seen = 0;  // drawings before the image is made
};

// A stamp costs about two drawings of its text to make: texts that stay a few
// repaints get one, a swept duty's texts, there for two or three, do not.
constexpr int kStampAfter = 4;

Stamp makeStamp(QPainter& painter, const std::string& text, const QColor& color, QPointF fraction) {
  const QStaticText& shaped = shapedText(painter, text);
  const QFontMetricsF metrics(painter.font());
  // The glyphs' ink, which may reach past the text's advance, and a pixel more.
  const QRectF ink = metrics.boundingRect(QString::fromStdString(text))
                         .translated(fraction.x(), fraction.y() + metrics.ascent())
                         .united(QRectF(fraction, shaped.size()));
  const QRect pixels(QPoint(static_cast<int>(std::floor(ink.left())) - 1,
                            static_cast<int>(std::floor(ink.top())) - 1),
                     QPoint(static_cast<int>(std::ceil(ink.right())) + 1,
                            static_cast<int>(std::ceil(ink.bottom())) + 1));
  Stamp stamp{color.rgb(), fraction, painter.font(),
              QImage(pixels.size(), QImage::Format_ARGB32_Premultiplied), pixels.topLeft()};
  stamp.image.fill(Qt::transparent);
  {
    QPainter onto(&stamp.image);
    onto.setFont(painter.font());
    onto.setPen(color);
    onto.drawStaticText(fraction - QPointF(pixels.topLeft()), shaped);
  }
  return stamp;
}

// Null until a text has been asked for at its place kStampAfter times: until
// then it is drawn directly.
const Stamp* stampOf(QPainter& painter, const std::string& text, const QColor& color,
                     QPointF fraction) {
  static std::unordered_map<std::string, std::vector<Stamp>> stamps;
  if (stamps.size() > 64)
    stamps.clear();
  std::vector<Stamp>& made = stamps[text];
  for (Stamp& stamp : made)
    if (stamp.color == color.rgb() && stamp.fraction == fraction && stamp.font == painter.font()) {
      if (stamp.image.isNull() && ++stamp.seen < kStampAfter)
        return nullptr;
      if (stamp.image.isNull())
        stamp = makeStamp(painter, text, color, fraction);
      return &stamp;
    }
  if (made.size() > 8)
    made.clear();
  made.push_back({color.rgb(), fraction, painter.font(), QImage(), QPoint(), 1});
  return nullptr;
}

void drawText(QPainter& painter, QPointF at, const std::string& text, const QColor& color) {
  const QTransform& t = painter.deviceTransform();
  // Stamps land on whole pixels of a raster device; anything else, a picture
  // as SVG among them, is drawn as text.
  const bool stampable = painter.paintEngine()->type() == QPaintEngine::Raster &&
                         t.type() <= QTransform::TxTranslate && t.dx() == std::floor(t.dx()) &&
                         t.dy() == std::floor(t.dy());
  const QPointF whole(std::floor(at.x()), std::floor(at.y()));
  if (const Stamp* stamp = stampable ? stampOf(painter, text, color, at - whole) : nullptr) {
    painter.drawImage(whole + QPointF(stamp->offset), stamp->image);
    return;
  }
  painter.setPen(color);
  painter.drawStaticText(at, shapedText(painter, text));
}

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

} // namespace

QColor toQColor(zv::Color color) {
  return QColor((color >> 16) & 255, (color >> 8) & 255, color & 255);
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
  LineBatch lines(painter, target, target ? innerOnDevice.toRect() & target->rect() : QRect());
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
      drawText(painter, a, op.text, toQColor(op.color));
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
  if (devicePixelRatioF() != 1.0) {
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
