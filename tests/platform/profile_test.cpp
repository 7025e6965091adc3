// The rules the code and device files rely on. The reliability suite compares
// many generated files with Windows' own functions, and pins where Wine and
// Windows differ (byte order mark, "[a][b]", comment lines, the quoted 254).
#include "platform/profile.h"

#include <gtest/gtest.h>

#include "tests/common/temp_folder.h"

namespace zv {
namespace {

struct Lookup {
  const char* section;
  const char* key;
  const char* defaultValue;
  std::string value;
};

std::string lookup(const std::string& path, const Lookup& q, uint32_t size = 255) {
  std::string out = "untouched";
  uint32_t n = getPrivateProfileString(q.section, q.key, q.defaultValue, out, size, path);
  EXPECT_EQ(n, out.size()) << q.section << "/" << q.key;
  return out;
}

TEST(ProfileString, SectionsKeysAndLineRules) {
  zvtest::TempFolder dir;
  const std::string path =
      dir.write("AVR_PWM.c", "orphan=1\r\n[Settings]\r\n  Description  =  Two channels  \r\n"
                             "IsAnalogue=0\rMultipleAllowed=1\n\r\n\r\n#Hash=2\r\nnoequals\r\n"
                             "Eq = a = b\r\nEmpty=\r\nDescription=second\r\n"
                             "  [ MacroNames ] trailing\r\n1=SetDuty\r\n[MacroNames]\r\n2=Later\r\n"
                             "[Code]\r\nif (a == b) {\r\n\xE9t\xE9=caf\xE9");
  const Lookup rows[] = {{"Settings", "Description", "d", "Two channels"},
                         {" settings ", " DESCRIPTION ", "d", "Two channels"},
                         {"Settings", "IsAnalogue", "d", "0"},
                         {"Settings", "MultipleAllowed", "d", "1"},
                         {"Settings", "#Hash", "d", "2"},
                         {"Settings", "noequals", "d", "d"},
                         {"Settings", "Eq", "d", "a = b"},
                         {"Settings", "Empty", "d", ""},
                         {"Settings", "orphan", "d", "d"},
                         {"MacroNames", " 1", "", "SetDuty"},
                         {"MacroNames", " 2", "none", "none"},
                         {"Code", "if (a", "", "= b) {"},
                         {"Code", "\xE9t\xE9", "", "caf\xE9"},
                         {"Missing", "k", "default  ", "default"},
                         {"Settings", "Missing", " spaced \t  ", " spaced \t"}};
  for (const auto& q : rows)
    EXPECT_EQ(lookup(path, q), q.value) << q.section << "/" << q.key;
  EXPECT_EQ(lookup(dir.path() + "/missing.c", {"S", "k", "dflt ", ""}), "dflt");
  EXPECT_EQ(lookup(dir.path(), {"S", "k", "dflt", ""}), "dflt");
}

TEST(ProfileString, QuotesAndTheCut) {
  zvtest::TempFolder dir;
  std::string long300(300, 'x');
  const std::string path =
      dir.write("q.ini", zvtest::crlf({"[S]", "a=\"  x  \"", "b=\"\"x\"\"", "c=\"", "f=a\"b\"c",
                                       "g='single'", "h=\"\"", "long=" + long300}));
  const Lookup rows[] = {{"S", "a", "", "  x  "},
                         {"S", "b", "", "\"x\""},
                         {"S", "c", "", "\""},
                         {"S", "f", "", "a\"b\"c"},
                         {"S", "g", "", "single"},
                         {"S", "h", "", ""},
                         {"S", "long", "", long300.substr(0, 254)},
                         {"S", "none", long300.c_str(), long300.substr(0, 254)}};
  for (const auto& q : rows)
    EXPECT_EQ(lookup(path, q), q.value) << q.key;
  EXPECT_EQ(lookup(path, {"S", "g", "", ""}, 4), "sin");
}

TEST(ProfileInt, ParsesTheLeadingNumberAndWraps) {
  zvtest::TempFolder dir;
  const std::string path =
      dir.write("dev.zvd", zvtest::crlf({"[Device]", "PWMCount=2", "Trail=12abc", "Wrap=4294967298",
                                         "Quoted=\"42\"", "Inner=\" 5\"", "Empty=", "Sign=-"}));
  const struct {
    const char* key;
    int32_t value;
  } rows[] = {{"PWMCount", 2}, {"Trail", 12}, {"Wrap", 2}, {"Quoted", 42},
              {"Inner", 5},    {"Empty", 99}, {"Sign", 0}, {"Missing", 99}};
  for (auto r : rows)
    EXPECT_EQ(getPrivateProfileInt("Device", r.key, 99, path), r.value) << r.key;
  EXPECT_EQ(getPrivateProfileInt("Device", "PWMCount", 99, dir.path() + "/none.zvd"), 99);
}

} // namespace
} // namespace zv
