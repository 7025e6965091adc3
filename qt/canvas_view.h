// A canvas shown as a widget: its border, its background and what was drawn
// on it since its last Cls, repainted from the recorded operations.
#pragma once

#include <QImage>
#include <QPainter>
#include <QWidget>

#include "binding.h"
#include "platform/controls/canvas.h"
#include "platform/controls/line_pixels.h"

namespace zvqt {

// A model colour (0xRRGGBB) as Qt's.
QColor toQColor(zv::Color color);

// The pixels of a line's run as one rectangle to fill.
QRect runRect(const zv::PixelRun& run);

// Paints the canvas with its outer top left at the painter's origin,
// pixelsPerTwip device-independent pixels to the twip: the view's kept
// picture, and the canvas painted afresh at another scale or into an SVG.
// Given the image the painter paints on, lines along rows and columns go
// straight into its pixels and texts that stay are copied.
void paintCanvas(QPainter& painter, const zv::Canvas& canvas, double pixelsPerTwip,
                 QImage* target = nullptr);

class CanvasView : public QWidget {
public:
  CanvasView(zv::Canvas& canvas, QWidget* parent = nullptr);

protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

private:
  void sync();
  zv::Canvas& canvas_;
  ControlBinding binding_;
  QImage picture_;    // the canvas as last painted
  bool stale_ = true; // the canvas changed since
};

} // namespace zvqt
