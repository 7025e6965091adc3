#include "painter.h"

#include <algorithm>
#include <cmath>

#include "platform/controls/line_pixels.h"
#include "platform/win/wide_text.h"

namespace zvwin {

namespace {

void fill(HDC dc, const RECT& r, zv::Color color) {
  HBRUSH brush = CreateSolidBrush(colorRef(color));
  FillRect(dc, &r, brush);
  DeleteObject(brush);
}

// Text from its top left corner in the given colour, over what is there.
void text(HDC dc, int x, int y, const std::string& caption, zv::Color color, UINT align) {
  const std::wstring wide = zv::wideFrom1252(caption);
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, colorRef(color));
  SetTextAlign(dc, align | TA_TOP | TA_NOUPDATECP);
  TextOutW(dc, x, y, wide.c_str(), static_cast<int>(wide.size()));
}

} // namespace

COLORREF colorRef(zv::Color color) {
  return RGB((color >> 16) & 255, (color >> 8) & 255, color & 255);
}

int Mapping::x(double twips) const {
  return left + static_cast<int>(std::floor(twips * scaleX + 1e-9));
}
int Mapping::y(double twips) const {
  return top + static_cast<int>(std::floor(twips * scaleY + 1e-9));
}
RECT Mapping::fill(double x1, double y1, double x2, double y2) const {
  return {left + static_cast<int>(std::lround(x1 * scaleX)),
          top + static_cast<int>(std::lround(y1 * scaleY)),
          left + static_cast<int>(std::lround(x2 * scaleX)),
          top + static_cast<int>(std::lround(y2 * scaleY))};
}
Mapping Mapping::shifted(double dx, double dy) const {
  // Whole units only, so that a control's own drawing lands where its frame does.
  Mapping moved = *this;
  moved.left = left + static_cast<int>(std::lround(dx * scaleX));
  moved.top = top + static_cast<int>(std::lround(dy * scaleY));
  return moved;
}

HFONT createFont(const Mapping& map) {
  LOGFONTW font{};
  font.lfHeight = -std::max(1, static_cast<int>(std::lround(kFontTwips * map.scaleY)));
  font.lfWeight = FW_NORMAL;
  font.lfCharSet = DEFAULT_CHARSET;
  font.lfQuality = DEFAULT_QUALITY;
  lstrcpyW(font.lfFaceName, L"Tahoma");
  return CreateFontIndirectW(&font);
}

namespace {

// The pixels every platform's view gives a line, a run of a row or a column a fill.
void fillLinePixels(HDC dc, int ax, int ay, int bx, int by, zv::Color color) {
  for (const zv::PixelRun& run : zv::linePixels(ax, ay, bx, by))
    fill(dc,
         {std::min(run.x1, run.x2), std::min(run.y1, run.y2), std::max(run.x1, run.x2) + 1,
          std::max(run.y1, run.y2) + 1},
         color);
}

} // namespace

void drawLine(HDC dc, const Mapping& map, double x1, double y1, double x2, double y2,
              zv::Color color) {
  fillLinePixels(dc, map.x(x1), map.y(y1), map.x(x2), map.y(y2), color);
}

void drawOutline(HDC dc, const Mapping& map, double x1, double y1, double x2, double y2,
                 zv::Color color) {
  drawLine(dc, map, x1, y1, x2, y1, color);
  drawLine(dc, map, x2, y1, x2, y2, color);
  drawLine(dc, map, x2, y2, x1, y2, color);
  drawLine(dc, map, x1, y2, x1, y1, color);
}

void paintCanvas(HDC dc, const Mapping& map, const zv::Canvas& canvas, HFONT font) {
  const Mapping at = map.shifted(canvas.Left(), canvas.Top());
  fill(dc, at.fill(0, 0, canvas.Width(), canvas.Height()), canvas.BackColor());
  const double b = canvas.BorderWidth();
  const double pixel = 1 / at.scaleX;
  if (b > 0)
    drawOutline(dc, at, 0, 0, canvas.Width() - pixel, canvas.Height() - pixel, kCanvasEdge);
  const Mapping inner = at.shifted(b, b);
  const int saved = SaveDC(dc);
  const RECT clip = inner.fill(0, 0, canvas.ScaleWidth(), canvas.ScaleHeight());
  IntersectClipRect(dc, clip.left, clip.top, clip.right, clip.bottom);
  SelectObject(dc, font);
  for (const zv::DrawOp& op : canvas.ops()) {
    switch (op.kind) {
    case zv::DrawOp::Kind::Cls:
      break;
    case zv::DrawOp::Kind::Line:
      drawLine(dc, inner, op.x1, op.y1, op.x2, op.y2, op.color);
      break;
    case zv::DrawOp::Kind::Box:
      drawOutline(dc, inner, op.x1, op.y1, op.x2, op.y2, op.color);
      break;
    case zv::DrawOp::Kind::Print:
      text(dc, inner.x(op.x1), inner.y(op.y1), op.text, op.color, TA_LEFT);
      break;
    }
  }
  RestoreDC(dc, saved);
}

void paintLabel(HDC dc, const Mapping& map, const zv::Label& label, HFONT font) {
  const Mapping at = map.shifted(label.Left(), label.Top());
  // A label has no face of its own: what is behind it shows, as on Linux.
  const double w = label.Width(), h = label.Height(), pixel = 1 / at.scaleX;
  const double b = label.BorderStyle() == 1 ? pixel : 0;
  if (b > 0)
    drawOutline(dc, at, 0, 0, w - pixel, h - pixel, zv::rgb(0, 0, 0));
  const int saved = SaveDC(dc);
  SelectObject(dc, font);
  if (label.Alignment() == zv::Label::Center)
    text(dc, at.x(w / 2), at.y(b), label.Caption(), zv::rgb(0, 0, 0), TA_CENTER);
  else
    text(dc, at.x(b + pixel), at.y(b), label.Caption(), zv::rgb(0, 0, 0), TA_LEFT);
  RestoreDC(dc, saved);
}

void paintLine(HDC dc, const Mapping& map, const zv::Line& line) {
  // A line control's ends are placed like a control's corners: to the nearest pixel.
  const RECT ends = map.fill(line.X1(), line.Y1(), line.X2(), line.Y2());
  fillLinePixels(dc, ends.left, ends.top, ends.right, ends.bottom, line.BorderColor());
}

void paintPanel(HDC dc, const Mapping& map, const zv::UserControlSurface& surface,
                const std::vector<zv::Control*>& controls) {
  const int saved = SaveDC(dc);
  const RECT whole = map.fill(0, 0, surface.Width(), surface.Height());
  IntersectClipRect(dc, whole.left, whole.top, whole.right, whole.bottom);
  if (surface.BackStyle() != 0)
    fill(dc, whole, kFace);
  HFONT font = createFont(map);
  for (const zv::Control* control : controls) {
    if (!control || !control->Visible())
      continue;
    if (auto* canvas = dynamic_cast<const zv::Canvas*>(control))
      paintCanvas(dc, map, *canvas, font);
    else if (auto* label = dynamic_cast<const zv::Label*>(control))
      paintLabel(dc, map, *label, font);
    else if (auto* line = dynamic_cast<const zv::Line*>(control))
      paintLine(dc, map, *line);
  }
  RestoreDC(dc, saved);
  DeleteObject(font);
}

} // namespace zvwin
