#include "widgets.h"

#include "../errors.h"

namespace zv {

void Label::setCaption(const std::string& c) {
  if (c == caption_)
    return;
  caption_ = c;
  notifyViews();
}

void Label::setBorderStyle(int b) {
  if (b == borderStyle_)
    return;
  borderStyle_ = b;
  notifyViews();
}

void Label::setAlignment(int a) {
  if (a == alignment_)
    return;
  alignment_ = a;
  notifyViews();
}

void Frame::setCaption(const std::string& c) {
  if (c == caption_)
    return;
  caption_ = c;
  notifyViews();
}

void Line::setPoints(float x1, float y1, float x2, float y2) {
  x1_ = x1;
  y1_ = y1;
  x2_ = x2;
  y2_ = y2;
  notifyViews();
}

void Line::setBorderColor(Color c) {
  color_ = c;
  notifyViews();
}

void TextBox::setText(const std::string& t) {
  if (t == text_)
    return;
  text_ = t;
  notifyViews();
  if (Change)
    Change();
}

void ScrollBar::setValue(int v) {
  if (v < min_ || v > max_)
    raise(errInvalidPropertyValue);
  if (v == value_)
    return;
  value_ = v;
  notifyViews();
  if (Change)
    Change();
}

void ScrollBar::setRange(int min, int max) {
  min_ = min;
  max_ = max;
  notifyViews();
}

void ScrollBar::setChanges(int small, int large) {
  smallChange_ = small;
  largeChange_ = large;
}

void ScrollBar::arrowUp() {
  int v = value_ - smallChange_;
  setValue(v < min_ ? min_ : v);
}

void ScrollBar::arrowDown() {
  int v = value_ + smallChange_;
  setValue(v > max_ ? max_ : v);
}

void ComboBox::Clear() {
  items_.clear();
  listIndex_ = -1;
  notifyViews();
}

void ComboBox::AddItem(const std::string& item) {
  items_.push_back(item);
  notifyViews();
}

void ComboBox::setListIndex(int i) {
  if (i < -1 || i >= ListCount())
    raise(errInvalidPropertyValue);
  if (i == listIndex_)
    return;
  listIndex_ = i;
  notifyViews();
  if (Click)
    Click();
}

void CheckBox::setCaption(const std::string& c) {
  if (c == caption_)
    return;
  caption_ = c;
  notifyViews();
}

void CheckBox::setValue(int v) {
  if (v < 0 || v > 2)
    raise(errInvalidPropertyValue);
  if (v == value_)
    return;
  value_ = v;
  notifyViews();
  if (Click)
    Click();
}

} // namespace zv
