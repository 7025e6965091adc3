// The waveform plot of one channel as a pure calculation: the drawing
// operations, in their order and colours, that Plot_Channel replays on the
// channel's canvas. Coordinates are twips of the canvas's inner area.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "../../platform/controls/canvas.h"

namespace zv {

struct PlotInput {
  int16_t duty = 0; // counts of the period register, 0..255
  int16_t pr2 = 0;  // period register, 0..255
  float period = 0; // microseconds
  float scaleWidth = 0;
  float scaleHeight = 0;
};

inline constexpr Color kPlotWhite = rgb(255, 255, 255);
inline constexpr Color kPlotYellow = rgb(255, 255, 0);

// The duty in whole percent, a tie going to the even neighbour; may exceed
// 100. A period register of -1 makes the divisor 0 and raises (11, or 6 for
// a duty of 0 as well).
int16_t dutyPercent(int16_t duty, int16_t pr2);

// "Period =  00.00 us", or in milliseconds from 1000 us on.
std::string periodText(float period);
// "Dutycycle =  25 %"; the percent is cut to 100 first.
std::string dutyText(int16_t percent);

// Cls first, then every line, box and text with the colour it is drawn in.
// A Print's place is in x1, y1. The last operation's colour is the canvas's
// ForeColor afterwards.
void plotWaveform(const PlotInput& in, std::vector<DrawOp>& ops); // ops cleared first
inline std::vector<DrawOp> plotWaveform(const PlotInput& in) {
  std::vector<DrawOp> ops;
  plotWaveform(in, ops);
  return ops;
}

} // namespace zv
