#include "render.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include <QFont>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <vector>

#include "platform/ansi_text.h"

namespace zvhost {

namespace {

using zv::Color;

// The panel's face and the grey of a single border, as the platform draws them.
constexpr Color kFace = zv::rgb(240, 240, 240);
constexpr Color kBorder = zv::rgb(128, 128, 128);
constexpr Color kLabelBorder = zv::rgb(0, 0, 0);
constexpr double kFontTwips = 160; // about 8 points
// From a text's top to its baseline, as the raster painter places it; an
// explicit baseline reads the same in every SVG viewer.
constexpr double kAscent = kFontTwips * 0.93;
constexpr double kPixel = 15;
// SVG strokes are centred on their path: half a pixel puts them on the pixel
// that starts at the coordinate, as the raster painter does.
constexpr double kHalf = kPixel / 2;

// What a picture holds, in twips of the panel, back to front. Both writers
// draw exactly this list.
struct Shape {
  enum class Kind { Fill, Outline, Line, Text, CentredText, ClipBegin, ClipEnd };
  Kind kind;
  double x1 = 0, y1 = 0, x2 = 0, y2 = 0; // Fill/Outline/Clip: left, top, right, bottom
  Color color = 0;
  std::string text;
};

struct Scene {
  double width = 0, height = 0;
  bool opaque = true;
  std::vector<Shape> shapes;

