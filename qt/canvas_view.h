// A canvas shown as a widget: its border, its background and what was drawn
// on it since its last Cls, repainted from the recorded operations.
#pragma once

#include <QPainter>
#include <QWidget>

#include "binding.h"
#include "platform/controls/canvas.h"

namespace zvqt {

QColor toQColor(zv::Color color);

// Paints the canvas with its outer top left at the painter's origin,
// pixelsPerTwip device-independent pixels to the twip.
void paintCanvas(QPainter& painter, const zv::Canvas& canvas, double pixelsPerTwip);

class CanvasView : public QWidget {
public:
  CanvasView(zv::Canvas& canvas, QWidget* parent = nullptr);

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  void sync();
  zv::Canvas& canvas_;
  ControlBinding binding_;
};

} // namespace zvqt
