#include "errors.h"

#include <new>

#include "funnel.h"

namespace zv {

RuntimeError::RuntimeError(int number, const std::string& description)
    : std::runtime_error(description), number_(number), description_(description) {}

std::string errorDescription(int number) {
  switch (number) {
  case errInvalidCall:
    return "Invalid procedure call or argument";
  case errOverflow:
    return "Overflow";
  case errOutOfMemory:
    return "Out of memory";
  case errSubscript:
    return "Subscript out of range";
  case errDivisionByZero:
    return "Division by zero";
  case errTypeMismatch:
    return "Type mismatch";
  case errInternal:
    return "Internal error";
  case errBadFileNameOrNumber:
    return "Bad file name or number";
  case errFileNotFound:
    return "File not found";
  case errBadFileMode:
    return "Bad file mode";
  case errInputPastEnd:
    return "Input past end of file";
  case errPathAccess:
    return "Path/File access error";
  case errPathNotFound:
    return "Path not found";
  case errObjectNotSet:
    return "Object variable or With block variable not set";
  case errInvalidPropertyValue:
    return "Invalid property value";
  case errNoSuchMember:
    return "Object doesn't support this property or method";
  case errWrongArguments:
    return "Wrong number of arguments or invalid property assignment";
  default:
    return "Application-defined or object-defined error";
  }
}

void raise(int number) {
  throw RuntimeError(number, errorDescription(number));
}

void raise(int number, const std::string& description) {
  throw RuntimeError(number, description);
}

Status statusOfCurrentException() noexcept {
  try {
    throw;
  } catch (const RuntimeError& e) {
    return {e.number(), e.description()};
  } catch (const std::bad_alloc&) {
    return {errOutOfMemory, errorDescription(errOutOfMemory)};
  } catch (const std::exception& e) {
    return {errInternal, e.what()};
  } catch (...) {
    return {errInternal, errorDescription(errInternal)};
  }
}

} // namespace zv
