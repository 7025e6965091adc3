// What the host reads from outside: text at its edge, JSON, bag and project
// files. Each input either reads back exactly or is refused with a reason.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <filesystem>

#include "host/gui/project_file.h"
#include "host/script/file_io.h"
#include "host/script/json_in.h"
#include "platform/ansi_text.h"
#include "tests/common/temp_folder.h"

namespace {

std::string allBytes() {
  std::string bytes;
  for (int b = 0; b < 256; ++b)
    bytes += static_cast<char>(b);
  return bytes;
}

bool validUtf8(std::string_view text) {
  char32_t c = 0;
  for (size_t n = 0; !text.empty(); text.remove_prefix(n))
    if ((n = zv::decodeUtf8(text, c)) == 0)
      return false;
  return true;
}

TEST(HostText, EveryByteRoundTripsAndOnlyWindows1252IsTaken) {
  const std::string utf8 = zv::utf8FromAnsi(allBytes());
  EXPECT_TRUE(validUtf8(utf8));
  EXPECT_EQ(zvhost::ansiText(utf8), allBytes());
  EXPECT_EQ(zvhost::ansiText("Caf\xC3\xA9 \xE2\x82\xAC"), "Caf\xE9 \x80");
  const char* refused[] = {
      "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE9", "\xE2\x86\x92" /* U+2192 */,
      "\xC2\x80" /* U+0080 */};
  for (const char* text : refused)
    EXPECT_THROW(zvhost::ansiText(text), zvhost::ScriptError) << text;
}

TEST(HostBag, SaveLoadSaveIsByteIdenticalForEveryByte) {
  zv::PropertyBag bag;
  bag.WriteProperty("Label1", zv::Variant::str(allBytes()));
  bag.WriteProperty("Label\xE9", zv::Variant::str("\xC3\xA9"));
  zv::SafeArray texts(zv::VarType::BSTR, 0, 1);
  texts.set(0, zv::Variant::str("\x81\x8D\x8F\x90\x9D"));
  bag.WriteProperty("Texts", zv::Variant::array(std::move(texts)));
  const std::string first = zvhost::dumpJson(zvhost::bagJson(bag));
  EXPECT_TRUE(validUtf8(first));
  const zv::PropertyBag loaded = zvhost::bagFromJson(zvhost::parseJson(first));
  EXPECT_EQ(loaded.entries(), bag.entries());
  EXPECT_EQ(zvhost::dumpJson(zvhost::bagJson(loaded)), first);
}

TEST(HostJson, MalformedDeepOrUnrepresentableInputIsRefused) {
  auto nested = [](int levels) {
    std::string v = R"({"vt": "I2", "v": 1})";
    for (int i = 0; i < levels; ++i)
      v = R"({"vt": "VARIANT[]", "v": [)" + v + "]}";
    return R"({"Label1": )" + v + "}";
  };
  EXPECT_NO_THROW(zvhost::bagFromJson(zvhost::parseJson(nested(zvhost::kMaxArrayNesting))));
  const std::string refused[] = {
      nested(zvhost::kMaxArrayNesting + 1),
      std::string(100000, '['),
      R"({"Pr2": {"vt": "R8", "v": 1e309}})",
      R"({"Pr2": {"vt": "R4", "v": 1e39}})",
      R"({"Pr2": {"vt": "I2", "v": 1.5}})",
      "{\"Label1\": {\"vt\": \"BSTR\", \"v\": \"\xC0\x80\"}}",
      R"({"Label1": {"vt": "BSTR", "v": "\u2192"}})",
      R"({"Pr2": {"vt": "I2", "v": 1}} x)",
  };
  for (const std::string& text : refused)
    EXPECT_THROW(zvhost::bagFromJson(zvhost::parseJson(text)), zvhost::ScriptError)
        << text.substr(0, 60);
}

TEST(HostJson, RepeatedNamesKeepTheLastValueInTheFirstPlace) {
  for (int keys : {3, 40}) { // found by a scan, then through the index
    std::string text = "{";
    for (int i = 0; i < keys; ++i)
      text += "\"k" + std::to_string(i) + "\": " + std::to_string(i) + ", ";
    text += R"("k1": -1})";
    const zvhost::Json j = zvhost::parseJson(text);
    ASSERT_EQ(j.size(), static_cast<size_t>(keys));
    EXPECT_EQ(j.items().begin().key(), "k0");
    EXPECT_EQ(j["k1"], -1);
  }
}

TEST(HostLiteral, NestingIsBounded) {
  const int limit = zvhost::kMaxArrayNesting;
  EXPECT_NO_THROW(zvhost::parseLiteral(std::string(limit, '[') + std::string(limit, ']')));
  for (int depth : {limit + 1, 100000})
    EXPECT_THROW(zvhost::parseLiteral(std::string(depth, '[') + std::string(depth, ']')),
                 zvhost::ScriptError);
}

TEST(HostFiles, OnlyRegularFilesOfBoundedSizeAreRead) {
  zvtest::TempFolder folder;
  const std::string fifo = folder.path() + "/fifo";
  ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
  const std::string small = folder.write("small.json", "{}");
  const std::string large = folder.write("large.json", std::string(2000, ' '));
  struct Case {
    std::string path;
    size_t limit;
    const char* why; // nullptr: read
  };
  const Case cases[] = {
      {small, 1000, nullptr},
      {large, 1000, "larger than 1000 bytes"},
      {fifo, 1000, "not a regular file"},
      {"/dev/zero", 1000, "not a regular file"},
      {folder.path(), 1000, "not a regular file"},
      {folder.path() + "/missing", 1000, "No such file"},
  };
  for (const Case& c : cases) {
    std::string text, error;
    EXPECT_EQ(zvhost::readRegularFile(c.path, text, error, c.limit), c.why == nullptr) << c.path;
    if (c.why) {
      EXPECT_NE(error.find(c.why), std::string::npos) << error;
    }
  }
}

TEST(HostFiles, ReplacingKeepsTheOldFileWholeWhenItFails) {
  zvtest::TempFolder folder;
  const std::string path = folder.write("bag.json", "old");
  ::chmod(path.c_str(), 0640);
  std::string error;
  ASSERT_TRUE(zvhost::replaceFile(path, "new", error)) << error;
  std::string text;
  ASSERT_TRUE(zvhost::readRegularFile(path, text, error));
  EXPECT_EQ(text, "new");
  struct stat st {};
  ::stat(path.c_str(), &st);
  EXPECT_EQ(st.st_mode & 0777, 0640u);
  EXPECT_FALSE(zvhost::replaceFile(folder.path(), "x", error));
  EXPECT_FALSE(zvhost::replaceFile(folder.path() + "/none/bag.json", "x", error));
  EXPECT_NE(error.find("cannot write"), std::string::npos);
  size_t files = 0;
  for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder.path()))
    ++files;
  EXPECT_EQ(files, 1u); // no temporary file left behind
}

