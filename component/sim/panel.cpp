#include <array>

#include "../../platform/funnel.h"
#include "../core/pwm.h"

namespace zv {

namespace {

constexpr Color kCanvasGreen = rgb(0, 192, 0);
constexpr Color kWindowText = rgb(0, 0, 0);
constexpr Color kWhite = rgb(255, 255, 255);
constexpr Color kLightGrey = rgb(192, 192, 192);
constexpr Color kDarkGrey = rgb(128, 128, 128);

// A one-pixel single border: the canvases' inner size is 2475 x 1395.
constexpr float kCanvasBorder = 15;

// The panel's size before the first UserControl_Resize replaces it.
constexpr float kDesignWidth = 3030;
constexpr float kDesignHeight = 4215;

struct BoxPlace {
  float left, top, width, height;
  int tabIndex;
};
constexpr std::array<BoxPlace, 2> kCanvasPlaces{{
    {15, 45, 2505, 1425, 0},
    {-15, 1995, 2505, 1425, 1},
}};
constexpr std::array<BoxPlace, 2> kLabelPlaces{{
    {15, 1485, 2475, 270, 2},
    {0, 3435, 2475, 270, 3},
}};

struct LinePlace {
  float x1, y1, x2, y2;
  Color color;
};
constexpr std::array<LinePlace, 2> kLinePlaces{{
    {-45, 1875, 2535, 1875, kLightGrey},
    {-45, 1890, 2535, 1890, kDarkGrey},
}};

// A channel that is not plotted gets a note in its frame.
void writeNote(Canvas& canvas, bool present) {
  canvas.Cls();
  canvas.setCurrentX(canvas.ScaleWidth() / 4);
  canvas.setCurrentY(canvas.ScaleHeight() / 2 - 300);
  canvas.Print(present ? "(disabled)" : "(unavailable)");
}

} // namespace

void PWM::createPanel() {
  UserControl.setSize(kDesignWidth, kDesignHeight);
  UserControl.setBackStyle(1);
  for (int i = 0; i < 2; ++i) {
    Canvas& canvas = Pic_Graph(i);
    const BoxPlace& c = kCanvasPlaces[static_cast<size_t>(i)];
    canvas.setBorderWidth(kCanvasBorder);
    canvas.Move(c.left, c.top, c.width, c.height);
    canvas.setTabIndex(c.tabIndex);
    canvas.setBackColor(kCanvasGreen);
    canvas.setForeColor(kWindowText);

    Label& label = lblInfo(i);
    const BoxPlace& l = kLabelPlaces[static_cast<size_t>(i)];
    label.Move(l.left, l.top, l.width, l.height);
    label.setTabIndex(l.tabIndex);
    label.setBorderStyle(1);
    label.setAlignment(Label::Center);
  }
  zv::Line* lines[] = {&Line1, &Line2};
  for (size_t i = 0; i < 2; ++i) {
    const LinePlace& p = kLinePlaces[i];
    lines[i]->setPoints(p.x1, p.y1, p.x2, p.y2);
    lines[i]->setBorderColor(p.color);
  }
  for (Control* control : panelControls()) {
    control->setParent(&UserControl);
    control->setForm(&UserControl);
    control->setVisible(true);
  }
}

void PWM::UserControl_Paint() {
  if (bSimulating != 0 && bShowSim == 0) {
    if (iPwmCount >= 1) {
      Line1.setVisible(false);
      Pic_Graph0.setVisible(false);
      lblInfo0.setVisible(false);
    }
    if (iPwmCount >= 2) {
      Line2.setVisible(false);
      Pic_Graph1.setVisible(false);
      lblInfo1.setVisible(false);
    }
    UserControl.setBackStyle(0);
    return;
  }

  UserControl.setBackStyle(1);
  if (iPwmCount >= 1) {
    Pic_Graph0.setVisible(true);
    lblInfo0.setVisible(true);
    Line1.setVisible(true);
  }
  if (iPwmCount >= 2) {
    Pic_Graph1.setVisible(true);
    lblInfo1.setVisible(true);
    Line2.setVisible(true);
  }
  for (int16_t index = 0; index < 2; ++index) {
    if (aChannelOn[index] != 0)
      Plot_Channel(index);
    else
      writeNote(Pic_Graph(index), iPwmCount >= index + 1);
  }
  lblInfo0.setCaption(sLabel1);
  lblInfo1.setCaption(sLabel2);
  Draw_Frames();
}

void PWM::UserControl_Resize() {
  const float width = (lblInfo0.Width() / 2 + lblInfo0.Left()) * 2;
  // Nothing moves: a height of one block leaves the second channel outside.
  const float height = iPwmCount == 2 ? Line2.Y1() * 2 : Line2.Y1();
  UserControl.setSize(width, height);
}

void PWM::Draw_Frames() {
  for (int i = 0; i < 2; ++i) {
    Canvas& canvas = Pic_Graph(i);
    canvas.setForeColor(kWhite);
    canvas.Box(50, 50, canvas.ScaleWidth() - 50, canvas.ScaleHeight() - 50);
  }
}

void PWM::doRefresh() {
  UserControl_Resize();
  UserControl_Paint();
}

Status PWM::Refresh() {
  return guard([&] { doRefresh(); });
}

Status PWM::Paint() {
  return guard([&] { UserControl_Paint(); });
}

Status PWM::Resize() {
  return guard([&] { UserControl_Resize(); });
}

std::vector<Control*> PWM::panelControls() {
  return {&Pic_Graph0, &Pic_Graph1, &lblInfo0, &lblInfo1, &Line1, &Line2};
}

} // namespace zv
