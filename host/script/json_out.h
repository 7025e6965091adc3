// Variants, bags, inspected fields and drawings as JSON, and back. Objects
// keep the order in which their keys were written. A 32-bit float is written
// as the shortest decimal that reads back to the same float, a double as the
// shortest that reads back to the same double.
#pragma once

#include <string>

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
Json inspectedJson(const zv::Inspected& i);
Json bagJson(const zv::PropertyBag& bag);
std::string colorText(zv::Color c); // "#RRGGBB"
Json drawOpJson(const zv::DrawOp& op);

// The reverse of variantJson and bagJson; a malformed value throws ScriptError.
zv::Variant variantFromJson(const Json& j);
zv::PropertyBag bagFromJson(const Json& j);

// One line of output: ", " and ": " between items, no line end.
std::string dumpJson(const Json& j);

} // namespace zvhost
