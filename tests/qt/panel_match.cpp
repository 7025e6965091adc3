// The Linux half of the control's drawing test under Wine: brings a component
// to a state with a host script, paints its panel widget on a device that
// writes down each drawing operation, and compares those operations and the
// rendered pixels with what the control drew through IViewObject::Draw (the
// operations read back from its metafile, the pixels from its memory bitmap).
// Usage: panel_match SCRIPT WINDOWS_OPS WINDOWS_BMP OUT_PREFIX
//        panel_match SCRIPT - - OUT_PREFIX   (writes the Linux side only)
// It writes OUT_PREFIX-linux.png, OUT_PREFIX-linux-ops.txt and
// OUT_PREFIX-differences.png (what differs, in magenta; in a text, orange).
#include <QFontMetricsF>
#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QTextItem>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <sstream>

#include "draw_ops.h"
#include "host/pictures/render.h"
#include "host/plugin/loader.h"
#include "host/plugin/plugin_backend.h"
#include "host/script/runner.h"
#include "qt/panel_widget.h"

namespace {

using zvtest::DrawOpList;

QRgb rgbOf(const QColor& color) {
  return color.rgb() & 0xffffff;
}

// Writes down what a painter asks for, in device pixels, as the Windows side
// reads its metafile: fills, one-pixel lines and texts by their top left.
class RecordingEngine : public QPaintEngine {
public:
  RecordingEngine() : QPaintEngine(QPaintEngine::AllFeatures) {}
  bool begin(QPaintDevice*) override { return true; }
  bool end() override { return true; }
  Type type() const override { return QPaintEngine::User; }
  void updateState(const QPaintEngineState&) override {}

  void drawRects(const QRectF* rects, int count) override {
    const QTransform t = painter()->deviceTransform();
    for (int i = 0; i < count; ++i) {
      const QRect r = t.mapRect(rects[i]).toAlignedRect();
      if (painter()->brush().style() != Qt::NoBrush)
        ops.fill(r.left(), r.top(), r.right() + 1, r.bottom() + 1,
                 rgbOf(painter()->brush().color()), clip());
      if (painter()->pen().style() != Qt::NoPen)
        unsupported("a stroked rectangle");
    }
  }
  void drawRects(const QRect* rects, int count) override {
    for (int i = 0; i < count; ++i) {
      const QRectF r(rects[i]);
      drawRects(&r, 1);
    }
  }
  void drawLines(const QLineF* lines, int count) override {
    const QTransform t = painter()->deviceTransform();
    for (int i = 0; i < count; ++i) {
      const QPointF p = t.map(lines[i].p1()), q = t.map(lines[i].p2());
      ops.line(static_cast<int>(std::floor(p.x())), static_cast<int>(std::floor(p.y())),
               static_cast<int>(std::floor(q.x())), static_cast<int>(std::floor(q.y())),
               rgbOf(painter()->pen().color()), clip());
    }
  }
  void drawLines(const QLine* lines, int count) override {
    for (int i = 0; i < count; ++i) {
      const QLineF l(lines[i]);
      drawLines(&l, 1);
    }
  }
  void drawTextItem(const QPointF& baseline, const QTextItem& item) override {
    const QPointF at = painter()->deviceTransform().map(
        baseline - QPointF(0, QFontMetricsF(item.font()).ascent()));
    ops.text(static_cast<int>(std::lround(at.x())), static_cast<int>(std::lround(at.y())),
             static_cast<int>(std::lround(item.width())),
             static_cast<int>(std::lround(QFontMetricsF(item.font()).height())),
             rgbOf(painter()->pen().color()), item.text().toStdString(), clip());
  }
  void drawPolygon(const QPointF*, int, PolygonDrawMode) override { unsupported("a polygon"); }
  void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {
    unsupported("a pixmap");
  }
  void drawImage(const QRectF&, const QImage&, const QRectF&, Qt::ImageConversionFlags) override {
    unsupported("an image");
  }

