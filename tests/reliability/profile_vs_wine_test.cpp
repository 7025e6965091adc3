// Our profile functions against the system ones run under Wine: thousands of
// generated lookups answered alike, byte for byte; and where Wine is known to
// differ from Windows, ours gives the Windows answer.
#include <gtest/gtest.h>

#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "platform/profile.h"

namespace zv::test {
namespace {

namespace fs = std::filesystem;

struct ProfileLookup {
  std::string section, key, defaultValue;
};

struct Answer {
  uint32_t count = 0;
  std::string text;
  int32_t number = 0;
  bool operator==(const Answer&) const = default;
  friend void PrintTo(const Answer& a, std::ostream* os) {
    *os << a.count << " '" << a.text << "' " << a.number;
  }
};

std::string hex(const std::string& s) {
  if (s.empty())
    return ".";
  static const char digits[] = "0123456789abcdef";
  std::string out;
  for (unsigned char c : s) {
    out += digits[c >> 4];
    out += digits[c & 15];
  }
  return out;
}

std::string unhex(const std::string& h) {
  std::string out;
  if (h != ".")
    for (size_t i = 0; i + 1 < h.size(); i += 2)
      out += static_cast<char>(std::stoi(h.substr(i, 2), nullptr, 16));
  return out;
}

std::string windowsPath(const fs::path& p) {
  std::string s = "Z:" + fs::absolute(p).string();
  for (char& c : s)
    if (c == '/')
      c = '\\';
  return s;
}

// Random profile files and lookups. The files mix what real code files hold
// (sections, keys, blanks, quotes, comments, C code after the sections) with
// what they should not (missing '=', duplicates, odd line ends, long values).
// Features where Wine is known to answer unlike Windows are left out here and
// checked on their own below.
class Generator {
public:
  explicit Generator(uint32_t seed) : rng_(seed) {}

  // One file and the lookups to ask of it.
  std::pair<std::string, std::vector<ProfileLookup>> next() {
    std::string f;
    if (chance(20))
      f += keyLine() + lineEnd(); // before any header
    for (size_t s = 0, n = 1 + pick(5); s < n; ++s) {
      // One ']' only: Wine reads "[a][b]" and an unclosed "[a" unlike Windows.
      f += blanks() + "[" + blanks() + anyOf(kSections) + blanks() + "]" +
           (chance(15) ? one({" junk", "; note"}) : "") + blanks() + lineEnd();
      for (size_t l = 0, lines = pick(8); l < lines; ++l)
        f += (chance(10)  ? blanks() + ";" + anyOf(kKeys) + "=hidden"
              : chance(5) ? blanks()
                          : keyLine()) +
             lineEnd();
    }
    if (chance(40)) // C code after the last section
      for (size_t l = 0, n = 1 + pick(6); l < n; ++l)
        f += blanks() + one(kCode) + lineEnd();
    if (chance(30)) // the last line without its end
      f += keyLine();

    std::vector<ProfileLookup> lookups;
    for (size_t i = 0, n = 4 + pick(12); i < n; ++i) {
      ProfileLookup q{chance(10) ? "Missing" : anyOf(kSections),
                      chance(10) ? "Absent" : anyOf(kKeys),
                      // No trailing blanks, where Wine and Windows differ.
                      one({"", std::string(300, 'd'), " lead", "in ner", "dflt", "dflt"})};
      if (chance(20))
        q.section = " " + q.section + " ";
      if (chance(20))
        q.key = " " + q.key;
      lookups.push_back(std::move(q));
    }
    return {f, lookups};
  }

private:
  inline static const std::vector<std::string> kSections = {
      "Settings", "MacroNames", "Device", "Pins", "Macro Params", "MacroParameters_SetDuty", "x"};
  inline static const std::vector<std::string> kKeys = {"Description", "Count",    "1",     "2",
                                                        "10",          "PWMCount", "OCR1A", "if (a",
                                                        "Two Words",   "#Hash",    "a;b",   "k"};
  inline static const std::vector<std::string> kCode = {
      "OCR1A = duty;", "if (a == b) {",  "}",     "/*Macro_SetDuty_Start*/",
      "TCCR1B = %b;",  "// k = comment", "x=y=z", "\tPORTB |= (1 << %d);",
      "#define K 1",   "return;"};

