#include "canvas.h"

namespace zv {

void Canvas::setBackColor(Color c) {
  backColor_ = c;
  notifyViews();
}

void Canvas::setBorderWidth(float b) {
  border_ = b;
  notifyViews();
}

void Canvas::record(DrawOp&& op) {
  ops_.push_back(std::move(op));
  notifyViews();
}

void Canvas::Cls() {
  ops_.clear();
  currentX_ = 0;
  currentY_ = 0;
  record(DrawOp{});
}

void Canvas::Line(float x1, float y1, float x2, float y2) {
  DrawOp op;
  op.kind = DrawOp::Kind::Line;
  op.x1 = x1;
  op.y1 = y1;
  op.x2 = x2;
  op.y2 = y2;
  op.color = foreColor_;
  op.style = drawStyle_;
  currentX_ = x2;
  currentY_ = y2;
  record(std::move(op));
}

void Canvas::Box(float x1, float y1, float x2, float y2) {
  DrawOp op;
  op.kind = DrawOp::Kind::Box;
  op.x1 = x1;
  op.y1 = y1;
  op.x2 = x2;
  op.y2 = y2;
  op.color = foreColor_;
  op.style = drawStyle_;
  currentX_ = x2;
  currentY_ = y2;
  record(std::move(op));
}

void Canvas::Print(const std::string& text) {
  DrawOp op;
  op.kind = DrawOp::Kind::Print;
  op.x1 = currentX_;
  op.y1 = currentY_;
  op.color = foreColor_;
  op.text = text;
  // Print moves to the start of the next line, as the platform's does.
  currentX_ = 0;
  currentY_ += 195;
  record(std::move(op));
}

void Canvas::draw(DrawOp&& op) {
  if (op.kind == DrawOp::Kind::Cls) {
    Cls();
    return;
  }
  foreColor_ = op.color;
  switch (op.kind) {
  case DrawOp::Kind::Cls:
  case DrawOp::Kind::Line:
    drawStyle_ = op.style;
    break;
  case DrawOp::Kind::Box:
    op.style = drawStyle_;
    break;
  case DrawOp::Kind::Print:
    op.x2 = op.y2 = 0;
    op.style = 0;
    currentX_ = 0;
    currentY_ = op.y1 + 195;
    record(std::move(op));
    return;
  }
  currentX_ = op.x2;
  currentY_ = op.y2;
  record(std::move(op));
}

void UserControlSurface::setBackStyle(int s) {
  if (s == backStyle_)
    return;
  backStyle_ = s;
  notifyViews();
}

void UserControlSurface::setSize(float width, float height) {
  Move(Left(), Top(), width, height);
}

} // namespace zv
