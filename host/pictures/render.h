// Pictures of a component's panel as it stands: SVG written by hand, PNG
// through Qt's raster painter. Both show the same thing: the panel's size and
// background, visible canvases with their background and recorded drawing,
// labels with border and caption, the separator lines; hidden controls are
// left out.
#pragma once

#include <string>

#include "zelvor/objects.h"

namespace zvhost {

// Writes the panel to path, as SVG or PNG by its extension (".svg", ".png").
// pixelsPerTwip scales the PNG (default 1/15: 96 dpi). Returns false and
// fills error when the file can't be written or the extension is unknown.
bool renderPanel(zv::ComponentObject& component, const std::string& path, std::string& error,
                 double pixelsPerTwip = 1.0 / 15.0);

std::string panelSvg(zv::ComponentObject& component);

} // namespace zvhost
