// Inspection of the current component (its fields, its panel, a canvas's
// drawing) and the output files made from it (a picture, a C program).
#include <fstream>

#include "late_bound.h"
#include "platform/vbnum.h"
#include "runner.h"

namespace zvhost {

namespace {

float floatWord(const std::string& word) {
  const zv::Variant v = parseLiteral(word);
  if (v.isArray() || (v.type() != zv::VarType::I2 && v.type() != zv::VarType::I4 &&
                      v.type() != zv::VarType::R8 && v.type() != zv::VarType::R4))
    throw ScriptError("not a number: " + word);
  switch (v.type()) {
  case zv::VarType::I2:
    return v.rawI2();
  case zv::VarType::I4:
    return static_cast<float>(v.rawI4());
  case zv::VarType::R4:
    return v.rawR4();
  default:
    return static_cast<float>(v.rawR8());
  }
}

} // namespace

Runner::Reply Runner::state() {
  Reply r;
  r.result = inspectedJson(component().fields());
  return r;
}

Runner::Reply Runner::panel() {
  const PanelView view = component().panel();
  Json j;
  j["width"] = floatJson(view.width);
  j["height"] = floatJson(view.height);
  j["backStyle"] = view.backStyle;
  Json controls = Json::object();
  for (const PanelView::Item& item : view.controls) {
    Json one;
    one["visible"] = zv::vbBool(item.visible);
    if (item.caption)
      one["caption"] = textJson(*item.caption);
    controls[item.name] = std::move(one);
  }
  j["controls"] = std::move(controls);
  Reply r;
  r.result = std::move(j);
  return r;
}

Runner::Reply Runner::canvas(LineScanner& scan) {
  ComponentHandle& c = component();
  const int index = wordNumber(scan.word());
  std::optional<CanvasView> view = c.canvas(index, std::nullopt);
  if (!view)
    throw ScriptError("no canvas Pic_Graph(" + std::to_string(index) + ") on the panel");
  if (!scan.atEnd()) {
    if (scan.word() != "size")
      throw ScriptError("canvas I takes nothing or size W H");
    const float width = floatWord(scan.word());
    const float height = floatWord(scan.word());
    if (!scan.atEnd())
      throw ScriptError("unexpected argument: " + scan.rest());
    // Larger than any screen, a canvas only multiplies what a plot draws on it.
    constexpr float kMaxTwips = 100000;
    if (!(width >= 0 && width <= kMaxTwips && height >= 0 && height <= kMaxTwips))
      throw ScriptError("canvas size: width and height are 0 to 100000 twips");
    view = c.canvas(index, std::make_pair(width, height));
  }
  Json j;
  j["scaleWidth"] = floatJson(view->scaleWidth);
  j["scaleHeight"] = floatJson(view->scaleHeight);
  j["foreColor"] = colorText(view->foreColor);
  Json ops = Json::array();
  for (const zv::DrawOp& op : view->ops)
    ops.push_back(drawOpJson(op));
  j["ops"] = std::move(ops);
  Reply r;
  r.result = std::move(j);
  return r;
}

Runner::Reply Runner::render(LineScanner& scan) {
  ComponentHandle& c = component();
  const std::string path = scan.word();
  double scale = 1;
  if (!scan.atEnd()) {
    if (scan.word() != "scale")
      throw ScriptError("render FILE takes nothing or scale S");
    scale = floatWord(scan.word());
    if (!scan.atEnd())
      throw ScriptError("unexpected argument: " + scan.rest());
  }
  std::string error;
  if (!backend_.render(c, path, scale, error))
    throw ScriptError("render " + path + ": " + error);
  return {};
}

Runner::Reply Runner::program(LineScanner& scan) {
  Slot& slot = currentSlot();
  const std::string path = scan.word();
  if (!scan.atEnd())
    throw ScriptError("unexpected argument: " + scan.rest());
  std::string text, error;
  if (!generateProgram(slot.late->source(), slot.recorder.simulation(), text, error))
    throw ScriptError("program " + path + ": " + error);
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << text;
  if (!out)
    throw ScriptError("cannot write " + path);
  Reply r;
  size_t calls = 0;
  for (const SimulationStep& step : slot.recorder.simulation().steps)
    calls += std::holds_alternative<MacroCall>(step);
  r.result = Json{{"calls", calls}};
  return r;
}

} // namespace zvhost
