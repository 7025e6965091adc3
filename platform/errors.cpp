#include "errors.h"

namespace zv {

RuntimeError::RuntimeError(int number, const std::string& description)
    : std::runtime_error(description), number_(number), description_(description) {}

std::string errorDescription(int number) {
  switch (number) {
  case 5:
    return "Invalid procedure call or argument";
  case 6:
    return "Overflow";
  case 7:
    return "Out of memory";
  case 9:
    return "Subscript out of range";
  case 11:
    return "Division by zero";
  case 13:
    return "Type mismatch";
  case 51:
    return "Internal error";
  case 52:
    return "Bad file name or number";
  case 53:
    return "File not found";
  case 54:
    return "Bad file mode";
  case 62:
    return "Input past end of file";
  case 75:
    return "Path/File access error";
  case 76:
    return "Path not found";
  case 91:
    return "Object variable or With block variable not set";
  case 380:
    return "Invalid property value";
  case 438:
    return "Object doesn't support this property or method";
  case 450:
    return "Wrong number of arguments or invalid property assignment";
  default:
    return "Application-defined or object-defined error";
  }
}

void raise(int number) { throw RuntimeError(number, errorDescription(number)); }

void raise(int number, const std::string& description) { throw RuntimeError(number, description); }

} // namespace zv
