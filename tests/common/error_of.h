// The run-time error number that a call raises, or 0 when it raises none.
#pragma once

#include <functional>

#include "platform/errors.h"

namespace zvtest {

inline int errorOf(const std::function<void()>& f) {
  try {
    f();
  } catch (const zv::RuntimeError& e) {
    return e.number();
  }
  return 0;
}

} // namespace zvtest
