// The one failure funnel: runs an operation's body and turns a run-time
// error into the call's failed status. What the body wrote before the
// failure stays, as there is no recovery.
#pragma once

#include <exception>
#include <new>

#include "../../platform/errors.h"
#include "zelvor/status.h"

namespace zv {

template <class Body> Status guard(Body&& body) noexcept {
  try {
    body();
    return {};
  } catch (const RuntimeError& e) {
    return {e.number(), e.description()};
  } catch (const std::bad_alloc&) {
    return {7, errorDescription(7)};
  } catch (const std::exception& e) {
    return {51, e.what()};
  } catch (...) {
    return {51, errorDescription(51)};
  }
}

} // namespace zv
