// JSON read back: bags and Variants as json_out writes them. Reading is
// linear in the text and bounded in depth, whatever the text holds; JSON text
// is UTF-8 and becomes the component's Windows-1252. Anything malformed, too
// deep, out of range or not representable throws ScriptError.
#pragma once

#include <string_view>

#include "json_out.h"
#include "lexer.h"

namespace zvhost {

// Deep enough for a bag of arrays nested as deep as a literal may be.
constexpr int kMaxJsonDepth = 2 * kMaxArrayNesting + 8;

Json parseJson(std::string_view text);

// The reverse of variantJson and bagJson.
zv::Variant variantFromJson(const Json& j);
zv::PropertyBag bagFromJson(const Json& j);

} // namespace zvhost
