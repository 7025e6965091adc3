// Run-time errors: the one way a failure travels inside the platform and the
// component. A failure is an exception carrying a run-time error number; the
// host interface turns it into a failed status (see component/core/guard.h).
#pragma once

#include <stdexcept>
#include <string>

namespace zv {

enum ErrorNumber : int {
  errInvalidCall = 5,
  errOverflow = 6,
  errSubscript = 9,
  errDivisionByZero = 11,
  errTypeMismatch = 13,
  errFileNotFound = 53,
  errBadFileMode = 54,
  errPathAccess = 75,
  errObjectNotSet = 91,
  errInvalidPropertyValue = 380,
};

class RuntimeError : public std::runtime_error {
public:
  RuntimeError(int number, const std::string& description);
  int number() const { return number_; }
  const std::string& description() const { return description_; }

private:
  int number_;
  std::string description_;
};

// The platform's text for a run-time error number ("Overflow", ...).
std::string errorDescription(int number);

[[noreturn]] void raise(int number);
[[noreturn]] void raise(int number, const std::string& description);

} // namespace zv
