#include <gtest/gtest.h>

#include <sstream>

#include "component/sim/plot_geometry.h"
#include "fixture.h"
#include "platform/errors.h"

namespace {

using zv::DrawOp;
using zv::kPlotWhite;
using zv::kPlotYellow;
using Kind = zv::DrawOp::Kind;

// An operation as "kind colour x1,y1 x2,y2" or "print colour x,y text"; Y and W
// are the plot's yellow and white.
std::string describe(const DrawOp& op) {
  if (op.kind == Kind::Cls)
    return "cls";
  std::ostringstream out;
  out << (op.kind == Kind::Print ? "print"
          : op.kind == Kind::Box ? "box"
                                 : "line")
      << " "
      << (op.color == kPlotYellow  ? "Y"
          : op.color == kPlotWhite ? "W"
                                   : "?")
      << " " << op.x1 << "," << op.y1 << " ";
  if (op.kind == Kind::Print)
    out << op.text;
  else
    out << op.x2 << "," << op.y2;
  return out.str();
}

// Duty 64 of 256 counts on a 2500 x 1400 canvas: one whole cycle, then a
// second pulse cut at the right limit without a falling edge.
const std::vector<std::string> kWorkedExample = {
    "cls",
    "box W 50,50 2450,1350",
    "line Y 300,400 300,1000",
    "line Y 40,1000 300,1000",
    "line Y 750,400 750,1000",
    "line Y 300,400 750,400",
    "line Y 2100,400 2100,1000",
    "line Y 750,1000 2100,1000",
    "line Y 2100,400 2450,400",
    "print W 300,70 Period =  64.00 us",
    "print W 300,1160 Dutycycle =  25 %",
    "line W 300,300 2100,300",
    "line W 2100,300 2045,245",
    "line W 2100,300 2045,355",
    "line W 300,300 355,245",
    "line W 300,300 355,355",
    "line W 300,1100 750,1100",
    "line W 750,1100 695,1045",
    "line W 750,1100 695,1155",
    "line W 300,1100 355,1045",
    "line W 300,1100 355,1155",
    "line Y 2450,1000 2450,1000",
};

TEST(Plot, PlotChannelDrawsTheWorkedExampleOnTheSizedCanvas) {
  zvtest::SimObject o;
  zv::PWM& p = *o.pwm;
  zv::Canvas& canvas = p.Pic_Graph(1);
  canvas.Move(canvas.Left(), canvas.Top(), 2500 + 2 * canvas.BorderWidth(),
              1400 + 2 * canvas.BorderWidth());
  canvas.Print("old");
  p.aDuty[1] = 64;
  p.iPr2 = 255;
  p.fPeriod = 64.0f;
  int16_t index = 1;
  p.Plot_Channel(index);
  std::vector<std::string> ops;
  for (const DrawOp& op : canvas.ops())
    ops.push_back(describe(op));
  EXPECT_EQ(ops, kWorkedExample);
  EXPECT_EQ(canvas.ForeColor(), kPlotYellow);
  EXPECT_EQ(index, 1);
}

TEST(Plot, DutyPercentRoundsHalfToEvenAndMayExceedHundred) {
  struct Case {
    int16_t duty, pr2, percent;
  } cases[] = {{0, 255, 0},    {1, 255, 0},     {5, 255, 2}, {8, 255, 3}, {128, 255, 50},
               {254, 255, 99}, {255, 255, 100}, {1, 7, 12},  {3, 7, 38},  {5, 7, 62},
               {200, 99, 200}, {1, 0, 100},     {0, 0, 0}};
  for (const Case& c : cases)
    EXPECT_EQ(zv::dutyPercent(c.duty, c.pr2), c.percent) << c.duty << "/" << c.pr2;
}

TEST(Plot, PeriodRegisterOfMinusOneRaises) {
  for (auto [duty, number] : {std::pair<int16_t, int>{0, zv::errOverflow},
                              std::pair<int16_t, int>{7, zv::errDivisionByZero}}) {
    try {
      zv::plotWaveform({duty, -1, 0, 2500, 1400});
      ADD_FAILURE() << "no error for duty " << duty;
    } catch (const zv::RuntimeError& e) {
      EXPECT_EQ(e.number(), number);
    }
  }
}

TEST(Plot, ReadOutTexts) {
  for (auto [period, text] : {std::pair{0.0f, "Period =  00.00 us"},
                              {999.5f, "Period =  999.50 us"},
                              {1000.0f, "Period =  01.00 ms"},
                              {512e6f, "Period =  512000.00 ms"},
                              {26.04167f, "Period =  26.04 us"}})
    EXPECT_EQ(zv::periodText(period), text);
  EXPECT_EQ(zv::dutyText(38), "Dutycycle =  38 %");
  EXPECT_EQ(zv::dutyText(202), "Dutycycle =  100 %");
}

// What a plot shows, summed up from its operations.
struct Picture {
  int yellowLines = 0;
  float firstPulse = -1; // width of the first high level; -1 without pulses
  float dutyArrow = 0;   // length of the duty arrow's shaft; 0 without one
  float flatHigh = 0;    // right end of a flat line at the high level
  zv::Color lastColor = 0;
};

Picture summarise(const std::vector<DrawOp>& ops, float levelLow) {
  Picture pic;
  for (const DrawOp& op : ops) {
    if (op.kind != Kind::Line)
      continue;
    if (op.color == kPlotYellow) {
      ++pic.yellowLines;
      if (op.y1 == 400 && op.y2 == 400 && op.x1 == 40)
        pic.flatHigh = op.x2;
      else if (op.y1 == 400 && op.y2 == 400 && pic.firstPulse < 0)
        pic.firstPulse = op.x2 - op.x1;
    } else if (op.y1 == levelLow + 100 && op.y2 == op.y1 && op.x1 == 300) {
      pic.dutyArrow = op.x2 - op.x1;
    }
  }
  pic.lastColor = ops.back().color;
  return pic;
}

TEST(Plot, PictureFollowsTheDuty) {
  struct Case {
    int16_t duty;
    int yellowLines;
    float firstPulse, dutyArrow, flatHigh;
    zv::Color lastColor;
  } cases[] = {
      {0, 2, -1, 0, 0, kPlotYellow},      // flat low, then the closing level over it
      {1, 2, -1, 0, 0, kPlotYellow},      // rounds to 0 %
      {5, 9, 36, 0, 0, kPlotYellow},      // 2 %: pulses, no duty arrow
      {8, 9, 54, 54, 0, kPlotYellow},     // 3 %: an arrow shorter than its heads
      {128, 8, 900, 900, 0, kPlotYellow}, // the second pulse is cut at 2450
      {254, 8, 1782, 1782, 0, kPlotYellow},
      {255, 1, -1, 0, 2448, kPlotWhite}, // 100 %: flat high, 2 short of the frame
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.duty);
    const Picture pic = summarise(zv::plotWaveform({c.duty, 255, 64, 2500, 1400}), 1000);
    EXPECT_EQ(pic.yellowLines, c.yellowLines);
    EXPECT_EQ(pic.firstPulse, c.firstPulse);
    EXPECT_EQ(pic.dutyArrow, c.dutyArrow);
    EXPECT_EQ(pic.flatHigh, c.flatHigh);
    EXPECT_EQ(pic.lastColor, c.lastColor);
  }
}

} // namespace
