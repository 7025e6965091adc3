/// @file
/// The container's property bag: named Variants kept in the order written.
/// Names are matched without regard to case, as the container does.
#pragma once

#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "variant.h"

namespace zv {

/// The saved properties of one component, owned by the container.
class PropertyBag {
public:
  /// The stored value, or defaultValue when the bag has no such name.
  Variant ReadProperty(const std::string& name, const Variant& defaultValue) const;
  /// Stores (or replaces, keeping its place) the value under the name.
  void WriteProperty(const std::string& name, const Variant& value);

  /// The names and values in the order first written.
  const std::vector<std::pair<std::string, Variant>>& entries() const { return entries_; }
  /// Empties the bag.
  void clear() {
    entries_.clear();
    index_.clear();
  }

private:
  std::vector<std::pair<std::string, Variant>> entries_;
  // Place in entries_ by the name in lower case, so a bag of many keys loads in linear time.
  std::unordered_map<std::string, size_t> index_;
};

} // namespace zv
