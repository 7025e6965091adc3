/// @file
/// Run-time errors: the one way a failure travels inside the platform and the
/// component. A failure is an exception carrying a run-time error number; the
/// host interface turns it into a failed status (see funnel.h).
#pragma once

#include <stdexcept>
#include <string>

namespace zv {

/// The run-time error numbers that the platform and the component raise.
enum ErrorNumber : int {
  errInvalidCall = 5,            ///< Invalid procedure call or argument
  errOverflow = 6,               ///< Overflow (16-bit and 32-bit arithmetic does not wrap)
  errOutOfMemory = 7,            ///< Out of memory
  errSubscript = 9,              ///< Subscript out of range
  errDivisionByZero = 11,        ///< Division by zero
  errTypeMismatch = 13,          ///< Type mismatch (a failed conversion)
  errInternal = 51,              ///< Internal error: a failure that carries no number
  errBadFileNameOrNumber = 52,   ///< Bad file name or number (a file that is not open)
  errFileNotFound = 53,          ///< File not found
  errBadFileMode = 54,           ///< Bad file mode
  errInputPastEnd = 62,          ///< Input past end of file
  errPathAccess = 75,            ///< Path/File access error
  errPathNotFound = 76,          ///< Path not found
  errObjectNotSet = 91,          ///< Object variable or With block variable not set
  errInvalidPropertyValue = 380, ///< Invalid property value
  errNoSuchMember = 438,         ///< Object doesn't support this property or method
  errWrongArguments = 450,       ///< Wrong number of arguments or invalid property assignment
};

/// A failure with its run-time error number and text.
class RuntimeError : public std::runtime_error {
public:
  RuntimeError(int number, const std::string& description);       ///< A failure numbered number.
  int number() const { return number_; }                          ///< its number (ErrorNumber)
  const std::string& description() const { return description_; } ///< its text

private:
  int number_;
  std::string description_;
};

/// The platform's text for a run-time error number ("Overflow", ...).
std::string errorDescription(int number);

/// Throws the RuntimeError of number, with the platform's text.
[[noreturn]] void raise(int number);
/// Throws the RuntimeError of number, with description as its text.
[[noreturn]] void raise(int number, const std::string& description);

} // namespace zv
