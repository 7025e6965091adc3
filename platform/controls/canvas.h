// A canvas (picture box) that records what is drawn on it since its last Cls,
// so that any view can repaint it at any time and a host can list it.
// Coordinates are twips from the top left of the inner area.
#pragma once

#include <string>
#include <vector>

#include "control.h"

namespace zv {

struct DrawOp {
  enum class Kind { Cls, Line, Box, Print };
  Kind kind = Kind::Cls;
  float x1 = 0, y1 = 0, x2 = 0, y2 = 0; // Print: x1, y1 is the text's top left
  Color color = 0;
  int style = 0;
  std::string text;
};

class Canvas : public Control {
public:
  explicit Canvas(std::string name) : Control("canvas", std::move(name)) {}

  Color BackColor() const { return backColor_; }
  void setBackColor(Color c);
  Color ForeColor() const { return foreColor_; }
  void setForeColor(Color c) { foreColor_ = c; }
  int DrawStyle() const { return drawStyle_; }
  void setDrawStyle(int s) { drawStyle_ = s; }
  float CurrentX() const { return currentX_; }
  float CurrentY() const { return currentY_; }
  void setCurrentX(float x) { currentX_ = x; }
  void setCurrentY(float y) { currentY_ = y; }

  // The border on each side, in twips: the inner size is the outer size less
  // twice the border.
  float BorderWidth() const { return border_; }
  void setBorderWidth(float b);
  float ScaleWidth() const { return Width() - 2 * border_; }
  float ScaleHeight() const { return Height() - 2 * border_; }

  void Cls();
  void Line(float x1, float y1, float x2, float y2);
  void Box(float x1, float y1, float x2, float y2); // rectangle outline
  void Print(const std::string& text);
  // One worked-out operation, taken over without a copy: the same state and
  // record as Cls, or as Line, Box or Print after setting its colour (a
  // Line's style too, a Print's place).
  void draw(DrawOp&& op);

  // Everything drawn since and including the last Cls.
  const std::vector<DrawOp>& ops() const { return ops_; }

private:
  void record(DrawOp&& op);
  Color backColor_ = rgb(255, 255, 255);
  Color foreColor_ = 0;
  int drawStyle_ = 0;
  float currentX_ = 0, currentY_ = 0;
  float border_ = 0;
  std::vector<DrawOp> ops_;
};

// The panel itself (the user control's surface): its size and background style.
class UserControlSurface : public Control, public Form {
public:
  UserControlSurface() : Control("usercontrol", "UserControl") {}
  int BackStyle() const { return backStyle_; } // 0 transparent, 1 opaque
  void setBackStyle(int s);
  void setSize(float width, float height);

private:
  int backStyle_ = 1;
};

} // namespace zv
