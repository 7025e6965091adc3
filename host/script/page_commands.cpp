// The property page as its site and the user drive it: creation, selection,
// apply, and edits of its controls. Each edit goes through the control, so
// the page's notifications run nested, as for a user's edit.
#include <string>

#include "platform/errors.h"
#include "platform/vbnum.h"
#include "runner.h"

namespace zvhost {

namespace {

void requireKind(PageHandle& page, const std::string& name, ControlKind kind, const char* what) {
  const ControlKind found = page.kind(name);
  if (found == ControlKind::None)
    throw ScriptError("no control " + name + " on the page");
  if (found != kind)
    throw ScriptError(name + " is not a " + what);
}

int intValue(const zv::Variant& v) {
  try {
    return zv::toI4(v);
  } catch (const zv::RuntimeError& e) {
    throw ScriptError("not a control value: " + e.description());
  }
}

Json controlJson(const ControlView& c) {
  Json j = Json::object();
  if (c.text)
    j["text"] = textJson(*c.text);
  if (c.caption)
    j["caption"] = textJson(*c.caption);
  if (c.value)
    j["value"] = *c.value;
  if (c.min)
    j["min"] = *c.min;
  if (c.max)
    j["max"] = *c.max;
  if (c.listIndex)
    j["listIndex"] = *c.listIndex;
  if (c.items) {
    Json items = Json::array();
    for (const std::string& item : *c.items)
      items.push_back(textJson(item));
    j["items"] = std::move(items);
  }
  j["enabled"] = zv::vbBool(c.enabled);
  return j;
}

} // namespace

PageHandle& Runner::requirePage() {
  if (!page_)
    throw ScriptError("no page: page new first");
  return *page_;
}

Json Runner::pageState() {
  const PageView view = requirePage().state();
  Json j;
  j["fields"] = inspectedJson(view.fields);
  Json controls = Json::object();
  for (const ControlView& c : view.controls)
    controls[c.name] = controlJson(c);
  j["controls"] = std::move(controls);
  j["changed"] = zv::vbBool(view.changed);
  j["focus"] = view.focus ? Json(*view.focus) : Json(nullptr);
  return j;
}

Runner::Reply Runner::pageCommand(LineScanner& scan) {
  const std::string verb = scan.word();
  auto noMore = [&] {
    if (!scan.atEnd())
      throw ScriptError("unexpected argument: " + scan.rest());
  };
  Reply r;
  if (verb == "new") {
    noMore();
    page_.reset();
    page_ = backend_.createPage(r.status, &boxes_);
    if (!page_ && r.status.ok())
      r.status = {zv::errInvalidCall, zv::errorDescription(zv::errInvalidCall)};
    return r;
  }
  if (verb == "state") {
    noMore();
    r.result = pageState();
    return r;
  }
  PageHandle& page = requirePage();
  if (verb == "select") {
    std::vector<ComponentHandle*> selected;
    while (!scan.atEnd()) {
      const int n = wordNumber(scan.word());
      if (n < 1 || static_cast<size_t>(n) > components_.size())
        throw ScriptError("no component " + std::to_string(n));
      selected.push_back(components_[static_cast<size_t>(n) - 1].object.get());
    }
    if (selected.empty())
      selected.push_back(&component());
    r.status = page.select(selected);
    return r;
  }
  if (verb == "apply") {
    noMore();
    r.status = page.apply();
    return r;
  }
  const std::string name = scan.word();
  if (verb == "set") {
    const zv::Variant value = scan.value();
    noMore();
    switch (page.kind(name)) {
    case ControlKind::None:
      throw ScriptError("no control " + name + " on the page");
    case ControlKind::TextBox: {
      std::string text;
      try {
        text = zv::toStr(value);
      } catch (const zv::RuntimeError& e) {
        throw ScriptError("not a text: " + e.description());
      }
      page.setText(name, text);
      return r;
    }
    case ControlKind::ScrollBar:
    case ControlKind::CheckBox:
    case ControlKind::ComboBox:
      page.setValue(name, intValue(value));
      return r;
    case ControlKind::Other:
      break;
    }
    throw ScriptError(name + " has no value a user can set");
  }
  if (verb == "type") {
    const zv::Variant text = scan.value();
    noMore();
    if (text.type() != zv::VarType::BSTR || text.isArray())
      throw ScriptError("page type takes a string");
    requireKind(page, name, ControlKind::TextBox, "text box");
    // Windows-1252: one byte is one character.
    for (char c : text.rawStr())
      page.setText(name, page.text(name) + c);
    return r;
  }
  if (verb == "backspace") {
    int count = 1;
    if (!scan.atEnd())
      count = wordNumber(scan.word());
    noMore();
    requireKind(page, name, ControlKind::TextBox, "text box");
    for (int i = 0; i < count; ++i) {
      std::string text = page.text(name);
      if (text.empty())
        break;
      text.pop_back();
      page.setText(name, text);
    }
    return r;
  }
  if (verb == "arrow") {
    const std::string direction = scan.word();
    noMore();
    requireKind(page, name, ControlKind::ScrollBar, "scroll bar");
    if (direction != "up" && direction != "down")
      throw ScriptError("page arrow takes up or down, not " + direction);
    page.arrow(name, direction == "up");
    return r;
  }
  throw ScriptError("unknown page command: " + verb);
}

} // namespace zvhost
