// The status of one call through the host interface: success, or failure
// with the run-time error number that ended it.
#pragma once

#include <string>

namespace zv {

struct Status {
  int number = 0; // 0: success
  std::string description;
  bool ok() const { return number == 0; }
};

} // namespace zv