  size_t pick(size_t n) { return std::uniform_int_distribution<size_t>(0, n - 1)(rng_); }
  bool chance(int percent) { return static_cast<int>(pick(100)) < percent; }
  std::string one(const std::vector<std::string>& items) { return items[pick(items.size())]; }
  // A name in any case: all upper, all lower, mixed or as written.
  std::string anyOf(const std::vector<std::string>& names) {
    std::string out = one(names);
    const size_t mode = pick(4);
    for (char& c : out)
      if (mode == 1 || (mode == 2 && chance(50)))
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
      else if (mode == 3)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return out;
  }
  std::string blanks() { return one({"", "", "", " ", "  ", "\t", " \t ", "\v"}); }
  std::string lineEnd() {
    return one({"\r\n", "\r\n", "\r\n", "\n", "\r", "\r\n\r\n", "\n\r", "\r\r\n"});
  }
  // A line without '=' never names a key that is looked up: Wine takes it for
  // a key without a value that hides a later key of that name.
  std::string keyLine() {
    if (chance(8))
      return blanks() + "no equals " + anyOf(kKeys) + blanks();
    return blanks() + anyOf(kKeys) + blanks() + "=" + blanks() + value() + blanks();
  }
  std::string value() {
    switch (pick(6)) {
    case 0: // a number, perhaps with something after it
      return (chance(20) ? " " : "") +
             one({"0", "1", "12", "255", "300", "-5", "+7", "4294967295", "-1", "99999999999",
                  "2147483648", "007"}) +
             one({"", "", "", "abc", ".9", " 7", "x", ";"});
    case 1: { // quoted, never with exactly 254 characters inside
      const char q = chance(50) ? '"' : '\'';
      const std::string inner = chance(50) ? blanks() + "x y" + blanks() : "\"x\"";
      const char close = chance(80) ? q : (q == '"' ? '\'' : '"');
      return std::string(1, q) + inner + (chance(20) ? "" : std::string(1, close));
    }
    case 2: { // long, across the 254 cut but never exactly 254
      std::string s(200 + pick(200), 'a');
      for (char& c : s)
        c = static_cast<char>('a' + pick(26));
      return s.size() == 254 ? s + "z" : s;
    }
    default:
      return one({"", "a = b", "=x", "caf\xE9 \xFC\xDF", "two  inner  blanks",
                  "v" + std::to_string(pick(100))});
    }
  }

