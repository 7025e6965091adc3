#include "propbag.h"

namespace zv {

namespace {
std::string folded(const std::string& name) {
  std::string key = name;
  for (char& c : key)
    if (c >= 'A' && c <= 'Z')
      c = static_cast<char>(c - 'A' + 'a');
  return key;
}
} // namespace

Variant PropertyBag::ReadProperty(const std::string& name, const Variant& defaultValue) const {
  const auto it = index_.find(folded(name));
  return it == index_.end() ? defaultValue : entries_[it->second].second;
}

void PropertyBag::WriteProperty(const std::string& name, const Variant& value) {
  const auto [it, added] = index_.try_emplace(folded(name), entries_.size());
  if (added)
    entries_.emplace_back(name, value);
  else
    entries_[it->second].second = value;
}

} // namespace zv
