// What the diagnostic interfaces hand a host, as plain Variant trees (see
// idl/diagnostics.idl for their shapes): an object's fields, its panel, a
// canvas, a page's state. No Win32 here, so the shapes are tested on every
// platform against the host's reading of them.
#pragma once

#include <string>
#include <utility>

#include "platform/propbag.h"
#include "zelvor/objects.h"

namespace zvcom {

// What a user can set on a page control, as the interface numbers it.
enum class EditableKind { None = 0, TextBox = 1, ScrollBar = 2, CheckBox = 3, List = 4, Other = 5 };

zv::Variant fieldsTree(const zv::Inspected& fields);
zv::Variant panelTree(zv::ComponentObject& component);
// The canvas Pic_Graph(index) of the panel, nullptr when there is none.
zv::Canvas* canvasOf(zv::ComponentObject& component, int index);
// Makes the canvas's inner area width x height.
void sizeCanvas(zv::Canvas& canvas, float width, float height);
zv::Variant canvasTree(const zv::Canvas& canvas);
zv::Variant pageTree(zv::PageObject& page);

// A bag as the interfaces pass it: its names (BSTR) and values (VARIANT) as
// two arrays of the same length, in the bag's order.
std::pair<zv::Variant, zv::Variant> bagArrays(const zv::PropertyBag& bag);
// Writes such arrays into bag in order; arrays of another shape are a type
// mismatch, raised before anything is written.
void fillBag(const zv::Variant& names, const zv::Variant& values, zv::PropertyBag& bag);

EditableKind editableKind(const zv::Control* control);
// A user's edits; each does nothing on a control of another kind.
// A scroll bar's or check box's value, or a list's index.
void setEditableValue(zv::Control* control, int value);
std::string textOf(const zv::Control* textBox);
void setTextOf(zv::Control* textBox, const std::string& text);
void arrowOn(zv::Control* scrollBar, bool up);

} // namespace zvcom
