#include "diagnostic_trees.h"

#include <initializer_list>

#include "platform/errors.h"

namespace zvcom {

namespace {

zv::Variant list(const std::vector<zv::Variant>& items) {
  zv::SafeArray a(zv::VarType::Variant, 0, static_cast<int32_t>(items.size()) - 1);
  for (size_t i = 0; i < items.size(); ++i)
    a.set(static_cast<int32_t>(i), items[i]);
  return zv::Variant::array(std::move(a));
}

zv::Variant list(std::initializer_list<zv::Variant> items) {
  return list(std::vector<zv::Variant>(items));
}

zv::Variant strings(const std::vector<std::string>& items) {
  zv::SafeArray a(zv::VarType::BSTR, 0, static_cast<int32_t>(items.size()) - 1);
  for (size_t i = 0; i < items.size(); ++i)
    a.set(static_cast<int32_t>(i), zv::Variant::str(items[i]));
  return zv::Variant::array(std::move(a));
}

zv::Variant opTree(const zv::DrawOp& op) {
  return list({zv::Variant::i2(static_cast<int16_t>(op.kind)), zv::Variant::r4(op.x1),
               zv::Variant::r4(op.y1), zv::Variant::r4(op.x2), zv::Variant::r4(op.y2),
               zv::Variant::i4(static_cast<int32_t>(op.color)), zv::Variant::i4(op.style),
               zv::Variant::str(op.text)});
}

zv::Variant controlTree(const zv::Control& c) {
  using zv::Variant;
  auto* text = dynamic_cast<const zv::TextBox*>(&c);
  auto* label = dynamic_cast<const zv::Label*>(&c);
  auto* frame = dynamic_cast<const zv::Frame*>(&c);
  auto* check = dynamic_cast<const zv::CheckBox*>(&c);
  auto* bar = dynamic_cast<const zv::ScrollBar*>(&c);
  auto* combo = dynamic_cast<const zv::ComboBox*>(&c);
  Variant caption = label   ? Variant::str(label->Caption())
                    : frame ? Variant::str(frame->Caption())
                    : check ? Variant::str(check->Caption())
                            : Variant();
  Variant value = check ? Variant::i4(check->Value()) : bar ? Variant::i4(bar->Value()) : Variant();
  return list({Variant::str(c.name()), text ? Variant::str(text->Text()) : Variant(), caption,
               value, bar ? Variant::i4(bar->Min()) : Variant(),
               bar ? Variant::i4(bar->Max()) : Variant(),
               combo ? Variant::i4(combo->ListIndex()) : Variant(),
               combo ? strings(combo->items()) : Variant(), Variant::boolean(c.Enabled())});
}

} // namespace

zv::Variant fieldsTree(const zv::Inspected& fields) {
  switch (fields.kind) {
  case zv::Inspected::Kind::Null:
    return list({zv::Variant::i2(0), zv::Variant()});
  case zv::Inspected::Kind::Value:
    return list({zv::Variant::i2(1), fields.value});
  case zv::Inspected::Kind::List: {
    std::vector<zv::Variant> items;
    for (const zv::Inspected& item : fields.items)
      items.push_back(fieldsTree(item));
    return list({zv::Variant::i2(2), list(items)});
  }
  case zv::Inspected::Kind::Record: {
    std::vector<zv::Variant> members;
    for (const auto& [name, member] : fields.members) {
      members.push_back(zv::Variant::str(name));
      members.push_back(fieldsTree(member));
    }
    return list({zv::Variant::i2(3), list(members)});
  }
  }
  return {};
}

zv::Variant panelTree(zv::ComponentObject& component) {
  const zv::UserControlSurface& surface = component.panelSurface();
  std::vector<zv::Variant> controls;
  for (zv::Control* c : component.panelControls()) {
    auto* label = dynamic_cast<zv::Label*>(c);
    controls.push_back(list({zv::Variant::str(c->name()), zv::Variant::boolean(c->Visible()),
                             label ? zv::Variant::str(label->Caption()) : zv::Variant()}));
  }
  return list({zv::Variant::r4(surface.Width()), zv::Variant::r4(surface.Height()),
               zv::Variant::i4(surface.BackStyle()), list(controls)});
}

zv::Canvas* canvasOf(zv::ComponentObject& component, int index) {
  const std::string name = "Pic_Graph(" + std::to_string(index) + ")";
  for (zv::Control* c : component.panelControls())
    if (c->name() == name)
      return dynamic_cast<zv::Canvas*>(c);
  return nullptr;
}

void sizeCanvas(zv::Canvas& canvas, float width, float height) {
  const float border = canvas.BorderWidth();
  canvas.Move(canvas.Left(), canvas.Top(), width + 2 * border, height + 2 * border);
}

zv::Variant canvasTree(const zv::Canvas& canvas) {
  std::vector<zv::Variant> ops;
  for (const zv::DrawOp& op : canvas.ops())
    ops.push_back(opTree(op));
  return list({zv::Variant::r4(canvas.ScaleWidth()), zv::Variant::r4(canvas.ScaleHeight()),
               zv::Variant::i4(static_cast<int32_t>(canvas.ForeColor())), list(ops)});
}

zv::Variant pageTree(zv::PageObject& page) {
  std::vector<zv::Variant> controls;
  for (zv::Control* c : page.controls())
    controls.push_back(controlTree(*c));
  zv::Control* focus = page.site().focus();
  return list({fieldsTree(page.inspect()), list(controls),
               zv::Variant::boolean(page.site().Changed()),
               focus ? zv::Variant::str(focus->name()) : zv::Variant()});
}

std::pair<zv::Variant, zv::Variant> bagArrays(const zv::PropertyBag& bag) {
  std::vector<std::string> names;
  std::vector<zv::Variant> values;
  for (const auto& [name, value] : bag.entries()) {
    names.push_back(name);
    values.push_back(value);
  }
  return {strings(names), list(values)};
}

void fillBag(const zv::Variant& names, const zv::Variant& values, zv::PropertyBag& bag) {
  bool shaped = names.isArray() && values.isArray() && names.arr().size() == values.arr().size();
  for (size_t i = 0; shaped && i < names.arr().size(); ++i)
    shaped =
        names.arr().at(names.arr().lbound() + static_cast<int32_t>(i)).type() == zv::VarType::BSTR;
  if (!shaped)
    throw zv::RuntimeError(zv::errTypeMismatch, zv::errorDescription(zv::errTypeMismatch));
  const int32_t n0 = names.arr().lbound(), v0 = values.arr().lbound();
  for (int32_t i = 0; i < static_cast<int32_t>(names.arr().size()); ++i)
    bag.WriteProperty(names.arr().at(n0 + i).rawStr(), values.arr().at(v0 + i));
}

EditableKind editableKind(const zv::Control* c) {
  if (!c)
    return EditableKind::None;
  if (dynamic_cast<const zv::TextBox*>(c))
    return EditableKind::TextBox;
  if (dynamic_cast<const zv::ScrollBar*>(c))
    return EditableKind::ScrollBar;
  if (dynamic_cast<const zv::CheckBox*>(c))
    return EditableKind::CheckBox;
  if (dynamic_cast<const zv::ComboBox*>(c))
    return EditableKind::List;
  return EditableKind::Other;
}

void setEditableValue(zv::Control* c, int value) {
  if (auto* s = dynamic_cast<zv::ScrollBar*>(c))
    s->setValue(value);
  else if (auto* k = dynamic_cast<zv::CheckBox*>(c))
    k->setValue(value);
  else if (auto* b = dynamic_cast<zv::ComboBox*>(c))
    b->setListIndex(value);
}

std::string textOf(const zv::Control* c) {
  auto* box = dynamic_cast<const zv::TextBox*>(c);
  return box ? box->Text() : std::string();
}

void setTextOf(zv::Control* c, const std::string& text) {
  if (auto* box = dynamic_cast<zv::TextBox*>(c))
    box->setText(text);
}

void arrowOn(zv::Control* c, bool up) {
  auto* bar = dynamic_cast<zv::ScrollBar*>(c);
  if (bar && up)
    bar->arrowUp();
  else if (bar)
    bar->arrowDown();
}

} // namespace zvcom
