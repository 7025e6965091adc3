// The property page as its site and the user drive it: creation, selection,
// apply, and edits of its controls. Each edit goes through the control's
// model, so the page's notifications run nested, as for a user's edit.
#include <string>

#include "platform/errors.h"
#include "platform/vbnum.h"
#include "runner.h"

namespace zvhost {

namespace {

template <class T> T& controlOf(zv::PageObject& page, const std::string& name, const char* what) {
  zv::Control* c = page.control(name);
  if (!c)
    throw ScriptError("no control " + name + " on the page");
  T* typed = dynamic_cast<T*>(c);
  if (!typed)
    throw ScriptError(name + " is not a " + what);
  return *typed;
}

int intValue(const zv::Variant& v) {
  try {
    return zv::toI4(v);
  } catch (const zv::RuntimeError& e) {
    throw ScriptError("not a control value: " + e.description());
  }
}

Json controlJson(const zv::Control& c) {
  Json j = Json::object();
  if (auto* t = dynamic_cast<const zv::TextBox*>(&c))
    j["text"] = textJson(t->Text());
  if (auto* l = dynamic_cast<const zv::Label*>(&c))
    j["caption"] = textJson(l->Caption());
  if (auto* f = dynamic_cast<const zv::Frame*>(&c))
    j["caption"] = textJson(f->Caption());
  if (auto* k = dynamic_cast<const zv::CheckBox*>(&c)) {
    j["caption"] = textJson(k->Caption());
    j["value"] = k->Value();
  }
  if (auto* s = dynamic_cast<const zv::ScrollBar*>(&c)) {
    j["value"] = s->Value();
    j["min"] = s->Min();
    j["max"] = s->Max();
  }
  if (auto* b = dynamic_cast<const zv::ComboBox*>(&c)) {
    j["listIndex"] = b->ListIndex();
    Json items = Json::array();
    for (const std::string& item : b->items())
      items.push_back(textJson(item));
    j["items"] = std::move(items);
  }
  j["enabled"] = zv::vbBool(c.Enabled());
  return j;
}

} // namespace

zv::PageObject& Runner::requirePage() {
  if (!page_)
    throw ScriptError("no page: page new first");
  return *page_;
}

Json Runner::pageState() {
  zv::PageObject& page = requirePage();
  Json j;
  j["fields"] = inspectedJson(page.inspect());
  Json controls = Json::object();
  for (zv::Control* c : page.controls())
    controls[c->name()] = controlJson(*c);
  j["controls"] = std::move(controls);
  j["changed"] = zv::vbBool(page.site().Changed());
  zv::Control* focus = page.site().focus();
  j["focus"] = focus ? Json(focus->name()) : Json(nullptr);
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
    page_ = plugin_.createPage(r.status, &boxes_);
    if (!page_ && r.status.ok())
      r.status = {zv::errInvalidCall, zv::errorDescription(zv::errInvalidCall)};
    return r;
  }
  if (verb == "state") {
    noMore();
    r.result = pageState();
    return r;
  }
  zv::PageObject& page = requirePage();
  if (verb == "select") {
    std::vector<zv::Dispatch*> selected;
    while (!scan.atEnd()) {
      const int n = wordNumber(scan.word());
      if (n < 1 || static_cast<size_t>(n) > components_.size())
        throw ScriptError("no component " + std::to_string(n));
      selected.push_back(&components_[static_cast<size_t>(n) - 1].object->publicInterface());
    }
    if (selected.empty())
      selected.push_back(&component().publicInterface());
    page.site().SelectedControls = selected;
    r.status = page.PropertyPage_SelectionChanged();
    return r;
  }
  if (verb == "apply") {
    noMore();
    r.status = page.PropertyPage_ApplyChanges();
    // As a page frame does: an applied page has nothing left to apply.
    if (r.status.ok())
      page.site().setChanged(false);
    return r;
  }
  const std::string name = scan.word();
  if (verb == "set") {
    const zv::Variant value = scan.value();
    noMore();
    zv::Control* c = page.control(name);
    if (!c)
      throw ScriptError("no control " + name + " on the page");
    if (auto* t = dynamic_cast<zv::TextBox*>(c)) {
      std::string text;
      try {
        text = zv::toStr(value);
      } catch (const zv::RuntimeError& e) {
        throw ScriptError("not a text: " + e.description());
      }
      t->setText(text);
    } else if (auto* s = dynamic_cast<zv::ScrollBar*>(c)) {
      s->setValue(intValue(value));
    } else if (auto* k = dynamic_cast<zv::CheckBox*>(c)) {
      k->setValue(intValue(value));
    } else if (auto* b = dynamic_cast<zv::ComboBox*>(c)) {
      b->setListIndex(intValue(value));
    } else {
      throw ScriptError(name + " has no value a user can set");
    }
    return r;
  }
  if (verb == "type") {
    const zv::Variant text = scan.value();
    noMore();
    if (text.type() != zv::VarType::BSTR || text.isArray())
      throw ScriptError("page type takes a string");
    zv::TextBox& box = controlOf<zv::TextBox>(page, name, "text box");
    // Windows-1252: one byte is one character.
    for (char c : text.rawStr())
      box.setText(box.Text() + c);
    return r;
  }
  if (verb == "backspace") {
    int count = 1;
    if (!scan.atEnd())
      count = wordNumber(scan.word());
    noMore();
    zv::TextBox& box = controlOf<zv::TextBox>(page, name, "text box");
    for (int i = 0; i < count && !box.Text().empty(); ++i) {
      std::string text = box.Text();
      text.pop_back();
      box.setText(text);
    }
    return r;
  }
  if (verb == "arrow") {
    const std::string direction = scan.word();
    noMore();
    zv::ScrollBar& bar = controlOf<zv::ScrollBar>(page, name, "scroll bar");
    if (direction == "up")
      bar.arrowUp();
    else if (direction == "down")
      bar.arrowDown();
    else
      throw ScriptError("page arrow takes up or down, not " + direction);
    return r;
  }
  throw ScriptError("unknown page command: " + verb);
}

} // namespace zvhost
