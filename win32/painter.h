// Painting the platform's panel controls with GDI into any device context: a
// window's, a memory bitmap's or a metafile's. Twips map onto the context's
// logical units through a Mapping, so the same code draws at any scale.
#pragma once

#include <windows.h>

#include <vector>

#include "platform/controls/canvas.h"
#include "platform/controls/widgets.h"

namespace zvwin {

// The panel's face and the grey of a canvas border, as the platform draws them.
constexpr zv::Color kFace = zv::rgb(240, 240, 240);
constexpr zv::Color kCanvasEdge = zv::rgb(128, 128, 128);
constexpr double kFontTwips = 160; // about 8 points

COLORREF colorRef(zv::Color color);

// Twips from a corner to logical units: x' = left + x * scaleX.
struct Mapping {
  int left = 0, top = 0;
  double scaleX = 1.0 / 15, scaleY = 1.0 / 15;
  int x(double twips) const;
  int y(double twips) const;
  // The pixels covered by a fill between two twips coordinates.
  RECT fill(double x1, double y1, double x2, double y2) const;
  // The same mapping moved by twips.
  Mapping shifted(double dx, double dy) const;
};

// The default face at 8 points for this mapping (the caller deletes it).
HFONT createFont(const Mapping& map);

// A one-unit line from end to end, both end pixels included.
void drawLine(HDC dc, const Mapping& map, double x1, double y1, double x2, double y2,
              zv::Color color);
void drawOutline(HDC dc, const Mapping& map, double x1, double y1, double x2, double y2,
                 zv::Color color);

// Each control at its own place (Left, Top) under the mapping.
void paintCanvas(HDC dc, const Mapping& map, const zv::Canvas& canvas, HFONT font);
void paintLabel(HDC dc, const Mapping& map, const zv::Label& label, HFONT font);
void paintLine(HDC dc, const Mapping& map, const zv::Line& line);

// The whole panel: its face (when opaque) and its visible controls, in order,
// clipped to the surface's size.
void paintPanel(HDC dc, const Mapping& map, const zv::UserControlSurface& surface,
                const std::vector<zv::Control*>& controls);

} // namespace zvwin