TEST(HostProject, SavedProjectLoadsAndSavesAgainUnchanged) {
  zvtest::TempFolder folder;
  zvhost::Project project;
  project.device = "devices/ATmega328P.zvd";
  project.clock = 8000000;
  project.properties.WriteProperty("Label1", zv::Variant::str(allBytes()));
  const std::string path = folder.path() + "/p.json";
  std::string error, first, second;
  ASSERT_TRUE(zvhost::saveProject(path, project, error)) << error;
  zvhost::Project loaded;
  ASSERT_TRUE(zvhost::loadProject(path, loaded, error)) << error;
  ASSERT_TRUE(zvhost::saveProject(path, loaded, error)) << error;
  EXPECT_EQ(zvhost::projectText(loaded), zvhost::projectText(project));
  EXPECT_EQ(loaded.properties.entries(), project.properties.entries());

  const char* refused[] = {R"({"device": "", "clock": 1e300, "properties": {}})",
                           R"({"device": 1, "clock": 0, "properties": {}})",
                           R"({"device": "", "clock": 0})", "[]", "{"};
  for (const char* text : refused)
    EXPECT_FALSE(zvhost::parseProject(text, loaded, error)) << text;
  EXPECT_FALSE(zvhost::loadProject("/dev/zero", loaded, error));
}

} // namespace
