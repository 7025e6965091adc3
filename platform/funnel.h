/// @file
/// The one failure funnel. Inside the platform and the component a failure
/// is a thrown RuntimeError carrying a run-time error number (errors.h); at
/// every boundary (the host interface, a view's user action, a script line)
/// it becomes a Status here, and nowhere else.
#pragma once

#include <string>

#include "errors.h"

namespace zv {

/// The outcome of one call: success, or the run-time error number that ended
/// it and its text. A failed call leaves whatever it wrote before the failure.
struct Status {
  int number = 0;          ///< 0 for success, else a run-time error number (ErrorNumber)
  std::string description; ///< the error's text; empty on success
  /// True when the call succeeded.
  bool ok() const { return number == 0; }
};

/// The Status of the exception being handled; call it only inside a catch
/// block. A RuntimeError keeps its number and text; running out of memory is
/// errOutOfMemory; any other exception is errInternal with its own text.
Status statusOfCurrentException() noexcept;

/// Runs body and answers its Status: success, or the failure it threw.
/// Nothing is undone: what body wrote before the failure stays.
template <class Body> Status guard(Body&& body) noexcept {
  try {
    body();
    return {};
  } catch (...) {
    return statusOfCurrentException();
  }
}

} // namespace zv
