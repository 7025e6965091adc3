// Inspection of the current component (its fields, its panel, a canvas's
// drawing) and the output files made from it (a picture, a C program).
#include <fstream>

#include "host/pictures/render.h"
#include "platform/vbnum.h"
#include "runner.h"

namespace zvhost {

namespace {

zv::Canvas& canvasOf(zv::ComponentObject& component, int index) {
  const std::string name = "Pic_Graph(" + std::to_string(index) + ")";
  for (zv::Control* c : component.panelControls())
    if (c->name() == name)
      if (auto* canvas = dynamic_cast<zv::Canvas*>(c))
        return *canvas;
  throw ScriptError("no canvas " + name + " on the panel");
}

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
  r.result = inspectedJson(component().inspect());
  return r;
}

Runner::Reply Runner::panel() {
  zv::ComponentObject& c = component();
  const zv::UserControlSurface& surface = c.panelSurface();
  Json j;
  j["width"] = floatJson(surface.Width());
  j["height"] = floatJson(surface.Height());
  j["backStyle"] = surface.BackStyle();
  Json controls = Json::object();
  for (zv::Control* control : c.panelControls()) {
    Json one;
    one["visible"] = zv::vbBool(control->Visible());
    if (auto* label = dynamic_cast<zv::Label*>(control))
      one["caption"] = textJson(label->Caption());
    controls[control->name()] = std::move(one);
  }
  j["controls"] = std::move(controls);
  Reply r;
  r.result = std::move(j);
  return r;
}

Runner::Reply Runner::canvas(LineScanner& scan) {
  zv::Canvas& canvas = canvasOf(component(), wordNumber(scan.word()));
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
    const float border = canvas.BorderWidth();
    canvas.Move(canvas.Left(), canvas.Top(), width + 2 * border, height + 2 * border);
  }
  Json j;
  j["scaleWidth"] = floatJson(canvas.ScaleWidth());
  j["scaleHeight"] = floatJson(canvas.ScaleHeight());
  j["foreColor"] = colorText(canvas.ForeColor());
  Json ops = Json::array();
  for (const zv::DrawOp& op : canvas.ops())
    ops.push_back(drawOpJson(op));
  j["ops"] = std::move(ops);
  Reply r;
  r.result = std::move(j);
  return r;
}

Runner::Reply Runner::render(LineScanner& scan) {
  zv::ComponentObject& c = component();
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
  if (!renderPanel(c, path, error, scale))
    throw ScriptError("render " + path + ": " + error);
  return {};
}

Runner::Reply Runner::program(LineScanner& scan) {
  Slot& slot = currentSlot();
  const std::string path = scan.word();
  if (!scan.atEnd())
    throw ScriptError("unexpected argument: " + scan.rest());
  std::string text, error;
  if (!generateProgram(*slot.object, slot.recorder.simulation(), text, error))
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
