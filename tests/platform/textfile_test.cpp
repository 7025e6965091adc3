#include "platform/textfile.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/errors.h"
#include "temp_file.h"

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

int openError(const std::string& path) {
  try {
    LineReader reader(path);
  } catch (const RuntimeError& e) {
    return e.number();
  }
  return 0;
}

TEST(LineReader, LineEndsAreCrLfOrALoneCr) {
  const struct {
    std::string bytes;
    Lines lines;
  } rows[] = {
      {"", {}},
      {"a", {"a"}},
      {"a\r\nb\r\n", {"a", "b"}},
      {"a\rb", {"a", "b"}},
      {"a\r\r\nb", {"a", "", "b"}},
      {"a\nb\n", {"a\nb\n"}},
      {"\r\n", {""}},
      {"\r\n\r\n", {"", ""}},
      {"a\n\r\n", {"a\n"}},
      {"a\r\n\nb", {"a", "\nb"}},
      {std::string("x\0y\r\n", 5), {std::string("x\0y", 3)}},
  };
  test::TempFolder dir;
  for (const auto& r : rows)
    EXPECT_EQ(readAll(dir.write("f.txt", r.bytes)), r.lines) << r.bytes;
}

TEST(LineReader, CrLfSplitAcrossBlocksAndALongLine) {
  test::TempFolder dir;
  std::string big(10u << 20, 'x');
  big[12345] = '\n';
  for (size_t cut : {size_t{1} << 20, (size_t{1} << 20) - 1}) {
    std::string bytes = big.substr(0, cut - 1) + "\r\nnext";
    Lines lines = readAll(dir.write("f.txt", bytes));
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].size(), cut - 1);
    EXPECT_EQ(lines[1], "next");
  }
  EXPECT_EQ(readAll(dir.write("big.txt", big)), Lines{big});
}

TEST(LineReader, OpenFailuresAndReadingPastTheEnd) {
  test::TempFolder dir;
  EXPECT_EQ(openError(dir.path() + "/missing.c"), errFileNotFound);
  EXPECT_EQ(openError(dir.path() + "/no/such/folder.c"), errFileNotFound);
  EXPECT_EQ(openError(dir.path()), errPathAccess);
  EXPECT_EQ(openError("/dev/null"), errPathAccess);

  LineReader reader(dir.write("one.txt", "only\r\n"));
  EXPECT_EQ(reader.readLine(), "only");
  EXPECT_TRUE(reader.eof());
  try {
    reader.readLine();
    ADD_FAILURE() << "no error past the end";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 62);
  }
}

TEST(LineReader, MovedFromReaderIsClosed) {
  test::TempFolder dir;
  LineReader a(dir.write("f.txt", "1\r2"));
  EXPECT_EQ(a.readLine(), "1");
  LineReader b(std::move(a));
  EXPECT_FALSE(a.isOpen());
  EXPECT_EQ(b.readLine(), "2");
  b.close();
  EXPECT_FALSE(b.isOpen());
}

TEST(FileExists, OnlyRegularFiles) {
  test::TempFolder dir;
  EXPECT_TRUE(fileExists(dir.write("f.c", "")));
  EXPECT_FALSE(fileExists(dir.path()));
  EXPECT_FALSE(fileExists(dir.path() + "/missing.c"));
  EXPECT_FALSE(fileExists(""));
}

} // namespace
} // namespace zv
