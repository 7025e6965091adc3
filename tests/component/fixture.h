// A component built from a code file written to a fresh temporary folder,
// with message boxes recorded instead of shown.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "component/core/pwm.h"
#include "platform/msgbox.h"

namespace zvtest {

class TempFolder {
public:
  TempFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "zvcomp-XXXXXX").string();
    path_ = ::mkdtemp(pattern.data()) ? pattern : std::string();
  }
  ~TempFolder() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::string& path() const { return path_; }
  std::string write(const std::string& name, const std::string& bytes) const {
    const std::string file = path_ + "/" + name;
    std::filesystem::create_directories(std::filesystem::path(file).parent_path());
    std::ofstream(file, std::ios::binary).write(bytes.data(), std::streamsize(bytes.size()));
    return file;
  }

private:
  std::string path_;
};

// Lines joined with CR LF, the last one ended too.
inline std::string crlf(const std::vector<std::string>& lines) {
  std::string text;
  for (const auto& line : lines)
    text += line + "\r\n";
  return text;
}

class ComponentTest : public ::testing::Test {
protected:
  void SetUp() override {
    zv::setMessageBoxService(&boxes);
    folder.write("help/Fixture.chm", "");
  }
  void TearDown() override { zv::setMessageBoxService(nullptr); }

  void writeCode(const std::vector<std::string>& lines) { folder.write("Fixture.c", crlf(lines)); }
  std::unique_ptr<zv::PWM> create() {
    return std::make_unique<zv::PWM>(zv::LibraryFacts{folder.path(), "Fixture", 4, 0, 0});
  }
  // Creates the component with the given code file; the boxes of the start-up are dropped.
  std::unique_ptr<zv::PWM> createWith(const std::vector<std::string>& lines) {
    writeCode(lines);
    auto pwm = create();
    boxes.texts.clear();
    return pwm;
  }

  zv::HeadlessMessageBoxes boxes;
  TempFolder folder;
};

} // namespace zvtest
