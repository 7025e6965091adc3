// Late-bound access to an object's public interface by member name, as the
// property page and the script runner reach a component's properties.
#pragma once

#include <string>
#include <vector>

#include "variant.h"

namespace zv {

class Dispatch {
public:
  virtual ~Dispatch() = default;
  // Unknown names raise 438-style errors (errInvalidCall here).
  virtual Variant getProperty(const std::string& name) = 0;
  virtual void putProperty(const std::string& name, const Variant& value) = 0;
  // args are in/out: a method may write back into them.
  virtual Variant callMethod(const std::string& name, std::vector<Variant>& args) = 0;
};

} // namespace zv
