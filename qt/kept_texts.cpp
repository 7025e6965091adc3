#include "kept_texts.h"
#include "binding.h"

#include <QFontMetricsF>
#include <QStaticText>
#include <cmath>
#include <cstring>
#include <unordered_map>
#include <vector>

namespace zvqt {

namespace {

// Shaping a text costs more than drawing it: keep the texts a panel shows,
// a swept duty's 101 among them.
const QStaticText& shapedText(QPainter& painter, const std::string& text) {
  static std::unordered_map<std::string, QStaticText> shaped;
  if (shaped.size() > 256)
    shaped.clear();
  auto it = shaped.find(text);
  if (it == shaped.end()) {
    it = shaped.emplace(text, QStaticText(fromAnsi(text))).first;
    it->second.setTextFormat(Qt::PlainText);
    it->second.prepare(painter.transform(), painter.font());
  }
  return it->second;
}

// A text as last drawn at one place of a picture: the picture's pixels that
// the text may change, before and after. Glyphs are blended pixel by pixel,
// so the same pixels before give the same after.
struct Kept {
  QRgb color;
  QPointF place; // on the picture
  QFont font;
  QRect clip;
  QImage::Format format;
  QRect area; // within the clip
  QImage before, after;
  int seen = 0; // drawings before the pixels are kept
  bool never = false;
};

// Keeping costs two copies of the area: texts that come back are kept from
// their second drawing; a swept duty's texts mostly don't come back.
constexpr int kKeepAfter = 2;
// Around the glyphs' ink, the pixels a text may change, and around those the
// ring that must stay as it was for the text to be kept.
constexpr int kMargin = 1;
constexpr int kRing = 2;

bool samePixels(const QImage& image, QRect area, const QImage& copy) {
  const size_t bytes = static_cast<size_t>(area.width()) * 4;
  for (int y = 0; y < area.height(); ++y)
    if (std::memcmp(image.constScanLine(area.top() + y) + area.left() * 4, copy.constScanLine(y),
                    bytes) != 0)
      return false;
  return true;
}

void put(QImage& image, QPoint at, const QImage& copy) {
  const size_t bytes = static_cast<size_t>(copy.width()) * 4;
  for (int y = 0; y < copy.height(); ++y)
    std::memcpy(image.scanLine(at.y() + y) + at.x() * 4, copy.constScanLine(y), bytes);
}

// Whether two copies of a ring agree everywhere but in `inner`.
bool sameAround(const QImage& a, const QImage& b, QRect inner) {
  for (int y = 0; y < a.height(); ++y) {
    const auto* p = reinterpret_cast<const QRgb*>(a.constScanLine(y));
    const auto* q = reinterpret_cast<const QRgb*>(b.constScanLine(y));
    const bool across = y >= inner.top() && y <= inner.bottom();
    for (int x = 0; x < a.width(); ++x)
      if (p[x] != q[x] && !(across && x >= inner.left() && x <= inner.right()))
        return false;
  }
  return true;
}

// Draws the text and keeps what it did, unless it changed a pixel outside the
// area its ink was measured to cover.
void drawAndKeep(Kept& kept, QPainter& painter, QImage& target, QPointF at, const std::string& text,
                 const QColor& color) {
  const QFontMetricsF metrics(painter.font());
  const QRectF ink =
      painter.deviceTransform().mapRect(metrics.boundingRect(fromAnsi(text))
                                            .translated(at.x(), at.y() + metrics.ascent())
                                            .united(QRectF(at, shapedText(painter, text).size())));
  const QRect area = QRect(QPoint(static_cast<int>(std::floor(ink.left())) - kMargin,
                                  static_cast<int>(std::floor(ink.top())) - kMargin),
                           QPoint(static_cast<int>(std::ceil(ink.right())) + kMargin,
                                  static_cast<int>(std::ceil(ink.bottom())) + kMargin)) &
                     kept.clip;
  const QRect ring = area.adjusted(-kRing, -kRing, kRing, kRing) & kept.clip;
  const QImage before = target.copy(ring);
  drawText(painter, at, text, color);
  const QImage after = target.copy(ring);
  const QRect inner = area.translated(-ring.topLeft());
  kept.never = area.isEmpty() || !sameAround(before, after, inner);
  kept.area = area;
  kept.before = kept.never ? QImage() : before.copy(inner);
  kept.after = kept.never ? QImage() : after.copy(inner);
}

} // namespace

void drawText(QPainter& painter, QPointF at, const std::string& text, const QColor& color) {
  painter.setPen(color);
  painter.drawStaticText(at, shapedText(painter, text));
}

void drawText(QPainter& painter, QImage& target, QRect clip, QPointF at, const std::string& text,
              const QColor& color) {
  if (target.depth() != 32) {
    drawText(painter, at, text, color);
    return;
  }
  static std::unordered_map<std::string, std::vector<Kept>> kept;
  if (kept.size() > 64)
    kept.clear();
  std::vector<Kept>& places = kept[text];
  const QPointF place = painter.deviceTransform().map(at);
  Kept* found = nullptr;
  for (Kept& k : places)
    if (k.place == place && k.color == color.rgb() && k.clip == clip &&
        k.format == target.format() && k.font == painter.font()) {
      found = &k;
      break;
    }
  if (!found) {
    if (places.size() > 8)
      places.clear();
    places.push_back({color.rgb(), place, painter.font(), clip, target.format(), {}, {}, {}});
    found = &places.back();
  }
  if (!found->before.isNull() && samePixels(target, found->area, found->before)) {
    put(target, found->area.topLeft(), found->after);
    return;
  }
  if (found->never || (found->seen < kKeepAfter && ++found->seen < kKeepAfter)) {
    drawText(painter, at, text, color);
    return;
  }
  drawAndKeep(*found, painter, target, at, text, color);
}

} // namespace zvqt
