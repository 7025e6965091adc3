// The control's saved properties in a stream: the same keys, values and order
// as in a property bag, in a format of our own.
//   "ZVPWMBAG", version (u16, 1), count (u16), then per key: name length
//   (u16), name (Windows-1252 bytes), type (u16: 2 I2, 3 I4, 8 String,
//   11 Boolean), value (I2 and Boolean 2 bytes, I4 4 bytes, String a u32
//   length and its bytes). Integers little-endian.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "platform/propbag.h"

namespace zvcom {

// The bytes of a bag; false when a value has a type the format doesn't hold.
bool encodeBag(const zv::PropertyBag& bag, std::string& bytes);

// Fills out from what read yields: read(buffer, n) copies exactly n bytes or
// answers false. Answers false for a short or corrupt stream; out is then
// incomplete and must not be used.
using ReadBytes = std::function<bool(void* buffer, size_t n)>;
bool decodeBag(const ReadBytes& read, zv::PropertyBag& out);

} // namespace zvcom
