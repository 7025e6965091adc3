#include "trace_view.h"

#include <QPainter>
#include <QPainterPath>
#include <cmath>

namespace zvhost {

namespace {

constexpr int kLabelWidth = 64;
constexpr int kNumbersWidth = 158;
constexpr int kMargin = 6;
const QColor kBackground(16, 20, 24);
const QColor kTrace(80, 230, 120);
const QColor kGrid(60, 66, 72);
const QColor kText(220, 224, 228);
const QColor kSame(80, 230, 120);
const QColor kDiffers(255, 80, 80);

// The line of avr-size's report that gives the program's flash.
QString flashLine(const std::string& report) {
  const size_t at = report.find("Program:");
  if (at == std::string::npos)
    return {};
  const size_t end = report.find('\n', at);
  return QString::fromStdString(report.substr(at, end - at)).simplified();
}

// A round step for about `count` ticks over `span` microseconds.
double tickStep(double span, int count) {
  const double raw = span / count;
  const double power = std::pow(10.0, std::floor(std::log10(raw)));
  for (double m : {1.0, 2.0, 5.0})
    if (m * power >= raw)
      return m * power;
  return 10 * power;
}

QString timeLabel(double us) {
  return us >= 1000 ? QString::number(us / 1000, 'g', 4) + " ms"
                    : QString::number(us, 'g', 4) + " us";
}

} // namespace

TraceView::TraceView(QWidget* parent) : QWidget(parent) {
  setMinimumHeight(150);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void TraceView::show(const Verification& v) {
  shown_ = v;
  message_.clear();
  update();
}

void TraceView::showError(const QString& text) {
  shown_.reset();
  message_ = text;
  update();
}

void TraceView::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.fillRect(rect(), kBackground);
  p.setPen(kText);
  QFont small = font();
  small.setPointSizeF(small.pointSizeF() * 0.85);
  p.setFont(small);
  const QRect inner = rect().adjusted(kMargin, kMargin, -kMargin, -kMargin);
  if (!shown_) {
    p.drawText(inner, Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap,
               message_.isEmpty() ? tr("Verify on chip: the program of this simulation, "
                                       "built and run on a simulated chip, shows here.")
                                  : message_);
    return;
  }
  const Verification& v = *shown_;
  const int line = p.fontMetrics().height();
  p.drawText(inner.left(), inner.top() + p.fontMetrics().ascent(),
             tr("%1 at %2 MHz   %3")
                 .arg(QString::fromStdString(v.target.name))
                 .arg(v.hertz / 1e6, 0, 'g', 6)
                 .arg(flashLine(v.built.sizeReport)));
  const QRect axis(inner.left() + kLabelWidth, inner.bottom() - line,
                   inner.width() - kLabelWidth - kNumbersWidth, line);
  const int rowsTop = inner.top() + line + 4;
  const int rowHeight = (axis.top() - 4 - rowsTop) / 2;
  static const char* const kOutputs[2] = {"OC1A", "OC1B"};
  for (int i = 0; i < 2; ++i) {
    const QRect row(axis.left(), rowsTop + i * rowHeight, axis.width(), rowHeight);
    const ChannelCheck& c = v.channels[i];
    p.setPen(kText);
    p.drawText(QRect(inner.left(), row.top(), kLabelWidth - 4, row.height()),
               Qt::AlignLeft | Qt::AlignVCenter,
               QString("%1\n%2").arg(kOutputs[i], QString::fromStdString(v.pins[i].name)));
    paintTrace(p, v.pins[i], row, v.from, v.cycles);
    const QRect numbers(row.right() + 8, row.top(), kNumbersWidth - 8, row.height());
    const QString chipHigh = v.pins[i].steady ? "-" : timeLabel(c.highUs);
    p.setPen(kText);
    p.drawText(numbers, Qt::AlignLeft | Qt::AlignVCenter,
               tr("panel %1  %2\nchip  %3  %4\nhigh  %5")
                   .arg(QString::fromStdString(c.panelPeriod.empty() ? "-" : c.panelPeriod),
                        QString::fromStdString(c.panelDuty), QString::fromStdString(c.chipPeriod),
                        QString::fromStdString(c.chipDuty), chipHigh));
    p.setPen(c.same ? kSame : kDiffers);
    p.drawText(numbers, Qt::AlignRight | Qt::AlignTop, c.same ? tr("same") : tr("DIFFERS"));
  }
  paintAxis(p, axis, v.from, v.cycles);
}

void TraceView::paintTrace(QPainter& p, const PinTrace& pin, const QRect& row, uint64_t from,
                           uint64_t to) const {
  p.setPen(kGrid);
  p.drawLine(row.left(), row.bottom(), row.right(), row.bottom());
  const double span = double(to - from);
  const int high = row.top() + 6, low = row.bottom() - 6;
  auto x = [&](uint64_t cycle) { return row.left() + (double(cycle - from) / span) * row.width(); };
  QPainterPath path;
  int level = pin.levelAt(from);
  path.moveTo(row.left(), level ? high : low);
  auto it = std::upper_bound(pin.changes.begin(), pin.changes.end(), from);
  for (; it != pin.changes.end() && *it <= to; ++it) {
    const double at = x(*it);
    path.lineTo(at, level ? high : low);
    level = 1 - level;
    path.lineTo(at, level ? high : low);
  }
  path.lineTo(row.right(), level ? high : low);
  p.setPen(QPen(pin.output ? kTrace : kDiffers, 1.5));
  p.drawPath(path);
}

void TraceView::paintAxis(QPainter& p, const QRect& area, uint64_t from, uint64_t to) const {
  const double perCycle = 1e6 / shown_->hertz;
  const double spanUs = double(to - from) * perCycle;
  if (!(spanUs > 0))
    return;
  const double step = tickStep(spanUs, 5);
  p.setPen(kGrid);
  p.drawLine(area.left(), area.top(), area.right(), area.top());
  for (double t = 0; t <= spanUs + step / 1000; t += step) {
    const int at = area.left() + int(t / spanUs * area.width());
    p.setPen(kGrid);
    p.drawLine(at, area.top(), at, area.top() + 3);
    p.setPen(kText);
    p.drawText(QRect(at - 40, area.top() + 2, 80, area.height()), Qt::AlignHCenter | Qt::AlignTop,
               "+" + timeLabel(t));
  }
}

} // namespace zvhost