  void add(Shape::Kind kind, double x1, double y1, double x2, double y2, Color color,
           std::string_view ansi = {}) {
    // The component's text is Windows-1252; pictures hold UTF-8.
    shapes.push_back({kind, x1, y1, x2, y2, color, zv::utf8FromAnsi(ansi)});
  }
};

void addCanvas(Scene& scene, const zv::Canvas& canvas) {
  const double left = canvas.Left(), top = canvas.Top();
  const double right = left + canvas.Width(), bottom = top + canvas.Height();
  const double b = canvas.BorderWidth();
  scene.add(Shape::Kind::Fill, left, top, right, bottom, canvas.BackColor());
  if (b > 0)
    scene.add(Shape::Kind::Outline, left, top, right - kPixel, bottom - kPixel, kBorder);
  // Drawing is clipped to the inner area and measured from its corner.
  const double ox = left + b, oy = top + b;
  scene.add(Shape::Kind::ClipBegin, ox, oy, right - b, bottom - b, 0);
  for (const zv::DrawOp& op : canvas.ops()) {
    switch (op.kind) {
    case zv::DrawOp::Kind::Cls:
      break;
    case zv::DrawOp::Kind::Line:
      scene.add(Shape::Kind::Line, ox + op.x1, oy + op.y1, ox + op.x2, oy + op.y2, op.color);
      break;
    case zv::DrawOp::Kind::Box:
      scene.add(Shape::Kind::Outline, ox + std::min(op.x1, op.x2), oy + std::min(op.y1, op.y2),
                ox + std::max(op.x1, op.x2), oy + std::max(op.y1, op.y2), op.color);
      break;
    case zv::DrawOp::Kind::Print:
      scene.add(Shape::Kind::Text, ox + op.x1, oy + op.y1, 0, 0, op.color, op.text);
      break;
    }
  }
  scene.add(Shape::Kind::ClipEnd, 0, 0, 0, 0, 0);
}

void addLabel(Scene& scene, const zv::Label& label) {
  const double left = label.Left(), top = label.Top();
  const double right = left + label.Width(), bottom = top + label.Height();
  scene.add(Shape::Kind::Fill, left, top, right, bottom, kFace);
  const double b = label.BorderStyle() == 1 ? kPixel : 0;
  if (b > 0)
    scene.add(Shape::Kind::Outline, left, top, right - kPixel, bottom - kPixel, kLabelBorder);
  if (label.Alignment() == zv::Label::Center)
    scene.add(Shape::Kind::CentredText, (left + right) / 2, top + b, 0, 0, 0, label.Caption());
  else
    scene.add(Shape::Kind::Text, left + b + kPixel, top + b, 0, 0, 0, label.Caption());
}

Scene sceneOf(zv::ComponentObject& component) {
  Scene scene;
  const zv::UserControlSurface& surface = component.panelSurface();
  scene.width = surface.Width();
  scene.height = surface.Height();
  scene.opaque = surface.BackStyle() != 0;
  if (scene.opaque)
    scene.add(Shape::Kind::Fill, 0, 0, scene.width, scene.height, kFace);
  for (zv::Control* control : component.panelControls()) {
    if (!control->Visible())
      continue;
    if (auto* canvas = dynamic_cast<zv::Canvas*>(control))
      addCanvas(scene, *canvas);
    else if (auto* label = dynamic_cast<zv::Label*>(control))
      addLabel(scene, *label);
    else if (auto* line = dynamic_cast<zv::Line*>(control))
      scene.add(Shape::Kind::Line, line->X1(), line->Y1(), line->X2(), line->Y2(),
                line->BorderColor());
  }
  return scene;
}

std::string hex(Color c) {
  char buf[8];
  std::snprintf(buf, sizeof buf, "#%06x", static_cast<unsigned>(c & 0xffffff));
  return buf;
}

std::string xmlEscape(const std::string& text) {
  std::string out;
  for (char ch : text) {
    switch (ch) {
    case '&':
      out += "&amp;";
      break;
    case '<':
      out += "&lt;";
      break;
    case '>':
      out += "&gt;";
      break;
    case '"':
      out += "&quot;";
      break;
    default:
      out += ch;
    }
  }
  return out;
}

QColor qcolor(Color c) {
  return QColor((c >> 16) & 255, (c >> 8) & 255, c & 255);
}

// QPainter needs a GUI application for its fonts; a script run has none. The one
// made here stays for the process, so later pictures don't start Qt again.
void ensureGuiApplication() {
  if (QCoreApplication::instance() != nullptr)
    return;
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  // Without a runtime folder Qt warns on every start; a private one keeps stderr clean.
  if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
    QByteArray dir = "/tmp/zelvor-runtime-" + QByteArray::number(getuid());
    if (mkdir(dir.constData(), 0700) == 0 || errno == EEXIST)
      qputenv("XDG_RUNTIME_DIR", dir);
  }
  static int argc = 1;
  static char name[] = "zelvor-host";
  static char* argv[] = {name, nullptr};
  new QGuiApplication(argc, argv);
}

QImage paintScene(const Scene& scene, double pixelsPerTwip) {
  const int w = std::max(1, static_cast<int>(scene.width * pixelsPerTwip + 0.5));
  const int h = std::max(1, static_cast<int>(scene.height * pixelsPerTwip + 0.5));
  QImage image(w, h, scene.opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.scale(pixelsPerTwip, pixelsPerTwip);
  QFont font = painter.font();
  font.setPixelSize(static_cast<int>(kFontTwips)); // in twips: the painter scales
  painter.setFont(font);
  const double px = 1.0 / pixelsPerTwip;
  for (const Shape& s : scene.shapes) {
    QPen pen(qcolor(s.color));
    pen.setCosmetic(true);
    pen.setWidth(1);
    switch (s.kind) {
    case Shape::Kind::Fill:
      painter.fillRect(QRectF(s.x1, s.y1, s.x2 - s.x1, s.y2 - s.y1), qcolor(s.color));
      break;
    case Shape::Kind::Outline:
      painter.setPen(pen);
      painter.setBrush(Qt::NoBrush);
      painter.drawRect(QRectF(s.x1, s.y1, s.x2 - s.x1, s.y2 - s.y1));
      break;
    case Shape::Kind::Line:
      painter.setPen(pen);
      painter.drawLine(QPointF(s.x1, s.y1), QPointF(s.x2, s.y2));
      break;
    case Shape::Kind::Text:
      painter.setPen(pen);
      painter.drawText(QRectF(s.x1, s.y1, scene.width * 4, kFontTwips * 2),
                       Qt::AlignLeft | Qt::AlignTop | Qt::TextDontClip,
                       QString::fromStdString(s.text));
      break;
    case Shape::Kind::CentredText:
      painter.setPen(pen);
      painter.drawText(QRectF(s.x1 - scene.width, s.y1, scene.width * 2, kFontTwips * 2),
                       Qt::AlignHCenter | Qt::AlignTop | Qt::TextDontClip,
                       QString::fromStdString(s.text));
      break;
    case Shape::Kind::ClipBegin:
      painter.setClipRect(QRectF(s.x1, s.y1, s.x2 - s.x1 + px, s.y2 - s.y1 + px));
      break;
    case Shape::Kind::ClipEnd:
      painter.setClipping(false);
      break;
    }
  }
  painter.end();
  return image;
}

} // namespace

std::string panelSvg(zv::ComponentObject& component) {
  const Scene scene = sceneOf(component);
  std::ostringstream svg;
  svg << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << scene.width / kPixel
      << "\" height=\"" << scene.height / kPixel << "\" viewBox=\"0 0 " << scene.width << ' '
      << scene.height << "\" font-family=\"sans-serif\" font-size=\"" << kFontTwips
      << "\" stroke-width=\"" << kPixel << "\" shape-rendering=\"crispEdges\">\n";
  int clips = 0;
  for (const Shape& s : scene.shapes) {
    const std::string color = hex(s.color);
    switch (s.kind) {
    case Shape::Kind::Fill:
      svg << "<rect x=\"" << s.x1 << "\" y=\"" << s.y1 << "\" width=\"" << s.x2 - s.x1
          << "\" height=\"" << s.y2 - s.y1 << "\" fill=\"" << color << "\"/>\n";
      break;
    case Shape::Kind::Outline:
      svg << "<rect x=\"" << s.x1 + kHalf << "\" y=\"" << s.y1 + kHalf << "\" width=\""
          << s.x2 - s.x1 << "\" height=\"" << s.y2 - s.y1 << "\" fill=\"none\" stroke=\"" << color
          << "\"/>\n";
      break;
    case Shape::Kind::Line:
      svg << "<line x1=\"" << s.x1 + kHalf << "\" y1=\"" << s.y1 + kHalf << "\" x2=\""
          << s.x2 + kHalf << "\" y2=\"" << s.y2 + kHalf << "\" stroke=\"" << color << "\"/>\n";
      break;
    case Shape::Kind::Text:
    case Shape::Kind::CentredText:
      svg << "<text x=\"" << s.x1 << "\" y=\"" << s.y1 + kAscent << "\""
          << (s.kind == Shape::Kind::CentredText ? " text-anchor=\"middle\"" : "")
          << " xml:space=\"preserve\" fill=\"" << color << "\">" << xmlEscape(s.text)
          << "</text>\n";
      break;
    case Shape::Kind::ClipBegin:
      ++clips;
      svg << "<defs><clipPath id=\"c" << clips << "\"><rect x=\"" << s.x1 << "\" y=\"" << s.y1
          << "\" width=\"" << s.x2 - s.x1 << "\" height=\"" << s.y2 - s.y1
          << "\"/></clipPath></defs>\n<g clip-path=\"url(#c" << clips << ")\">\n";
      break;
    case Shape::Kind::ClipEnd:
      svg << "</g>\n";
      break;
    }
  }
  svg << "</svg>\n";
  return svg.str();
}

bool renderPanel(zv::ComponentObject& component, const std::string& path, std::string& error,
                 double pixelsPerTwip) {
  const auto endsWith = [&](const std::string& ext) {
    return path.size() >= ext.size() &&
           path.compare(path.size() - ext.size(), ext.size(), ext) == 0;
  };
  if (endsWith(".svg")) {
    std::ofstream out(path, std::ios::binary);
    out << panelSvg(component);
    out.close();
    if (!out) {
      error = "cannot write " + path;
      return false;
    }
    return true;
  }
  if (endsWith(".png")) {
    if (!(pixelsPerTwip > 0)) {
      error = "the scale must be above 0";
      return false;
    }
    ensureGuiApplication();
    const QImage image = paintScene(sceneOf(component), pixelsPerTwip);
    if (!image.save(QString::fromStdString(path), "PNG")) {
      error = "cannot write " + path;
      return false;
    }
    return true;
  }
  error = "unknown picture type (use .svg or .png): " + path;
  return false;
}

} // namespace zvhost
