#include "diagnostic_views.h"

#include "platform/errors.h"

namespace zvhost {

namespace {

const zv::Variant& at(const zv::Variant& tree, int32_t index) {
  if (!tree.isArray() || index > tree.arr().ubound())
    zv::raise(zv::errTypeMismatch);
  return tree.arr().at(tree.arr().lbound() + index);
}

size_t count(const zv::Variant& tree) {
  if (!tree.isArray())
    zv::raise(zv::errTypeMismatch);
  return tree.arr().size();
}

const std::string& text(const zv::Variant& v) {
  if (v.isArray() || v.type() != zv::VarType::BSTR)
    zv::raise(zv::errTypeMismatch);
  return v.rawStr();
}

int whole(const zv::Variant& v) {
  if (v.isArray())
    zv::raise(zv::errTypeMismatch);
  switch (v.type()) {
  case zv::VarType::I2:
    return v.rawI2();
  case zv::VarType::I4:
    return v.rawI4();
  case zv::VarType::Bool:
    return v.rawBool();
  default:
    zv::raise(zv::errTypeMismatch);
  }
}

float real(const zv::Variant& v) {
  if (v.isArray() || v.type() != zv::VarType::R4)
    zv::raise(zv::errTypeMismatch);
  return v.rawR4();
}

std::optional<int> optionalWhole(const zv::Variant& v) {
  return v.isEmpty() ? std::nullopt : std::optional<int>(whole(v));
}

std::optional<std::string> optionalText(const zv::Variant& v) {
  return v.isEmpty() ? std::nullopt : std::optional<std::string>(text(v));
}

} // namespace

zv::Inspected fieldsFrom(const zv::Variant& tree) {
  const zv::Variant& payload = at(tree, 1);
  switch (whole(at(tree, 0))) {
  case 0:
    return zv::Inspected::null();
  case 1:
    return zv::Inspected::of(payload);
  case 2: {
    zv::Inspected list = zv::Inspected::list();
    for (size_t i = 0; i < count(payload); ++i)
      list.items.push_back(fieldsFrom(at(payload, static_cast<int32_t>(i))));
    return list;
  }
  case 3: {
    zv::Inspected record = zv::Inspected::record();
    for (size_t i = 0; i + 1 < count(payload); i += 2)
      record.add(text(at(payload, static_cast<int32_t>(i))),
                 fieldsFrom(at(payload, static_cast<int32_t>(i + 1))));
    return record;
  }
  default:
    zv::raise(zv::errTypeMismatch);
  }
}

PanelView panelFrom(const zv::Variant& tree) {
  PanelView v;
  v.width = real(at(tree, 0));
  v.height = real(at(tree, 1));
  v.backStyle = whole(at(tree, 2));
  const zv::Variant& controls = at(tree, 3);
  for (size_t i = 0; i < count(controls); ++i) {
    const zv::Variant& c = at(controls, static_cast<int32_t>(i));
    v.controls.push_back({text(at(c, 0)), whole(at(c, 1)) != 0, optionalText(at(c, 2))});
  }
  return v;
}

std::optional<CanvasView> canvasFrom(const zv::Variant& tree) {
  if (tree.isEmpty())
    return std::nullopt;
  CanvasView v;
  v.scaleWidth = real(at(tree, 0));
  v.scaleHeight = real(at(tree, 1));
  v.foreColor = static_cast<zv::Color>(whole(at(tree, 2)));
  const zv::Variant& ops = at(tree, 3);
  for (size_t i = 0; i < count(ops); ++i) {
    const zv::Variant& o = at(ops, static_cast<int32_t>(i));
    zv::DrawOp op;
    op.kind = static_cast<zv::DrawOp::Kind>(whole(at(o, 0)));
    op.x1 = real(at(o, 1));
    op.y1 = real(at(o, 2));
    op.x2 = real(at(o, 3));
    op.y2 = real(at(o, 4));
    op.color = static_cast<zv::Color>(whole(at(o, 5)));
    op.style = whole(at(o, 6));
    op.text = text(at(o, 7));
    v.ops.push_back(std::move(op));
  }
  return v;
}

PageView pageFrom(const zv::Variant& tree) {
  PageView v;
  v.fields = fieldsFrom(at(tree, 0));
  const zv::Variant& controls = at(tree, 1);
  for (size_t i = 0; i < count(controls); ++i) {
    const zv::Variant& c = at(controls, static_cast<int32_t>(i));
    ControlView control;
    control.name = text(at(c, 0));
    control.text = optionalText(at(c, 1));
    control.caption = optionalText(at(c, 2));
    control.value = optionalWhole(at(c, 3));
    control.min = optionalWhole(at(c, 4));
    control.max = optionalWhole(at(c, 5));
    control.listIndex = optionalWhole(at(c, 6));
    const zv::Variant& items = at(c, 7);
    if (!items.isEmpty()) {
      control.items.emplace();
      for (size_t k = 0; k < count(items); ++k)
        control.items->push_back(text(at(items, static_cast<int32_t>(k))));
    }
    control.enabled = whole(at(c, 8)) != 0;
    v.controls.push_back(std::move(control));
  }
  v.changed = whole(at(tree, 2)) != 0;
  v.focus = optionalText(at(tree, 3));
  return v;
}

ControlKind controlKindFrom(int number) {
  static const ControlKind kinds[] = {ControlKind::None,      ControlKind::TextBox,
                                      ControlKind::ScrollBar, ControlKind::CheckBox,
                                      ControlKind::ComboBox,  ControlKind::Other};
  if (number < 0 || number > 5)
    zv::raise(zv::errTypeMismatch);
  return kinds[number];
}

} // namespace zvhost
