// Reaching a slot of the pin table. A slot without a record raises 91.
#pragma once

#include <memory>

#include "../../platform/errors.h"
#include "../../platform/vbarray.h"
#include "zvpin.h"

namespace zv {

// The record of a slot; an id outside the table raises 9.
inline ZVPin& pinRecord(VbArray<std::unique_ptr<ZVPin>>& pins, int32_t id) {
  auto& slot = pins[id];
  if (!slot)
    raise(errObjectNotSet);
  return *slot;
}

// The record of a slot, or nullptr for an id outside the table.
inline ZVPin* pinInTable(VbArray<std::unique_ptr<ZVPin>>& pins, int32_t id) {
  if (id > pins.ubound() || id < pins.lbound())
    return nullptr;
  return &pinRecord(pins, id);
}

} // namespace zv
