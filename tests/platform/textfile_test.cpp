#include "platform/textfile.h"
#include "tests/common/error_of.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>
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

// The block scan searches the buffer for its marker and copies the lines it
// passes in bulk; reading line by line must give the same lines and stops.
struct Scan {
  bool found = false;
  std::string passed;
  bool operator==(const Scan&) const = default;
};

std::vector<Scan> scanByLines(const std::string& path, const std::string& marker) {
  std::vector<Scan> scans(1);
  for (const std::string& line : readAll(path)) {
    if (line == marker) {
      scans.back().found = true;
      scans.emplace_back();
    } else {
      scans.back().passed += line + "\n";
    }
  }
  return scans;
}

std::vector<Scan> scanByBlocks(const std::string& path, const std::string& marker) {
  std::vector<Scan> scans;
  LineReader reader(path);
  do {
    Scan scan;
    scan.found = reader.skipToLine(marker, &scan.passed);
    scans.push_back(scan);
  } while (scans.back().found);
  return scans;
}

TEST(LineReader, SkipToLineFindsWhatReadingLineByLineFinds) {
  const std::string marker = "/*Macro_X_Start*/";
  // Near misses share the marker's first and last bytes, or sit inside a line.
  const std::string pieces[] = {
      marker, "/*Macro_Y_Start*/", marker + " ",           " " + marker, "/*Macro_X_", "x",
      "",     "0123456789abcdef",  "  OCR1A = 5; // duty", "/**/"};
  const std::string ends[] = {"\r\n", "\r", "\n", "\r\n"};
  std::mt19937 random(20261122);
  zvtest::TempFolder dir;
  for (int round = 0; round < 400; ++round) {
    std::string bytes;
    for (int n = static_cast<int>(random() % 48); n > 0; --n)
      bytes += pieces[random() % std::size(pieces)] + ends[random() % std::size(ends)];
    if (random() % 4 == 0)
      bytes += marker; // the last line, with no end
    const std::string path = dir.write("f.c", bytes);
    ASSERT_EQ(scanByBlocks(path, marker), scanByLines(path, marker)) << bytes;
  }
  // Markers on either side of a read block's end, one MiB in.
  for (size_t at = (size_t{1} << 20) - 20; at < (size_t{1} << 20) + 4; ++at) {
    std::string bytes = std::string(at - 2, 'x') + "\r\n" + marker + "\r\nafter\r\n";
    bytes.insert(0, std::string(size_t{1} << 20, 'y') + "\r\n");
    const std::string path = dir.write("f.c", bytes);
    ASSERT_EQ(scanByBlocks(path, marker), scanByLines(path, marker)) << at;
  }
}

} // namespace
} // namespace zv
