// What a key of the code file means as a number or a Boolean. A text that is
// neither raises 13; a number too wide for its destination raises 6.
#pragma once

#include <cstdint>
#include <string>

#include "../../platform/vbnum.h"

namespace zv {

inline int32_t longOfKey(const std::string& text) {
  return clng(textToNumber(text));
}

inline int16_t intOfKey(const std::string& text) {
  return cint(textToNumber(text));
}

// A Boolean field holds -1 for true.
inline int16_t boolOfKey(const std::string& text) {
  return vbBool(textToBool(text));
}

// The key name of item n: its number with one blank ahead, where a sign would stand.
inline std::string numberedKey(int32_t n) {
  std::string key(1, ' ');
  return key.append(std::to_string(n));
}

} // namespace zv
