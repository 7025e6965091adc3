// The tie between a view and its control model. The model owns the value and
// must outlive the view; the view observes it and only shows what it holds.
// A user's action on a view runs the model's setter, whose notifications run
// nested; a failure raised there is reported here and never crosses Qt's
// event loop.
#pragma once

#include <QFont>
#include <QRect>
#include <QWidget>
#include <functional>
#include <string>

#include "platform/controls/control.h"
#include "platform/funnel.h"

class QPainter;

namespace zvqt {

// Device-independent pixels per twip: 96 dpi.
constexpr double kPixelsPerTwip = 1.0 / 15.0;

inline int twipsToPixels(double twips) {
  return qRound(twips * kPixelsPerTwip);
}
QRect twipsRect(double left, double top, double width, double height);

// The component's text is Windows-1252; Qt's is Unicode. A character typed
// that Windows-1252 cannot hold becomes "?", as the system's conversion does.
QString fromAnsi(const std::string& text);
std::string toAnsi(const QString& text);

// The font the twips layouts were made for: 8 points of the default face.
QFont platformFont();

// Whether the painter paints its device's pixels one for one, as a window's
// or an image's at their own size: a view's kept picture is then copied as it
// is. A picture at another scale, or an SVG, is painted afresh.
bool paintsPixelForPixel(const QPainter& painter);

// Observes a control for as long as it lives.
class ControlBinding {
public:
  ControlBinding(zv::Control& control, std::function<void()> onChange);
  ~ControlBinding();
  ControlBinding(const ControlBinding&) = delete;
  ControlBinding& operator=(const ControlBinding&) = delete;
  zv::Control& control() const { return control_; }

private:
  zv::Control& control_;
  int id_;
};

// Shows the model's geometry, visibility and enabling on the widget.
void showControlState(QWidget& widget, const zv::Control& control);

// Where failures of user actions go; the default writes to Qt's warning log.
using ErrorReporter = std::function<void(int number, const std::string& description)>;
void setErrorReporter(ErrorReporter reporter);
void reportError(int number, const std::string& description);

template <class Action> void runUserAction(Action&& action) noexcept {
  const zv::Status status = zv::guard(action);
  if (!status.ok())
    reportError(status.number, status.description);
}

} // namespace zvqt
