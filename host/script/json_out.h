// Variants, bags, inspected fields and drawings as JSON. Objects keep the
// order in which their keys were written. The component's text is
// Windows-1252; in JSON it is UTF-8, each byte its Windows-1252 character. A 32-bit float is
// written as the shortest decimal that reads back to the same float, a double as the shortest that
// reads back to the same double.
#pragma once

#include <string>
#include <string_view>

#include <nlohmann/json.hpp>

#include "platform/controls/canvas.h"
#include "platform/field_tree.h"
#include "platform/propbag.h"
#include "platform/variant.h"

namespace zvhost {

using Json = nlohmann::ordered_json;

// {"vt": "I2", "v": 0}, {"vt": "BSTR[]", "lb": 0, "v": [...]}, {"vt": "EMPTY"}.
Json variantJson(const zv::Variant& v);
// The value alone: a number, -1/0 for a Boolean, a string, an array, null for empty.
Json plainJson(const zv::Variant& v);
Json floatJson(float f);
// The component's text as a JSON string.
Json textJson(std::string_view ansi);
Json inspectedJson(const zv::Inspected& i);
Json bagJson(const zv::PropertyBag& bag);
std::string colorText(zv::Color c); // "#RRGGBB"
Json drawOpJson(const zv::DrawOp& op);

// One line of output: ", " and ": " between items, no line end. Always
// valid UTF-8, whatever bytes the strings hold.
std::string dumpJson(const Json& j);

} // namespace zvhost
