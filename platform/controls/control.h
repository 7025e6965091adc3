// Controls as small models. Contract:
// - A control's notification (Change, Click) runs inside the call that changed
//   its value, before that call returns, and only when the value really
//   changes: setting a value to what it already holds raises nothing.
// - Views observe a control: observers run after every change of anything a
//   view shows (value, caption, geometry, visibility, enabling, drawing).
//   Observers must not change the control; they only show it.
// - Geometry is in twips, relative to the parent control (or the form).
// - A control belongs to a Form, which knows which control has the focus.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace zv {

using Color = uint32_t; // 0xRRGGBB
constexpr Color rgb(int r, int g, int b) {
  return (static_cast<Color>(r & 255) << 16) | (static_cast<Color>(g & 255) << 8) |
         static_cast<Color>(b & 255);
}

class Form;

class Control {
public:
  using Observer = std::function<void()>;

  Control(std::string kind, std::string name);
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  const std::string& kind() const { return kind_; }
  const std::string& name() const { return name_; }

  float Left() const { return left_; }
  float Top() const { return top_; }
  float Width() const { return width_; }
  float Height() const { return height_; }
  void Move(float left, float top, float width, float height);

  bool Visible() const { return visible_; }
  void setVisible(bool v);
  bool Enabled() const { return enabled_; }
  void setEnabled(bool v);
  int TabIndex() const { return tabIndex_; }
  void setTabIndex(int i) { tabIndex_ = i; }

  Control* Parent() const { return parent_; }
  void setParent(Control* parent) { parent_ = parent; }
  Form* form() const { return form_; }
  void setForm(Form* form) { form_ = form; }
  // Moves the focus of the control's form to this control.
  void SetFocus();

  int observe(Observer observer);
  void unobserve(int id);

protected:
  void notifyViews();

private:
  std::string kind_;
  std::string name_;
  float left_ = 0, top_ = 0, width_ = 0, height_ = 0;
  bool visible_ = true;
  bool enabled_ = true;
  int tabIndex_ = 0;
  Control* parent_ = nullptr;
  Form* form_ = nullptr;
  int nextObserver_ = 1;
  std::vector<std::pair<int, Observer>> observers_;
};

// What holds controls: a panel or a property page. It owns the focus.
class Form {
public:
  virtual ~Form() = default;
  Control* focus() const { return focus_; }
  void setFocus(Control* c);
  std::function<void()> onFocusChanged; // for views

private:
  Control* focus_ = nullptr;
};

} // namespace zv
