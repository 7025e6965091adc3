// The tokens of one script line: words, literals and the raw rest of a line.
// A literal becomes a Variant as typed: integers I2 / I4 / R8 by size or
// suffix, decimals R8 or R4 (suffix !), strings BSTR, empty, true and false,
// and [..] a zero-based array of Variant. Anything malformed throws
// ScriptError, which the runner reports as the line's script error.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/variant.h"

namespace zvhost {

class ScriptError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

// Reads one literal from its whole text ("12%", "\"a\"", "[1, 2]").
zv::Variant parseLiteral(std::string_view text);

class LineScanner {
public:
  explicit LineScanner(std::string_view line) : line_(line) {}

  bool atEnd();
  // The next blank-delimited token as written; a string literal is read
  // with its escapes, so that paths may hold blanks.
  std::string word();
  // The next token as a literal.
  zv::Variant value();
  // Everything after the current position, blanks around it removed.
  std::string rest();
  // The next character that is not a blank, or '\0' at the end.
  char peek();

private:
  void skipBlanks();
  zv::Variant arrayLiteral();
  zv::Variant atom(bool inArray);
  std::string stringLiteral();

  std::string_view line_;
  size_t pos_ = 0;
};

} // namespace zvhost
