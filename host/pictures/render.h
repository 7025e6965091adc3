// Pictures of a component's panel as it stands: the desktop's panel widget
// itself, painted into an image (PNG) or an SVG generator. At scale 1 a PNG
// is the widget's grab, pixel for pixel; at 2 or 4, for documents, the same
// panel painted at that many pixels to the window's pixel.
#pragma once

#include <QImage>
#include <string>

#include "zelvor/objects.h"

namespace zvhost {

// Writes the panel to path, as SVG or PNG by its extension (".svg", ".png").
// Returns false and fills error when the file can't be written, the
// extension is unknown or the scale is out of range.
bool renderPanel(zv::ComponentObject& component, const std::string& path, std::string& error,
                 double scale = 1);

// The scales a picture may be taken at.
constexpr double kMinScale = 0.25, kMaxScale = 8;

// Both need a QApplication; renderPanel makes one where there is none.
QImage panelImage(zv::ComponentObject& component, double scale = 1);
std::string panelSvg(zv::ComponentObject& component, double scale = 1);

} // namespace zvhost
