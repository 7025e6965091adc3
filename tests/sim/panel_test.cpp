#include <gtest/gtest.h>

#include "fixture.h"

namespace {

using Kind = zv::DrawOp::Kind;
using zvtest::SimObject;

// The text a canvas shows first, or "" when it shows none.
std::string firstText(const zv::Canvas& canvas) {
  for (const zv::DrawOp& op : canvas.ops())
    if (op.kind == Kind::Print)
      return op.text;
  return {};
}

bool endsWithFrame(const zv::Canvas& canvas) {
  const zv::DrawOp& last = canvas.ops().back();
  return last.kind == Kind::Box && last.x1 == 50 && last.y1 == 50 &&
         last.x2 == canvas.ScaleWidth() - 50 && last.y2 == canvas.ScaleHeight() - 50 &&
         last.color == zv::rgb(255, 255, 255);
}

std::vector<bool> visibility(zv::PWM& p) {
  std::vector<bool> v;
  for (zv::Control* c : p.panelControls())
    v.push_back(c->Visible());
  return v;
}

TEST(Panel, SizeAndNotesFollowTheChannelCount) {
  struct Case {
    int16_t pwmCount;
    float height;
    const char *note0, *note1;
  } cases[] = {
      {0, 1890, "(unavailable)", "(unavailable)"},
      {1, 1890, "(disabled)", "(unavailable)"},
      {2, 3780, "(disabled)", "(disabled)"},
      {3, 1890, "(disabled)", "(disabled)"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.pwmCount);
    SimObject o(5, c.pwmCount);
    zv::PWM& p = *o.pwm;
    p.sLabel1 = "Motor";
    ASSERT_TRUE(p.Refresh().ok());
    EXPECT_EQ(p.UserControl.Width(), 2505);
    EXPECT_EQ(p.UserControl.Height(), c.height);
    EXPECT_EQ(firstText(p.Pic_Graph0), c.note0);
    EXPECT_EQ(firstText(p.Pic_Graph1), c.note1);
    EXPECT_TRUE(endsWithFrame(p.Pic_Graph0));
    EXPECT_TRUE(endsWithFrame(p.Pic_Graph1));
    EXPECT_EQ(p.lblInfo0.Caption(), "Motor");
  }
}

// The first paint prints the note in the window text colour; later ones in
// the white that the frame left as the current colour.
TEST(Panel, NoteTakesTheCurrentColour) {
  SimObject o;
  zv::PWM& p = *o.pwm;
  ASSERT_TRUE(p.Paint().ok());
  EXPECT_EQ(p.Pic_Graph0.ops()[1].color, zv::rgb(0, 0, 0));
  ASSERT_TRUE(p.Paint().ok());
  EXPECT_EQ(p.Pic_Graph0.ops()[1].color, zv::rgb(255, 255, 255));
}

void macro(zv::PWM& p, int32_t id, std::initializer_list<int32_t> args) {
  int32_t ret = 0, cycles = 0;
  zv::Variant affected;
  ASSERT_TRUE(p.SimMacroCall(id, zvtest::ints(args), ret, affected, cycles).ok());
}

TEST(Panel, ShowSimDecidesWhatASimulationShows) {
  const std::vector<bool> all(6, true);
  // Pic_Graph(0), Pic_Graph(1), lblInfo(0), lblInfo(1), Line1, Line2
  struct Case {
    int16_t pwmCount;
    int16_t showSim;
    std::vector<bool> visible;
  } cases[] = {
      {0, 0, all},
      {2, 0, {false, false, false, false, false, false}},
      {2, -1, all},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::to_string(c.pwmCount) + (c.showSim ? " shown" : " hidden"));
    SimObject o(5, c.pwmCount);
    zv::PWM& p = *o.pwm;
    p.bShowSim = c.showSim;
    ASSERT_TRUE(p.StartSimulation().ok());
    const auto ops = p.Pic_Graph0.ops().size();
    macro(p, 2, {1, 128});
    macro(p, 0, {1});
    p.sLabel1 = "late";
    macro(p, 1, {2});
    EXPECT_EQ(visibility(p), c.visible);
    EXPECT_EQ(p.UserControl.BackStyle(), c.showSim ? 1 : 0);
    if (c.showSim) {
      EXPECT_EQ(firstText(p.Pic_Graph0), "Period =  26.04 us");
      EXPECT_EQ(p.lblInfo0.Caption(), "late");
    } else {
      EXPECT_EQ(p.Pic_Graph0.ops().size(), ops) << "drawn while hidden";
      EXPECT_EQ(p.lblInfo0.Caption(), "");
    }

    // The stop brings everything back, with the last waveforms.
    ASSERT_TRUE(p.StopSimulation().ok());
    EXPECT_EQ(visibility(p), all);
    EXPECT_EQ(p.UserControl.BackStyle(), 1);
    EXPECT_EQ(firstText(p.Pic_Graph0), c.pwmCount >= 1 ? "Period =  26.04 us" : "(unavailable)");
    EXPECT_EQ(p.lblInfo0.Caption(), "late");
  }
}

} // namespace
