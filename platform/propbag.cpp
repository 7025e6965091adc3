#include "propbag.h"

#include <strings.h>

namespace zv {

namespace {
bool sameName(const std::string& a, const std::string& b) {
  return a.size() == b.size() && strncasecmp(a.data(), b.data(), a.size()) == 0;
}
} // namespace

Variant PropertyBag::ReadProperty(const std::string& name, const Variant& defaultValue) const {
  for (const auto& [key, value] : entries_)
    if (sameName(key, name))
      return value;
  return defaultValue;
}

void PropertyBag::WriteProperty(const std::string& name, const Variant& value) {
  for (auto& [key, stored] : entries_)
    if (sameName(key, name)) {
      stored = value;
      return;
    }
  entries_.emplace_back(name, value);
}

} // namespace zv
