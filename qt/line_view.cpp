#include "line_view.h"

#include <QPainter>
#include <algorithm>

#include "canvas_view.h"

namespace zvqt {

LineView::LineView(zv::Line& line, QWidget* parent)
    : QWidget(parent), line_(line), binding_(line, [this] { sync(); }) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  sync();
}

void LineView::sync() {
  // The extent covers both end points and the one-pixel width of the line.
  int x1 = twipsToPixels(std::min(line_.X1(), line_.X2()));
  int y1 = twipsToPixels(std::min(line_.Y1(), line_.Y2()));
  int x2 = twipsToPixels(std::max(line_.X1(), line_.X2()));
  int y2 = twipsToPixels(std::max(line_.Y1(), line_.Y2()));
  setGeometry(x1, y1, x2 - x1 + 1, y2 - y1 + 1);
  setEnabled(line_.Enabled());
  if (parentWidget())
    setVisible(line_.Visible());
  update();
}

void LineView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  // Along a row or a column the line covers the whole extent: a fill gives the
  // stroke's pixels at a fraction of its cost.
  if (line_.X1() == line_.X2() || line_.Y1() == line_.Y2()) {
    painter.fillRect(rect(), toQColor(line_.BorderColor()));
    return;
  }
  // A slanted line's pixels are those every platform's view gives it.
  const QPoint origin = pos();
  const QPoint a = QPoint(twipsToPixels(line_.X1()), twipsToPixels(line_.Y1())) - origin;
  const QPoint b = QPoint(twipsToPixels(line_.X2()), twipsToPixels(line_.Y2())) - origin;
  const QColor color = toQColor(line_.BorderColor());
  for (const zv::PixelRun& run : zv::linePixels(a.x(), a.y(), b.x(), b.y()))
    painter.fillRect(runRect(run), color);
}

} // namespace zvqt