  DrawOpList ops;

private:
  // The painter's clip within the device, as a raster device would cut it.
  zvtest::Rect clip() const {
    QRect r(0, 0, paintDevice()->width(), paintDevice()->height());
    if (painter()->hasClipping())
      r &= painter()->deviceTransform().mapRect(painter()->clipBoundingRect()).toAlignedRect();
    return {r.left(), r.top(), r.right() + 1, r.bottom() + 1};
  }
  void unsupported(const char* what) { ops.other(what); }
};

class RecordingDevice : public QPaintDevice {
public:
  explicit RecordingDevice(QSize size) : size_(size) {}
  QPaintEngine* paintEngine() const override { return &engine_; }
  RecordingEngine& engine() { return engine_; }

protected:
  int metric(PaintDeviceMetric metric) const override {
    switch (metric) {
    case PdmWidth:
      return size_.width();
    case PdmHeight:
      return size_.height();
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY:
      return 96;
    case PdmDepth:
      return 32;
    case PdmDevicePixelRatio:
      return 1;
    case PdmDevicePixelRatioScaled:
      return static_cast<int>(QPaintDevice::devicePixelRatioFScale());
    default:
      return QPaintDevice::metric(metric);
    }
  }

private:
  QSize size_;
  mutable RecordingEngine engine_;
};

DrawOpList recordPanel(zv::ComponentObject& component) {
  zvqt::PanelWidget panel(component);
  RecordingDevice device(panel.size());
  panel.render(&device, QPoint(), QRegion(), QWidget::DrawWindowBackground | QWidget::DrawChildren);
  return device.engine().ops;
}

} // namespace

int main(int argc, char** argv) {
  if (argc != 5) {
    std::fprintf(stderr, "usage: panel_match SCRIPT WINDOWS_OPS WINDOWS_BMP OUT_PREFIX\n");
    return 2;
  }
  std::string error;
  zvhost::Plugin plugin = zvhost::Plugin::open(zvhost::defaultPluginPath(), error);
  if (!plugin.loaded()) {
    std::fprintf(stderr, "panel_match: %s\n", error.c_str());
    return 1;
  }
  zvhost::PluginBackend backend(plugin);
  zvhost::Runner runner(backend);
  std::ifstream script(argv[1]);
  std::ostringstream answers;
  if (!script || runner.run(script, answers) != 0 || !runner.current() ||
      !runner.current()->inProcess()) {
    std::fprintf(stderr, "panel_match: the script did not run:\n%s", answers.str().c_str());
    return 1;
  }
  zv::ComponentObject& component = *runner.current()->inProcess();
  const std::string out = argv[4];
  // The host's own picture first: it starts the offscreen application.
  if (!zvhost::renderPanel(component, out + "-linux.png", error)) {
    std::fprintf(stderr, "panel_match: %s\n", error.c_str());
    return 1;
  }
  const DrawOpList qtOps = recordPanel(component);
  const QImage rendered = zvhost::panelImage(component);
  std::ofstream(out + "-linux-ops.txt") << qtOps.str();
  if (std::string(argv[2]) == "-")
    return 0;

  int failures = 0;
  const auto check = [&](bool ok, const std::string& what) {
    std::printf("%s %s\n", ok ? "ok  " : "FAIL", what.c_str());
    failures += !ok;
  };
  std::ifstream windowsOps(argv[2]);
  std::stringstream text;
  text << windowsOps.rdbuf();
  const DrawOpList gdiOps = DrawOpList::parse(text.str());
  const std::string difference = zvtest::firstDifference(gdiOps, qtOps);
  check(windowsOps && difference.empty(),
        "the drawing operations are the Linux panel's" +
            (difference.empty() ? std::string() : ": " + difference));

  QImage drawn(QString::fromLocal8Bit(argv[3]));
  check(!drawn.isNull() && drawn.size() == rendered.size(), "the picture is the panel's size");
  if (drawn.isNull() || drawn.size() != rendered.size())
    return 1;
  drawn = drawn.convertToFormat(QImage::Format_RGB32);
  const QImage expected = rendered.convertToFormat(QImage::Format_RGB32);
  // Pixels are the same everywhere but where either side wrote a text.
  QImage marks = expected.copy();
  int differ = 0, differInText = 0;
  for (int y = 0; y < drawn.height(); ++y)
    for (int x = 0; x < drawn.width(); ++x) {
      if (drawn.pixel(x, y) == expected.pixel(x, y))
        continue;
      const bool inText = gdiOps.inText(x, y) || qtOps.inText(x, y);
      (inText ? differInText : differ) += 1;
      marks.setPixel(x, y, inText ? qRgb(255, 128, 0) : qRgb(255, 0, 255));
    }
  marks.save(QString::fromStdString(out + "-differences.png"));
  check(differ == 0, "the pixels are the Linux render's outside the texts (" +
                         std::to_string(differ) + " differ; " + std::to_string(differInText) +
                         " inside the texts)");
  std::printf("%d failure(s)\n", failures);
  return failures ? 1 : 0;
}
