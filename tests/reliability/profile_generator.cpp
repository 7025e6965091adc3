#include "profile_generator.h"

namespace zv::test {

namespace {

const std::vector<std::string> kSections = {
    "Settings", "MacroNames", "Device", "Pins", "Macro Params", "MacroParameters_SetDuty", "x"};
const std::vector<std::string> kKeys = {"Description", "Count",    "1",     "2",
                                        "10",          "PWMCount", "OCR1A", "if (a",
                                        "Two Words",   "#Hash",    "a;b",   "k"};
const std::vector<std::string> kCode = {
    "OCR1A = duty;", "if (a == b) {",  "}",     "/*Macro_SetDuty_Start*/",
    "TCCR1B = %b;",  "// k = comment", "x=y=z", "\tPORTB |= (1 << %d);",
    "#define K 1",   "return;"};

} // namespace

std::string ProfileGenerator::blanks() {
  static const char* kBlanks[] = {"", "", "", " ", "  ", "\t", " \t ", "\v"};
  return kBlanks[pick(std::size(kBlanks))];
}

std::string ProfileGenerator::lineEnd() {
  static const char* kEnds[] = {"\r\n", "\r\n", "\r\n", "\n", "\r", "\r\n\r\n", "\n\r", "\r\r\n"};
  return kEnds[pick(std::size(kEnds))];
}

std::string ProfileGenerator::caseVariant(const std::string& name) {
  std::string out = name;
  const size_t mode = pick(4);
  for (char& c : out) {
    if (c >= 'a' && c <= 'z' && (mode == 1 || (mode == 2 && chance(50))))
      c = static_cast<char>(c - 'a' + 'A');
    else if (c >= 'A' && c <= 'Z' && mode == 3)
      c = static_cast<char>(c - 'A' + 'a');
  }
  return out;
}

// One ']' only: Wine reads "[a][b]" and an unclosed "[a" unlike Windows.
std::string ProfileGenerator::header(const std::string& name) {
  std::string tail;
  if (chance(15))
    tail = chance(50) ? " junk" : "; note";
  return blanks() + "[" + blanks() + caseVariant(name) + blanks() + "]" + tail + blanks();
}

std::string ProfileGenerator::number() {
  static const char* kNumbers[] = {"0",  "1",          "12", "255",         "300",        "-5",
                                   "+7", "4294967295", "-1", "99999999999", "2147483648", "007"};
  static const char* kTails[] = {"", "", "", "abc", ".9", " 7", "x", ";"};
  return std::string(chance(20) ? " " : "") + kNumbers[pick(std::size(kNumbers))] +
         kTails[pick(std::size(kTails))];
}

std::string ProfileGenerator::value() {
  switch (pick(9)) {
  case 0:
    return "";
  case 1:
    return number();
  case 2: { // quoted, never with exactly 254 characters inside
    const char q = chance(50) ? '"' : '\'';
    std::string inner = chance(50) ? blanks() + "x y" + blanks() : "\"x\"";
    const char close = chance(80) ? q : (q == '"' ? '\'' : '"');
    return chance(20) ? std::string(1, q) + inner : std::string(1, q) + inner + close;
  }
  case 3: { // long, across the 254 cut
    std::string s;
    const size_t n = 200 + pick(200);
    for (size_t i = 0; i < n && s.size() != 254; ++i)
      s += static_cast<char>('a' + pick(26));
    return s;
  }
  case 4:
    return "a = b";
  case 5:
    return "=x";
  case 6:
    return "caf\xE9 \xFC\xDF";
  case 7:
    return "two  inner  blanks";
  default:
    return "v" + std::to_string(pick(100));
  }
}

// A line without '=' never names a key that is looked up: Wine takes it for a
// key without a value that hides a later key of that name.
std::string ProfileGenerator::keyLine(const std::string& key) {
  if (chance(8))
    return blanks() + "no equals " + caseVariant(key) + blanks();
  return blanks() + caseVariant(key) + blanks() + "=" + blanks() + value() + blanks();
}

std::string ProfileGenerator::cLine() {
  return blanks() + kCode[pick(kCode.size())];
}

// No trailing spaces, where Wine and Windows differ.
std::string ProfileGenerator::defaultValue() {
  switch (pick(6)) {
  case 0:
    return "";
  case 1:
    return std::string(300, 'd');
  case 2:
    return " lead";
  case 3:
    return "in ner";
  default:
    return "dflt";
  }
}

ProfileCase ProfileGenerator::next() {
  ProfileCase c;
  std::string& f = c.bytes;
  if (chance(20))
    f += keyLine(kKeys[pick(kKeys.size())]) + lineEnd(); // before any header
  const size_t sections = 1 + pick(5);
  for (size_t s = 0; s < sections; ++s) {
    f += header(kSections[pick(kSections.size())]) + lineEnd();
    const size_t lines = pick(8);
    for (size_t l = 0; l < lines; ++l) {
      if (chance(10))
        f += blanks() + ";" + kKeys[pick(kKeys.size())] + "=hidden";
      else if (chance(5))
        f += blanks();
      else
        f += keyLine(kKeys[pick(kKeys.size())]);
      f += lineEnd();
    }
  }
  if (chance(40)) // C code after the last section
    for (size_t l = 0, n = 1 + pick(6); l < n; ++l)
      f += cLine() + lineEnd();
  if (chance(30)) // the last line without its end
    f += keyLine(kKeys[pick(kKeys.size())]);

  for (size_t i = 0, n = 4 + pick(12); i < n; ++i) {
    ProfileLookup q;
    q.section = chance(10) ? "Missing" : caseVariant(kSections[pick(kSections.size())]);
    q.key = chance(10) ? "Absent" : caseVariant(kKeys[pick(kKeys.size())]);
    if (chance(20))
      q.section = " " + q.section + " ";
    if (chance(20))
      q.key = " " + q.key;
    q.defaultValue = defaultValue();
    c.lookups.push_back(std::move(q));
  }
  return c;
}

} // namespace zv::test
