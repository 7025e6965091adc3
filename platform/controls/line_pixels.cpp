#include "line_pixels.h"

#include <cstdlib>

namespace zv {

std::vector<PixelRun> linePixels(int x1, int y1, int x2, int y2) {
  const long long dx = std::abs(x2 - x1), dy = std::abs(y2 - y1);
  const int sx = x2 < x1 ? -1 : 1, sy = y2 < y1 ? -1 : 1;
  const bool xMajor = dx >= dy;
  const long long steps = xMajor ? dx : dy, rise = xMajor ? dy : dx;
  if (steps == 0)
    return {{x1, y1, x1, y1}};
  // Along a row or a column: one run, without a step per pixel.
  if (rise == 0)
    return {{x1, y1, x2, y2}};
  // One pixel a step along the longer axis; across it, the pixel nearest the
  // exact line, a tie going towards the end.
  const auto across = [&](long long i) { return (2 * rise * i + steps) / (2 * steps); };
  std::vector<PixelRun> runs;
  long long start = 0;
  for (long long i = 1; i <= steps + 1; ++i) {
    if (i <= steps && across(i) == across(start))
      continue;
    const int a = static_cast<int>(start), b = static_cast<int>(i - 1);
    const int off = static_cast<int>(across(start));
    if (xMajor)
      runs.push_back({x1 + sx * a, y1 + sy * off, x1 + sx * b, y1 + sy * off});
    else
      runs.push_back({x1 + sx * off, y1 + sy * a, x1 + sx * off, y1 + sy * b});
    start = i;
  }
  return runs;
}

} // namespace zv
