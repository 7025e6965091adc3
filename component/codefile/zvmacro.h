// ZVMacro: the record of one macro of the macro table.
#pragma once

#include <cstdint>
#include <string>

#include "../../platform/variant.h"

namespace zv {

struct ZVMacro {
  std::string MacroName; // name|name|return type
  int16_t IsFunction = 0; // -1 when the return type isn't "void"
  int16_t IsPrivate = 0;
  Variant MacroParams;    // Variant[] with no elements, or String[] 0..n-1
};

} // namespace zv
