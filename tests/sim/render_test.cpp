#include <gtest/gtest.h>

#include <QImage>
#include <filesystem>

#include "fixture.h"
#include "host/render.h"

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

TEST(Render, PngHasThePanelSizeAndItsColours) {
  SimObject o(5, 1);
  zv::PWM& p = *o.pwm;
  ASSERT_TRUE(p.Refresh().ok());
  const std::string path = o.folder + "/panel.png";
  std::string error;
  ASSERT_TRUE(zvhost::renderPanel(p, path, error)) << error;
  QImage image(QString::fromStdString(path));
  ASSERT_EQ(image.width(), 167);
  ASSERT_EQ(image.height(), 126);
  EXPECT_EQ(image.pixelColor(20, 40), QColor(0, 192, 0));   // canvas
  EXPECT_EQ(image.pixelColor(5, 7), QColor(255, 255, 255)); // frame corner
  // Line2 lies just below a one-channel panel: only Line1 shows.
  EXPECT_EQ(image.pixelColor(20, 125), QColor(192, 192, 192));

  EXPECT_FALSE(zvhost::renderPanel(p, o.folder + "/panel.bmp", error));
  EXPECT_FALSE(error.empty());
  EXPECT_FALSE(zvhost::renderPanel(p, o.folder + "/no/such/folder.svg", error));
}

} // namespace
