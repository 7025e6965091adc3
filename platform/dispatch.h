/// @file
/// Late-bound access to an object's public interface by member name, as the
/// property page and the script runner reach a component's properties.
#pragma once

#include <string>
#include <vector>

#include "variant.h"

namespace zv {

/// An object's public interface by member name. Failures are thrown as
/// RuntimeError: an unknown name raises errNoSuchMember, a wrong count of
/// arguments errWrongArguments.
class Dispatch {
public:
  virtual ~Dispatch() = default;
  /// The value of property name (a method without arguments answers too).
  virtual Variant getProperty(const std::string& name) = 0;
  /// Writes value to property name.
  virtual void putProperty(const std::string& name, const Variant& value) = 0;
  /// Calls method name and answers its result; args are in/out: a method may
  /// write back into them.
  virtual Variant callMethod(const std::string& name, std::vector<Variant>& args) = 0;
};

} // namespace zv
