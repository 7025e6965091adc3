#include "fixture.h"

namespace zvtest {
namespace {

const std::string kError = "//Error Reading Code For Fixture::Blk\r\n";

TEST_F(ComponentTest, BlockReaderFollowsMarkersLineByLine) {
  struct Case {
    const char* what;
    std::string body; // raw bytes after the settings
    std::string expected;
  };
  const std::vector<Case> cases{
      {"plain block", "/*Blk_Start*/\r\na;\r\nb;\r\n/*Blk_End*/\r\n", "a;\nb;\n"},
      {"empty block", "/*Blk_Start*/\r\n/*Blk_End*/\r\n", ""},
      {"one empty line", "/*Blk_Start*/\r\n\r\n/*Blk_End*/\r\n", "\n"},
      {"no end marker", "/*Blk_Start*/\r\na;\r\n", kError},
      {"missing block", "/*Other_Start*/\r\na;\r\n/*Other_End*/\r\n", kError},
      {"start marker with trailing blank", "/*Blk_Start*/ \r\na;\r\n/*Blk_End*/\r\n", kError},
      {"marker in other case", "/*blk_Start*/\r\na;\r\n/*blk_End*/\r\n", kError},
      {"repeated blocks add up",
       "/*Blk_Start*/\r\na;\r\n/*Blk_End*/\r\nx\r\n/*Blk_Start*/\r\nb;\r\n/*Blk_End*/\r\n",
       "a;\nb;\n"},
      {"second block left open runs to the end",
       "/*Blk_Start*/\r\na;\r\n/*Blk_End*/\r\n/*Blk_Start*/\r\nb;\r\nc;", "a;\nb;\nc;\n"},
      {"markers inside a block are text",
       "/*Blk_Start*/\r\n/*Blk_Start*/\r\n/*Other_End*/\r\n/*Blk_End*/\r\n",
       "/*Blk_Start*/\n/*Other_End*/\n"},
      {"end marker outside a block counts for nothing", "/*Blk_End*/\r\n", kError},
      {"CR-only lines", "/*Blk_Start*/\ra;\r/*Blk_End*/\r", "a;\n"},
      {"LF-only lines are one line", "/*Blk_Start*/\na;\n/*Blk_End*/\n", kError},
  };
  for (const Case& c : cases) {
    folder.write("Fixture.c", "[Settings]\r\nDescription=Fixture\r\n" + c.body);
    auto pwm = create();
    boxes.texts.clear();
    std::string name = "Blk";
    EXPECT_EQ(pwm->GetCodeFromFile(name), c.expected) << c.what;
    EXPECT_EQ(name, "Blk");
    EXPECT_TRUE(boxes.texts.empty()) << c.what;
  }
}

} // namespace
} // namespace zvtest
