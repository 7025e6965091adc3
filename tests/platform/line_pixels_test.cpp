#include "platform/controls/line_pixels.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string runsOf(int x1, int y1, int x2, int y2) {
  std::string out;
  for (const zv::PixelRun& r : zv::linePixels(x1, y1, x2, y2))
    out += std::to_string(r.x1) + "," + std::to_string(r.y1) + "-" + std::to_string(r.x2) + "," +
           std::to_string(r.y2) + " ";
  return out;
}

// The pixels both platforms' views draw: their pictures are compared pixel for pixel.
TEST(LinePixels, RunsFromEndToEndWithTiesTowardsTheEnd) {
  struct Case {
    int x1, y1, x2, y2;
    const char* runs;
  } cases[] = {
      {3, 3, 3, 3, "3,3-3,3 "},
      {0, 0, 4, 0, "0,0-4,0 "},
      {0, 5, 0, 2, "0,5-0,2 "},
      {0, 0, 3, 3, "0,0-0,0 1,1-1,1 2,2-2,2 3,3-3,3 "},
      {142, 24, 138, 20, "142,24-142,24 141,23-141,23 140,22-140,22 139,21-139,21 138,20-138,20 "},
      {0, 0, 4, 1, "0,0-1,0 2,1-4,1 "}, // the tie at x 2 goes towards the end
      {4, 1, 0, 0, "4,1-3,1 2,0-0,0 "}, // and from the other end too
      {0, 0, 1, 4, "0,0-0,1 1,2-1,4 "},
      {0, 0, 6, -2, "0,0-1,0 2,-1-4,-1 5,-2-6,-2 "},
  };
  for (const Case& c : cases)
    EXPECT_EQ(runsOf(c.x1, c.y1, c.x2, c.y2), c.runs)
        << c.x1 << "," << c.y1 << " " << c.x2 << "," << c.y2;
}

} // namespace
