#include "control.h"

#include <algorithm>

namespace zv {

Control::Control(std::string kind, std::string name) : kind_(std::move(kind)), name_(std::move(name)) {}

void Control::Move(float left, float top, float width, float height) {
  if (left == left_ && top == top_ && width == width_ && height == height_)
    return;
  left_ = left;
  top_ = top;
  width_ = width;
  height_ = height;
  notifyViews();
}

void Control::setVisible(bool v) {
  if (v == visible_)
    return;
  visible_ = v;
  notifyViews();
}

void Control::setEnabled(bool v) {
  if (v == enabled_)
    return;
  enabled_ = v;
  notifyViews();
}

void Control::SetFocus() {
  if (form_)
    form_->setFocus(this);
}

int Control::observe(Observer observer) {
  observers_.emplace_back(nextObserver_, std::move(observer));
  return nextObserver_++;
}

void Control::unobserve(int id) {
  observers_.erase(std::remove_if(observers_.begin(), observers_.end(),
                                  [id](const auto& o) { return o.first == id; }),
                   observers_.end());
}

void Control::notifyViews() {
  for (auto& o : observers_)
    o.second();
}

void Form::setFocus(Control* c) {
  if (c == focus_)
    return;
  focus_ = c;
  if (onFocusChanged)
    onFocusChanged();
}

} // namespace zv
