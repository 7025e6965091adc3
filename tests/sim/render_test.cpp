#include <gtest/gtest.h>

#include "fixture.h"
#include "host/pictures/render.h"

namespace {

using zvtest::SimObject;

bool has(const std::string& svg, const std::string& part) {
  return svg.find(part) != std::string::npos;
}

TEST(Render, SvgShowsVisibleControlsAtTheirPlaces) {
  SimObject o;
  zv::PWM& p = *o.pwm;
  p.sLabel2 = "a<b";
  ASSERT_TRUE(p.Refresh().ok());
  const std::string svg = zvhost::panelSvg(p);
  EXPECT_TRUE(has(svg, "width=\"167\" height=\"252\" viewBox=\"0 0 2505 3780\""));
  // The second canvas sticks out one border to the left of the panel.
  EXPECT_TRUE(
      has(svg, "<rect x=\"-15\" y=\"1995\" width=\"2505\" height=\"1425\" fill=\"#00c000\""));
  // The first canvas's frame, moved by its place and border, on pixel centres.
  EXPECT_TRUE(has(svg, "<rect x=\"87.5\" y=\"117.5\" width=\"2375\" height=\"1295\" fill=\"none\" "
                       "stroke=\"#ffffff\""));
  EXPECT_TRUE(has(svg, ">(disabled)</text>"));
  EXPECT_TRUE(has(svg, ">a&lt;b</text>"));
  EXPECT_TRUE(has(svg, "stroke=\"#808080\""));
}

TEST(Render, HiddenPanelIsEmptyAndTransparent) {
  SimObject o;
  zv::PWM& p = *o.pwm;
  p.bShowSim = 0;
  ASSERT_TRUE(p.StartSimulation().ok());
  const std::string svg = zvhost::panelSvg(p);
  EXPECT_FALSE(has(svg, "<rect"));
  EXPECT_FALSE(has(svg, "<line"));
}

} // namespace
