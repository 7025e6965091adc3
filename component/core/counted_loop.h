// A loop with a 16-bit signed counter: the end must fit 16 bits when the loop
// starts, and stepping past 32767 overflows (6), even after the last pass.
#pragma once

#include <cstdint>

#include "../../platform/vbnum.h"

namespace zv {

template <class Body> void countedLoop16(int64_t first, int64_t last, Body&& body) {
  int16_t i = narrow16(first);
  const int16_t end = narrow16(last);
  while (i <= end) {
    body(i);
    i = add16(i, 1);
  }
}

} // namespace zv
