// Script literals as the runner reads them, checked through their JSON form.
#include <gtest/gtest.h>

#include <vector>

#include "host/script/json_in.h"
#include "host/script/json_out.h"
#include "host/script/lexer.h"

namespace {

struct Case {
  const char* literal;
  const char* json;
};

// The literals script shows the common forms; these are the edges.
TEST(ScriptLiteral, TypeFollowsSizeSuffixAndForm) {
  const Case cases[] = {
      {"0", R"({"vt": "I2", "v": 0})"},
      {"-32768", R"({"vt": "I2", "v": -32768})"},
      {"2147483647", R"({"vt": "I4", "v": 2147483647})"},
      {"99999999999999999999", R"({"vt": "R8", "v": 1e+20})"},
      {"0.5", R"({"vt": "R8", "v": 0.5})"},
      {"-1e3", R"({"vt": "R8", "v": -1000})"},
      {"2.", R"({"vt": "R8", "v": 2})"},
      {"0.1!", R"({"vt": "R4", "v": 0.1})"},
      {"3!", R"({"vt": "R4", "v": 3})"},
      {R"("")", R"({"vt": "BSTR", "v": ""})"},
      {R"("\r\n\x41\x7a")", R"({"vt": "BSTR", "v": "\r\nAz"})"},
      {R"("Café \xE9\x80")", R"({"vt": "BSTR", "v": "Café é€"})"},
      {"[1, 128]",
       R"({"vt": "VARIANT[]", "lb": 0, "v": [{"vt": "I2", "v": 1}, {"vt": "I2", "v": 128}]})"},
      {R"([ [70000,"x, y]"] ,empty ])",
       R"({"vt": "VARIANT[]", "lb": 0, "v": [{"vt": "VARIANT[]", "lb": 0, "v": )"
       R"([{"vt": "I4", "v": 70000}, {"vt": "BSTR", "v": "x, y]"}]}, {"vt": "EMPTY"}]})"},
  };
  for (const Case& c : cases)
    EXPECT_EQ(zvhost::dumpJson(zvhost::variantJson(zvhost::parseLiteral(c.literal))), c.json)
        << c.literal;
}

TEST(ScriptLiteral, MalformedLiteralsAreScriptErrors) {
  const std::vector<std::vector<const char*>> bad = {
      {"abc", "Pic_Graph(0)", "-", "1e", "12abc", "True"},
      {"1.5%", "1.5&", "40000%", "3000000000&", "1%%", "1e309", "-1e309", "1e-400", "1e39!"},
      {"\"ab", "\"\\q\"", "\"\\x4\"", "\"a\"b", "\"\xE9\"", "\"\xE2\x86\x92\""},
      {"[1 2]", "[1,", "[", "[1,]", "[,1]", "[1, 1e309]"},
  };
  for (const auto& group : bad)
    for (const char* literal : group)
      EXPECT_THROW(zvhost::parseLiteral(literal), zvhost::ScriptError) << literal;
}

TEST(ScriptLine, WordsStringsAndTheRestOfALine) {
  zvhost::LineScanner scan(R"(  readprops "my bag.json"	{"a": 1}  )");
  EXPECT_EQ(scan.word(), "readprops");
  EXPECT_EQ(scan.word(), "my bag.json");
  EXPECT_EQ(scan.peek(), '{');
  EXPECT_EQ(scan.rest(), R"({"a": 1})");
  EXPECT_TRUE(scan.atEnd());
  EXPECT_THROW(scan.word(), zvhost::ScriptError);
}

TEST(VariantJson, BagValuesReadBackAsWritten) {
  const char* values[] = {
      R"({"vt": "EMPTY"})",
      R"({"vt": "UI1", "v": 255})",
      R"({"vt": "R4", "v": 26.041666})",
      R"({"vt": "BOOL", "v": -1})",
      R"({"vt": "I4[]", "lb": 0, "v": []})",
      R"({"vt": "BSTR[]", "lb": 1, "v": ["a", "b"]})",
      R"({"vt": "BOOL[]", "lb": 0, "v": [0, -1]})",
      R"({"vt": "VARIANT[]", "lb": 0, "v": [{"vt": "I2", "v": 3}, {"vt": "EMPTY"}]})",
  };
  for (const char* text : values) {
    const zvhost::Json j = zvhost::parseJson(text);
    EXPECT_EQ(zvhost::dumpJson(zvhost::variantJson(zvhost::variantFromJson(j))), text);
  }
  const char* bad[] = {R"({"v": 1})",
                       R"({"vt": "I2"})",
                       R"({"vt": "I2", "v": 40000})",
                       R"({"vt": "UI1", "v": -1})",
                       R"({"vt": "BSTR", "v": 1})",
                       R"({"vt": "X", "v": 1})",
                       R"({"vt": "VARIANT", "v": 1})"};
  for (const char* text : bad)
    EXPECT_THROW(zvhost::variantFromJson(zvhost::parseJson(text)), zvhost::ScriptError) << text;
}

} // namespace