  std::mt19937 rng_;
};

// The files, their lookups, and one run of the oracle for all of them.
class Batch {
public:
  explicit Batch(fs::path dir) : dir_(std::move(dir)) {
    fs::remove_all(dir_);
    fs::create_directories(dir_);
  }
  std::string addFile(const std::string& bytes) {
    const fs::path p = dir_ / ("f" + std::to_string(files_++) + ".ini");
    std::ofstream(p, std::ios::binary).write(bytes.data(), std::streamsize(bytes.size()));
    input_ << "F " << windowsPath(p) << "\n";
    return p.string();
  }
  void addLookup(const ProfileLookup& q) {
    input_ << "L " << hex(q.section) << " " << hex(q.key) << " " << hex(q.defaultValue) << "\n";
  }
  // Runs the oracle once; an empty list when it could not run.
  std::vector<Answer> run() const {
    const char* build = std::getenv("ZV_BUILD_DIR");
    const std::string oracle = std::string(build ? build : ".") + "/tests/profile_oracle.exe";
    const fs::path in = dir_ / "lookups.txt", out = dir_ / "answers.txt";
    std::ofstream(in) << input_.str();
    // A prefix of our own under the build folder; no window, no installer dialogs.
    const std::string command =
        "env -u DISPLAY WINEPREFIX='" + (fs::path(build ? build : ".") / "wine-prefix").string() +
        "' WINEDEBUG=-all WINEDLLOVERRIDES='mscoree,mshtml=' timeout 100 '" ZV_WINE "' '" + oracle +
        "' < '" + in.string() + "' > '" + out.string() + "' 2> '" + (dir_ / "wine.log").string() +
        "'";
    if (std::system(command.c_str()) != 0)
      return {};
    std::vector<Answer> answers;
    std::ifstream file(out);
    Answer a;
    std::string text;
    while (file >> a.count >> text >> a.number) {
      a.text = unhex(text);
      answers.push_back(a);
    }
    return answers;
  }

private:
  fs::path dir_;
  std::ostringstream input_;
  int files_ = 0;
};

Answer ours(const std::string& path, const ProfileLookup& q) {
  Answer a;
  a.count = getPrivateProfileString(q.section, q.key, q.defaultValue, a.text, 255, path);
  a.number = getPrivateProfileInt(q.section, q.key, -7, path);
  return a;
}

// Wine also reads lowercase 0x, 0o and 0b prefixes as numbers.
bool wineReadsPrefix(const std::string& value) {
  size_t i = value.find_first_not_of(" \t");
  if (i != std::string::npos && (value[i] == '+' || value[i] == '-'))
    ++i;
  return i + 1 < value.size() && value[i] == '0' &&
         std::string("xob").find(value[i + 1]) != std::string::npos;
}

fs::path workDir(const char* name) {
  const char* build = std::getenv("ZV_BUILD_DIR");
  return fs::path(build ? build : ".") / "reliability" / name;
}

TEST(ProfileAgainstWine, GeneratedFilesAnswerAlike) {
  ASSERT_TRUE(fs::exists(ZV_WINE)) << "wine64 is missing: run `make deps`";
  Batch batch(workDir("generated"));
  struct Asked {
    std::string path;
    ProfileLookup q;
  };
  std::vector<Asked> asked;
  Generator gen(20240521);
  for (int f = 0; f < 600; ++f) {
    auto [bytes, lookups] = gen.next();
    const std::string path = batch.addFile(bytes);
    for (auto& q : lookups) {
      batch.addLookup(q);
      asked.push_back({path, std::move(q)});
    }
  }
  const std::vector<Answer> wine = batch.run();
  ASSERT_EQ(wine.size(), asked.size()) << "the oracle did not answer every lookup";
  int differences = 0;
  for (size_t i = 0; i < asked.size() && differences < 10; ++i) {
    Answer mine = ours(asked[i].path, asked[i].q);
    if (wineReadsPrefix(mine.text))
      mine.number = wine[i].number;
    if (mine == wine[i])
      continue;
    ++differences;
    ADD_FAILURE() << asked[i].path << " [" << asked[i].q.section << "] '" << asked[i].q.key
                  << "' default '" << asked[i].q.defaultValue << "'\n ours: " << mine.count << " '"
                  << mine.text << "' " << mine.number << "\n wine: " << wine[i].count << " '"
                  << wine[i].text << "' " << wine[i].number;
  }
  EXPECT_GT(asked.size(), 5000u);
}

struct Difference {
  const char* name;
  std::string bytes;
  ProfileLookup q;
  Answer windows;
};

// Each row is a place where Wine answers unlike Windows; ours must give the
// Windows answer, and Wine must really differ there (else the row is stale).
TEST(ProfileAgainstWine, WhereWineDiffersOursFollowsWindows) {
  ASSERT_TRUE(fs::exists(ZV_WINE)) << "wine64 is missing: run `make deps`";
  const std::string quoted254 = "k=\"" + std::string(254, 'q') + "\"\r\n";
  const std::vector<Difference> rows = {
      {"ByteOrderMark", "\xEF\xBB\xBF[S]\r\nk=1\r\n", {"S", "k", "d"}, {1, "d", -7}},
      {"SecondBracket", "[a][b]\r\nk=1\r\n", {"a", "k", "d"}, {1, "1", 1}},
      {"UnclosedHeader", "[abc\r\nk=1\r\n", {"abc", "k", "d"}, {1, "1", 1}},
      {"CommentLine", "[S]\r\n;k=1\r\n", {"S", ";k", "d"}, {1, "d", -7}},
      {"Quoted254", "[S]\r\n" + quoted254, {"S", "k", "d"}, {254, std::string(254, 'q'), 0}},
      {"KeyWithoutEquals", "[S]\r\nk\r\nk=1\r\n", {"S", "k", "d"}, {1, "1", 1}},
      {"DefaultOnlySpaces", "[S]\r\n", {"S", "k", "   "}, {0, "", -7}},
      {"HexPrefix", "[S]\r\nk=0x10\r\n", {"S", "k", "d"}, {4, "0x10", 0}},
  };
  Batch batch(workDir("differences"));
  std::vector<std::string> paths;
  for (const auto& r : rows) {
    paths.push_back(batch.addFile(r.bytes));
    batch.addLookup(r.q);
  }
  const std::vector<Answer> wine = batch.run();
  ASSERT_EQ(wine.size(), rows.size());
  for (size_t i = 0; i < rows.size(); ++i) {
    SCOPED_TRACE(rows[i].name);
    const Answer mine = ours(paths[i], rows[i].q);
    EXPECT_EQ(mine.count, rows[i].windows.count);
    EXPECT_EQ(mine.text, rows[i].windows.text);
    EXPECT_EQ(mine.number, rows[i].windows.number);
    EXPECT_NE(wine[i], rows[i].windows) << "Wine now agrees with Windows here";
  }
}

} // namespace
} // namespace zv::test
