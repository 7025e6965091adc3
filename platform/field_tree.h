// A plain tree of named values, so a host can show an object's fields
// without knowing its class: records, lists, values and null.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "variant.h"

namespace zv {

struct Inspected {
  enum class Kind { Null, Value, List, Record };
  Kind kind = Kind::Null;
  Variant value;
  std::vector<Inspected> items;
  std::vector<std::pair<std::string, Inspected>> members;

  Inspected();
  Inspected(const Inspected&);
  Inspected(Inspected&&) noexcept;
  Inspected& operator=(const Inspected&);
  Inspected& operator=(Inspected&&) noexcept;
  ~Inspected();

  static Inspected null() { return {}; }
  static Inspected of(Variant v) {
    Inspected i;
    i.kind = Kind::Value;
    i.value = std::move(v);
    return i;
  }
  static Inspected list() {
    Inspected i;
    i.kind = Kind::List;
    return i;
  }
  static Inspected record() {
    Inspected i;
    i.kind = Kind::Record;
    return i;
  }
  Inspected& add(std::string name, Inspected v) {
    members.emplace_back(std::move(name), std::move(v));
    return *this;
  }
};

// Defaulted once the type is complete: clang 14 can't instantiate them inside
// the class against the C++20 (constexpr) vector of libstdc++.
inline Inspected::Inspected() = default;
inline Inspected::Inspected(const Inspected&) = default;
inline Inspected::Inspected(Inspected&&) noexcept = default;
inline Inspected& Inspected::operator=(const Inspected&) = default;
inline Inspected& Inspected::operator=(Inspected&&) noexcept = default;
inline Inspected::~Inspected() = default;

} // namespace zv
