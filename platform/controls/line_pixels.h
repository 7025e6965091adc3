// The pixels of a one-pixel line between two pixels, both ends included, as
// runs along its rows or columns. Every view draws a slanted line from these,
// so that the panel's pictures are the same pixels on each platform.
#pragma once

#include <vector>

namespace zv {

// Columns x1..x2 of row y1 (x-major) or rows y1..y2 of column x1 (y-major),
// inclusive, first to last in the line's direction.
struct PixelRun {
  int x1, y1, x2, y2;
};

std::vector<PixelRun> linePixels(int x1, int y1, int x2, int y2);

} // namespace zv
