// The tokens of one script line: words, literals and the raw rest of a line.
// A literal becomes a Variant as typed: integers I2 / I4 / R8 by size or
// suffix, decimals R8 or R4 (suffix !), strings BSTR, empty, true and false,
// and [..] a zero-based array of Variant. A string literal's UTF-8 text
// becomes Windows-1252 bytes, \xHH the byte itself. Anything malformed throws
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

// Arrays nest at most this deep, in literals as in bags: far short of what
// would put the stack at risk when an array is copied or freed.
constexpr int kMaxArrayNesting = 100;

// UTF-8 text (of a script or JSON) as the component's Windows-1252 text; a
// character Windows-1252 has no byte for, or bytes that are not UTF-8, are
// a ScriptError.
std::string ansiText(std::string_view utf8);

// Reads one literal from its whole text ("12%", "\"a\"", "[1, 2]").
zv::Variant parseLiteral(std::string_view text);

class LineScanner {
public:
  explicit LineScanner(std::string_view line) : line_(line) {}

  bool atEnd();
  // The next blank-delimited token as written; a string literal is read
  // with its escapes, so that paths may hold blanks (its text stays UTF-8).
  std::string word();
  // The next token as a literal.
  zv::Variant value();
  // Everything after the current position, blanks around it removed.
  std::string rest();
  // The next character that is not a blank, or '\0' at the end.
  char peek();

private:
  void skipBlanks();
  zv::Variant arrayLiteral(int depth);
  zv::Variant atom(bool inArray);
  // ansi: the text becomes Windows-1252, as the component's strings are.
  std::string stringLiteral(bool ansi);

  std::string_view line_;
  size_t pos_ = 0;
};

} // namespace zvhost
