#include "view_factory.h"

#include <algorithm>
#include <functional>

#include "canvas_view.h"
#include "checkbox_view.h"
#include "combobox_view.h"
#include "frame_view.h"
#include "label_view.h"
#include "line_view.h"
#include "scrollbar_view.h"
#include "textbox_view.h"

namespace zvqt {

QWidget* makeView(zv::Control& control, QWidget* parent) {
  if (auto* c = dynamic_cast<zv::Canvas*>(&control))
    return new CanvasView(*c, parent);
  if (auto* c = dynamic_cast<zv::Label*>(&control))
    return new LabelView(*c, parent);
  if (auto* c = dynamic_cast<zv::Line*>(&control))
    return new LineView(*c, parent);
  if (auto* c = dynamic_cast<zv::Frame*>(&control))
    return new FrameView(*c, parent);
  if (auto* c = dynamic_cast<zv::TextBox*>(&control))
    return new TextBoxView(*c, parent);
  if (auto* c = dynamic_cast<zv::ScrollBar*>(&control))
    return new ScrollBarView(*c, parent);
  if (auto* c = dynamic_cast<zv::ComboBox*>(&control))
    return new ComboBoxView(*c, parent);
  if (auto* c = dynamic_cast<zv::CheckBox*>(&control))
    return new CheckBoxView(*c, parent);
  return nullptr;
}

ViewMap buildViews(const std::vector<zv::Control*>& controls, QWidget& root) {
  ViewMap views;
  std::function<QWidget*(zv::Control*)> viewOf = [&](zv::Control* control) -> QWidget* {
    if (auto found = views.find(control); found != views.end())
      return found->second;
    zv::Control* parent = control->Parent();
    bool parentListed =
        parent && std::find(controls.begin(), controls.end(), parent) != controls.end();
    QWidget* container = parentListed ? viewOf(parent) : &root;
    QWidget* view = makeView(*control, container ? container : &root);
    views[control] = view;
    return view;
  };
  for (zv::Control* control : controls)
    if (control)
      viewOf(control);
  return views;
}

void applyTabOrder(const ViewMap& views) {
  std::vector<std::pair<const zv::Control*, QWidget*>> order;
  for (const auto& entry : views)
    if (entry.second && entry.second->focusPolicy() & Qt::TabFocus)
      order.push_back(entry);
  std::stable_sort(order.begin(), order.end(), [](const auto& a, const auto& b) {
    return a.first->TabIndex() < b.first->TabIndex();
  });
  for (size_t i = 1; i < order.size(); ++i)
    QWidget::setTabOrder(order[i - 1].second, order[i].second);
}

} // namespace zvqt
