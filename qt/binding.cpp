#include "binding.h"

#include <QPaintEngine>
#include <QPainter>
#include <QtGlobal>
#include <string_view>
#include <utility>

#include "platform/ansi_text.h"

namespace zvqt {

namespace {
ErrorReporter& installedReporter() {
  static ErrorReporter reporter;
  return reporter;
}
} // namespace

QRect twipsRect(double left, double top, double width, double height) {
  // Both edges are rounded, so neighbouring controls keep their shared edge.
  int x1 = twipsToPixels(left), y1 = twipsToPixels(top);
  int x2 = twipsToPixels(left + width), y2 = twipsToPixels(top + height);
  return QRect(x1, y1, x2 - x1, y2 - y1);
}

QString fromAnsi(const std::string& text) {
  return QString::fromStdString(zv::utf8FromAnsi(text));
}

std::string toAnsi(const QString& text) {
  const std::string utf8 = text.toStdString();
  std::string ansi;
  std::string_view rest = utf8;
  for (;;) {
    std::string part;
    size_t badAt = 0;
    if (zv::ansiFromUtf8(rest, part, badAt)) {
      ansi += part;
      return ansi;
    }
    ansi += part.substr(0, badAt) + '?';
    char32_t c = 0;
    const size_t length = zv::decodeUtf8(rest.substr(badAt), c);
    rest.remove_prefix(badAt + (length > 0 ? length : 1));
  }
}

QFont platformFont() {
  QFont font;
  font.setPointSizeF(8);
  return font;
}

bool paintsPixelForPixel(const QPainter& painter) {
  return painter.paintEngine() && painter.paintEngine()->type() == QPaintEngine::Raster &&
         painter.deviceTransform().type() <= QTransform::TxTranslate;
}

ControlBinding::ControlBinding(zv::Control& control, std::function<void()> onChange)
    : control_(control), id_(control.observe(std::move(onChange))) {}

ControlBinding::~ControlBinding() {
  control_.unobserve(id_);
}

void showControlState(QWidget& widget, const zv::Control& control) {
  // A canvas notifies at every drawing operation: what stands is not set again,
  // which Qt would take the long way to find out.
  const QRect place = twipsRect(control.Left(), control.Top(), control.Width(), control.Height());
  if (widget.geometry() != place)
    widget.setGeometry(place);
  if (widget.testAttribute(Qt::WA_Disabled) == control.Enabled())
    widget.setEnabled(control.Enabled());
  // A view without a parent would become a window of its own when shown.
  if (widget.parentWidget() && (!widget.testAttribute(Qt::WA_WState_ExplicitShowHide) ||
                                widget.isHidden() == control.Visible()))
    widget.setVisible(control.Visible());
}

void setErrorReporter(ErrorReporter reporter) {
  installedReporter() = std::move(reporter);
}

void reportError(int number, const std::string& description) {
  if (installedReporter())
    installedReporter()(number, description);
  else
    qWarning("run-time error %d: %s", number, description.c_str());
}

} // namespace zvqt
