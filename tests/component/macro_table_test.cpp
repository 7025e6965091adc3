#include "fixture.h"

namespace zvtest {
namespace {

using ::testing::ElementsAre;

std::vector<std::string> texts(const zv::Variant& v) {
  std::vector<std::string> out;
  for (int32_t i = v.arr().lbound(); i <= v.arr().ubound(); ++i)
    out.push_back(v.arr().at(i).rawStr());
  return out;
}

// Enable: private, no return; GetDuty: a function; Set: "Void" is no "void",
// and its second parameter is missing. A section a line.
const std::vector<std::string> kMacroFile{
    "[MacroNames]",          "Count=3", "1=Enable",  "2=GetDuty", "3=Set", //
    "[MacroReturns]",        "2=char",  "3=Void",                          //
    "[MacroIsPrivate]",      "1=1",                                        //
    "[MacroParameters_Set]", "Count=2", "1=Channel",                       //
    "[MacroParamTypes_Set]", "1=BYTE"};

TEST_F(ComponentTest, MacroTableIsBuiltByZelvorVersionAndARebuildWithoutMacrosKeepsItsRecords) {
  auto pwm = createWith(kMacroFile);
  ASSERT_TRUE(pwm->put_ZelvorVersion(1024).ok());
  zv::Variant names;
  ASSERT_TRUE(pwm->get_MacroNames(names).ok());
  EXPECT_THAT(texts(names),
              ElementsAre("Enable|Enable|void", "GetDuty|GetDuty|char", "Set|Set|Void"));

  struct Case {
    int32_t id;
    int32_t isFunction, isPrivate;
    std::vector<std::string> params; // empty: an array of Variant without elements
  };
  const std::vector<Case> cases{
      {0, 0, -1, {}}, {1, -1, 0, {}}, {2, -1, 0, {"Channel|Channel|BYTE", "||char"}}};
  for (const Case& c : cases) {
    int32_t answer = 7;
    ASSERT_TRUE(pwm->get_MacroIsFunction(c.id, answer).ok());
    EXPECT_EQ(answer, c.isFunction) << c.id;
    ASSERT_TRUE(pwm->get_MacroIsPrivate(c.id, answer).ok());
    EXPECT_EQ(answer, c.isPrivate) << c.id;
    zv::Variant params;
    ASSERT_TRUE(pwm->get_MacroParameters(c.id, params).ok());
    ASSERT_TRUE(params.isArray());
    EXPECT_EQ(params.arr().elementType(),
              c.params.empty() ? zv::VarType::Variant : zv::VarType::BSTR);
    EXPECT_EQ(texts(params), c.params) << c.id;
  }
  for (int32_t id : {-1, 3}) {
    int32_t answer = 7;
    std::string code = "x";
    EXPECT_TRUE(pwm->get_MacroIsPrivate(id, answer).ok() && answer == 0) << id;
    EXPECT_TRUE(pwm->get_MacroCode(id, code).ok() && code.empty()) << id;
  }

  // A rebuild without macros empties the names but keeps the old records.
  writeCode({"[Settings]"});
  ASSERT_TRUE(pwm->put_ZelvorVersion(1025).ok());
  EXPECT_EQ(pwm->lMacroCount, 0);
  ASSERT_TRUE(pwm->get_MacroNames(names).ok());
  EXPECT_EQ(names, zv::Variant::str(""));
  int32_t answer = 0;
  ASSERT_TRUE(pwm->get_MacroIsFunction(1, answer).ok());
  EXPECT_EQ(answer, -1);
}

TEST_F(ComponentTest, BadCountsFailTheBuild) {
  struct Case {
    std::vector<std::string> file;
    int error;
    int32_t builtSlots; // records present after the failure; -1: no table
  };
  const std::vector<Case> cases{
      {{"[MacroNames]", "Count=many"}, zv::errTypeMismatch, -1},
      {{"[MacroNames]", "Count=40000"}, zv::errOverflow, 0},
      {{"[MacroNames]", "Count=1", "1=A", "[MacroIsPrivate]", "1=maybe"}, zv::errTypeMismatch, 0},
      {{"[MacroNames]", "Count=2", "1=A", "2=B", "[MacroParameters_B]", "Count=-1"},
       zv::errSubscript,
       2},
      {{"[MacroNames]", "Count=1", "1=A", "[MacroParameters_A]", "Count=40000"},
       zv::errOverflow,
       1},
  };
  for (const Case& c : cases) {
    auto pwm = createWith(c.file);
    EXPECT_EQ(pwm->put_ZelvorVersion(1024).number, c.error) << c.file[1];
    int32_t built = pwm->aMacros.allocated() ? 0 : -1;
    for (int32_t i = 0; built >= 0 && i <= pwm->aMacros.ubound(); ++i)
      built += pwm->aMacros[i] != nullptr;
    EXPECT_EQ(built, c.builtSlots) << c.file[1];
  }
}

} // namespace
} // namespace zvtest
