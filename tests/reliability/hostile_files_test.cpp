// Files and bags that nobody should hand the component, and what it gives
// back for each: a message, a default, or a failed call; never a crash or a
// hang. An alarm ends the process if a read hangs.
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <random>

#include "pins/pin_slot.h"
#include "tests/component/fixture.h"

namespace zvtest {
namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kAddressSanitizer = true; // its quarantine keeps freed lines resident
#else
constexpr bool kAddressSanitizer = false;
#endif

const std::string kMissing = "Error - cannot find C code file:\r\n\r\n";

class Hostile : public ComponentTest {
protected:
  void SetUp() override {
    ComponentTest::SetUp();
    ::alarm(60);
  }
  void TearDown() override {
    ::alarm(0);
    ComponentTest::TearDown();
  }
  // A working component, then its code file replaced by bytes.
  std::unique_ptr<zv::PWM> createThenReplace(const std::string& bytes) {
    auto pwm = createWith({"[Settings]", "Description=Hostile"});
    folder.write("Fixture.c", bytes);
    return pwm;
  }
  std::string block(zv::PWM& pwm, std::string name) { return pwm.GetCodeFromFile(name); }
  std::string key(zv::PWM& pwm, std::string section, std::string k, std::string d) {
    return pwm.GetIniKeyValue(section, k, d);
  }
};

long peakKiB() {
  rusage r{};
  ::getrusage(RUSAGE_SELF, &r);
  return r.ru_maxrss;
}

TEST_F(Hostile, CodeFileOf64MiBIsScannedInBoundedMemory) {
  auto pwm = createWith({"[Settings]", "Description=Hostile"});
  {
    // Written line by line, so that the test itself never holds the file.
    std::ofstream file(folder.path() + "/Fixture.c", std::ios::binary | std::ios::trunc);
    file << "[Settings]\r\nDescription=Big\r\n";
    for (int i = 0; file.tellp() < (std::streamoff{64} << 20); ++i)
      file << "int filler_" << i << " = 0; /* padding the code file */\r\n";
    file << "/*DefinesCode_Start*/\r\n#define LAST 1\r\n/*DefinesCode_End*/\r\n";
  }
  const long before = peakKiB();
  EXPECT_EQ(block(*pwm, "DefinesCode"), "#define LAST 1\n");
  EXPECT_EQ(block(*pwm, "Missing"), "//Error Reading Code For Hostile::Missing\r\n");
  // The line reader holds one block and one line, not the file.
  if (!kAddressSanitizer) {
    EXPECT_LT(peakKiB() - before, 16 * 1024);
  }
  EXPECT_EQ(key(*pwm, "Settings", "Description", "d"), "Big");
  EXPECT_TRUE(boxes.texts.empty());
}

TEST_F(Hostile, LineOf10MiB) {
  const std::string line(10 << 20, 'x');
  auto pwm = createThenReplace("[Settings]\r\nDescription=" + line + "\r\n/*A_Start*/\r\n" + line +
                               "\r\n/*A_End*/\r\n" + line + "/*B_Start*/\r\n");
  EXPECT_EQ(block(*pwm, "A"), line + "\n");
  EXPECT_EQ(block(*pwm, "B"), "//Error Reading Code For Hostile::B\r\n");
  EXPECT_EQ(key(*pwm, "Settings", "Description", "d"), std::string(254, 'x'));
  EXPECT_TRUE(boxes.texts.empty());
}

TEST_F(Hostile, BinaryBytesGiveDefaultsAndErrorComments) {
  std::mt19937 rng(7);
  std::string bytes(1 << 20, '\0');
  for (char& c : bytes)
    c = static_cast<char>(rng());
  writeCode({});
  folder.write("Fixture.c", bytes);
  auto pwm = create(); // the start-up reads its settings from it
  EXPECT_EQ(pwm->sDescription, "default");
  EXPECT_EQ(pwm->put_ZelvorVersion(4).number, 0);
  EXPECT_EQ(block(*pwm, "DefinesCode"), "//Error Reading Code For default::DefinesCode\r\n");
  EXPECT_TRUE(boxes.texts.empty());
}

// A code file that is no regular file counts as missing: its message, the
// default for a key, and for a block a second box and the empty string.
TEST_F(Hostile, CodeFileThatIsNoFile) {
  struct Case {
    const char* what;
    std::function<void(const std::string&)> make;
  };
  const std::vector<Case> cases{
      {"folder", [](const std::string& p) { std::filesystem::create_directory(p); }},
      {"endless device",
       [](const std::string& p) { std::filesystem::create_symlink("/dev/zero", p); }},
      {"pipe without writer", [](const std::string& p) { ::mkfifo(p.c_str(), 0600); }},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    auto pwm = createWith({});
    const std::string path = folder.path() + "/Fixture.c";
    std::filesystem::remove(path);
    c.make(path);
    EXPECT_EQ(key(*pwm, "Settings", "Description", "dflt"), "dflt");
    EXPECT_EQ(block(*pwm, "DefinesCode"), "");
    ASSERT_EQ(boxes.texts.size(), 3u);
    EXPECT_EQ(boxes.texts[0], kMissing + path);
    EXPECT_EQ(boxes.texts[1], kMissing + path);
    EXPECT_FALSE(boxes.texts[2].empty()); // the platform's word for the failed open
    boxes.texts.clear();
    std::filesystem::remove_all(path);
  }
}

TEST_F(Hostile, DeviceFileThatIsNoFileGivesZeros) {
  auto pwm = createWith({});
  const std::string fifo = folder.path() + "/device.fifo";
  ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
  for (const std::string& path :
       {folder.path(), std::string("/dev/zero"), fifo, std::string("/dev/null"), std::string()}) {
    SCOPED_TRACE(path);
    pwm->iPwmCount = pwm->iHasAltPin = pwm->iClockDivider = 5;
    EXPECT_TRUE(pwm->put_ZvdFilename(path).ok());
    EXPECT_EQ(pwm->iPwmCount, 0);
    EXPECT_EQ(pwm->iHasAltPin, 0);
    EXPECT_EQ(pwm->iClockDivider, 0);
  }
  EXPECT_TRUE(boxes.texts.empty());
}

TEST_F(Hostile, PathsWithOddCharacters) {
  for (const std::string name : {"with blanks", "quote\"s and 'apostrophes'",
                                 "caf\xC3\xA9 \xE2\x82\xAC", "new\nline", "back\\slash;semi"}) {
    SCOPED_TRACE(name);
    TempFolder odd;
    const std::string dir = odd.path() + "/" + name;
    odd.write(name + "/Fixture.c",
              crlf({"[Settings]", "Description=Odd", "/*X_Start*/", "x", "/*X_End*/"}));
    odd.write(name + "/device.zvd", "[Device]\r\nPWMCount=2\r\n");
    zv::PWM pwm(zv::LibraryFacts{dir, "Fixture", 4, 0, 0}, &boxes);
    EXPECT_EQ(pwm.sDescription, "Odd");
    EXPECT_EQ(block(pwm, "X"), "x\n");
    EXPECT_TRUE(pwm.put_ZvdFilename(dir + "/device.zvd").ok());
    EXPECT_EQ(pwm.iPwmCount, 2);
    std::filesystem::remove(dir + "/Fixture.c");
    boxes.texts.clear();
    EXPECT_EQ(key(pwm, "Settings", "Description", "d"), "d");
    EXPECT_EQ(boxes.texts, std::vector<std::string>{kMissing + dir + "/Fixture.c"});
  }
}

TEST_F(Hostile, BagWith100000KeysAndLabelsOf1MiB) {
  auto pwm = createWith({});
  zv::PropertyBag bag;
  for (int i = 0; i < 100000; ++i)
    bag.WriteProperty("Noise" + std::to_string(i), zv::Variant::i4(i));
  const std::string label(1 << 20, 'L');
  bag.WriteProperty("Label1", zv::Variant::str(label));
  bag.WriteProperty("Label2", zv::Variant::str(label + "2"));
  bag.WriteProperty("Pr2", zv::Variant::i2(77));
  ASSERT_TRUE(pwm->ReadProperties(bag).ok());
  EXPECT_EQ(pwm->sLabel1, label);
  EXPECT_EQ(pwm->sLabel2, label + "2");
  EXPECT_EQ(pwm->iPr2, 77);
  zv::PropertyBag saved;
  ASSERT_TRUE(pwm->WriteProperties(saved).ok());
  EXPECT_EQ(saved.ReadProperty("Label1", {}), zv::Variant::str(label));
  EXPECT_EQ(saved.entries().size(), 11u);
}

} // namespace
} // namespace zvtest
