#include "platform/textfile.h"
#include "tests/common/error_of.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "platform/errors.h"
#include "tests/common/temp_folder.h"

namespace zv {
namespace {

using Lines = std::vector<std::string>;

Lines readAll(const std::string& path) {
  LineReader reader(path);
  Lines lines;
  while (!reader.eof())
    lines.push_back(reader.readLine());
  return lines;
}

using zvtest::errorOf;

TEST(LineReader, LineEndsAreCrLfOrALoneCr) {
  const struct {
    std::string bytes;
    Lines lines;
  } rows[] = {{"", {}},
              {"a", {"a"}},
              {"a\r\nb\r\n", {"a", "b"}},
              {"a\rb", {"a", "b"}},
              {"a\r\r\nb", {"a", "", "b"}},
              {"a\nb\n", {"a\nb\n"}},
              {"\r\n", {""}},
              {"\r\n\r\n", {"", ""}},
              {"a\n\r\n", {"a\n"}},
              {"a\r\n\nb", {"a", "\nb"}},
              {std::string("x\0y\r\n", 5), {std::string("x\0y", 3)}}};
  zvtest::TempFolder dir;
  for (const auto& r : rows)
    EXPECT_EQ(readAll(dir.write("f.txt", r.bytes)), r.lines) << r.bytes;
}

TEST(LineReader, CrLfSplitAcrossReadBlocks) {
  zvtest::TempFolder dir;
  const std::string big(2u << 20, 'x');
  for (size_t cut : {size_t{1} << 20, (size_t{1} << 20) - 1}) {
    std::string bytes = big.substr(0, cut - 1) + "\r\nnext";
    Lines lines = readAll(dir.write("f.txt", bytes));
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].size(), cut - 1);
    EXPECT_EQ(lines[1], "next");
  }
}

TEST(LineReader, OpenFailuresAndReadingPastTheEnd) {
  zvtest::TempFolder dir;
  const struct {
    std::string path;
    int error;
  } rows[] = {{dir.path() + "/missing.c", errFileNotFound},
              {dir.path() + "/no/such/folder.c", errFileNotFound},
              {dir.path(), errPathAccess},
              {"/dev/null", errPathAccess}};
  for (const auto& r : rows) {
    EXPECT_EQ(errorOf([&] { LineReader reader(r.path); }), r.error) << r.path;
    EXPECT_FALSE(fileExists(r.path)) << r.path;
  }
  EXPECT_FALSE(fileExists(""));

  const std::string one = dir.write("one.txt", "only\r\n");
  EXPECT_TRUE(fileExists(one));
  LineReader reader(one);
  EXPECT_EQ(reader.readLine(), "only");
  EXPECT_TRUE(reader.eof());
  EXPECT_EQ(errorOf([&] { reader.readLine(); }), 62);
}

TEST(LineReader, MovedFromReaderIsClosed) {
  zvtest::TempFolder dir;
  LineReader a(dir.write("f.txt", "1\r2"));
  EXPECT_EQ(a.readLine(), "1");
  LineReader b(std::move(a));
  EXPECT_FALSE(a.isOpen());
  EXPECT_EQ(b.readLine(), "2");
  b.close();
  EXPECT_FALSE(b.isOpen());
}

} // namespace
} // namespace zv
