#include <array>
#include <bit>

#include "../../platform/errors.h"
#include "../../platform/vbnum.h"
#include "../core/pwm.h"
#include "plot_geometry.h"

namespace zv {

namespace {

constexpr double kCycleWidth = 1800;
constexpr double kLevelHigh = 400;
constexpr double kLeadIn = 40;
constexpr double kTextLeft = 300;
constexpr double kArrowSize = 55;

std::string periodTextOf(float period) {
  if (period < 1000)
    return "Period =  " + formatPicture(period, "00.00 us", 7);
  return "Period =  " + formatPicture(static_cast<float>(period / 1000.0), "00.00 ms", 7);
}

class OpList {
public:
  explicit OpList(std::vector<DrawOp>& ops) : ops_(ops) {}
  Color color = kPlotWhite;

  void line(double x1, double y1, double x2, double y2) { add(DrawOp::Kind::Line, x1, y1, x2, y2); }
  void box(double x1, double y1, double x2, double y2) { add(DrawOp::Kind::Box, x1, y1, x2, y2); }
  void print(double x, double y, std::string text) {
    add(DrawOp::Kind::Print, x, y, 0, 0);
    ops_.back().text = std::move(text);
  }
  // A double-headed arrow from 300 to right, upper stroke of each head first.
  void arrow(double y, double right) {
    line(kTextLeft, y, right, y);
    line(right, y, right - kArrowSize, y - kArrowSize);
    line(right, y, right - kArrowSize, y + kArrowSize);
    line(kTextLeft, y, kTextLeft + kArrowSize, y - kArrowSize);
    line(kTextLeft, y, kTextLeft + kArrowSize, y + kArrowSize);
  }

private:
  void add(DrawOp::Kind kind, double x1, double y1, double x2, double y2) {
    DrawOp op;
    op.kind = kind;
    op.x1 = static_cast<float>(x1);
    op.y1 = static_cast<float>(y1);
    op.x2 = static_cast<float>(x2);
    op.y2 = static_cast<float>(y2);
    op.color = color;
    ops_.push_back(std::move(op));
  }
  std::vector<DrawOp>& ops_;
};

} // namespace

int16_t dutyPercent(int16_t duty, int16_t pr2) {
  const int16_t counts = add16(pr2, 1);
  if (counts == 0)
    raise(duty == 0 ? errOverflow : errDivisionByZero);
  return cint(roundHalfEven(static_cast<double>(duty) / counts * 100.0));
}

std::string periodText(float period) {
  // A run of macros mostly keeps its period: the last text is kept with its value.
  // Compared bit for bit, so that -0 and NaN get their own texts.
  static thread_local uint32_t lastBits = 0;
  static thread_local std::string lastText;
  const auto bits = std::bit_cast<uint32_t>(period);
  if (!lastText.empty() && bits == lastBits)
    return lastText;
  std::string text = periodTextOf(period);
  lastText = text;
  lastBits = bits;
  return text;
}

std::string dutyText(int16_t percent) {
  if (percent > 100)
    percent = 100;
  if (percent < 0)
    return "Dutycycle =  " + formatPicture(percent, "0") + " %";
  // Only 101 texts can come out of the picture: made once.
  static const std::array<std::string, 101> texts = [] {
    std::array<std::string, 101> made;
    for (int16_t p = 0; p <= 100; ++p)
      made[static_cast<size_t>(p)] = "Dutycycle =  " + formatPicture(p, "0") + " %";
    return made;
  }();
  return texts[static_cast<size_t>(percent)];
}

void plotWaveform(const PlotInput& in, std::vector<DrawOp>& ops) {
  ops.clear();
  ops.reserve(40);    // a plot has about 30 operations
  ops.emplace_back(); // Cls
  OpList draw(ops);
  const double width = in.scaleWidth;
  const double height = in.scaleHeight;

  draw.color = kPlotWhite;
  draw.box(50, 50, width - 50, height - 50);

  int16_t percent = dutyPercent(in.duty, in.pr2);
  float highWidth = static_cast<float>(percent * kCycleWidth / 100);
  double lastFall = kLeadIn;
  const double levelLow = height - 400;

  const double limit = in.scaleWidth - 50.0f;
  for (double x = kTextLeft; x <= limit; x += kCycleWidth) {
    // A pulse past the right limit is cut there, and stays cut.
    if (highWidth + x > limit)
      highWidth = static_cast<float>(limit - x);
    draw.color = kPlotYellow;
    if (highWidth != 0 && percent < 100) {
      const double fall = highWidth + x;
      draw.line(x, kLevelHigh, x, levelLow);
      draw.line(lastFall, levelLow, x, levelLow);
      if (fall < width - 52)
        draw.line(fall, kLevelHigh, fall, levelLow);
      draw.line(x, kLevelHigh, fall, kLevelHigh);
      lastFall = fall;
    }
  }
  if (percent >= 100)
    draw.line(kLeadIn, kLevelHigh, width - 52, kLevelHigh);
  if (percent == 0)
    draw.line(kLeadIn, levelLow, width - 52, levelLow);

  draw.color = kPlotWhite;
  draw.print(kTextLeft, kLevelHigh - 330, periodText(in.period));
  if (percent > 100)
    percent = 100;
  draw.print(kTextLeft, height - 240, dutyText(percent));

  draw.arrow(kLevelHigh - 100, kTextLeft + kCycleWidth);
  // Not cut at the right limit; too short an arrow is left out.
  const double dutyWidth = percent * kCycleWidth / 100;
  if (percent > 2 && percent < 100)
    draw.arrow(levelLow + 100, kTextLeft + dutyWidth);

  if (percent < 100) {
    draw.color = kPlotYellow;
    draw.line(lastFall, levelLow, width - 50, levelLow);
  }
}

void PWM::Plot_Channel(int16_t& Index) {
  Canvas& canvas = Pic_Graph(Index);
  PlotInput in;
  in.duty = aDuty[Index];
  in.pr2 = iPr2;
  in.period = fPeriod;
  in.scaleWidth = canvas.ScaleWidth();
  in.scaleHeight = canvas.ScaleHeight();
  // Worked out before the canvas is touched: a failure leaves the old picture.
  plotWaveform(in, plotOps_);
  for (DrawOp& op : plotOps_)
    canvas.draw(std::move(op));
}

} // namespace zv
