#include "panel_widget.h"

#include <QGuiApplication>
#include <QScreen>

namespace zvqt {

PanelWidget::PanelWidget(zv::ComponentObject& component, QWidget* parent)
    : QWidget(parent), surface_(component.panelSurface()), binding_(surface_, [this] { sync(); }) {
  // The face colour of the platform's forms, as the panel's pictures show it.
  QPalette face = palette();
  face.setColor(QPalette::Window, QColor(240, 240, 240));
  setPalette(face);
  setFont(platformFont());
  // A panel painted while not on screen (a picture, a test) would otherwise
  // look for its screen by position in every painter it begins.
  if (!parent && QGuiApplication::primaryScreen())
    setScreen(QGuiApplication::primaryScreen());
  views_ = buildViews(component.panelControls(), *this);
  sync();
}

QWidget* PanelWidget::viewOf(const zv::Control* control) const {
  auto found = views_.find(control);
  return found == views_.end() ? nullptr : found->second;
}

void PanelWidget::sync() {
  // What lies outside the surface's size is clipped by the fixed size.
  setFixedSize(twipsToPixels(surface_.Width()), twipsToPixels(surface_.Height()));
  // Style 0 lets whatever is behind the panel show through.
  setAutoFillBackground(surface_.BackStyle() == 1);
  update();
}

} // namespace zvqt
