// A component built from a code file written to a fresh temporary folder,
// with message boxes recorded instead of shown.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/pwm.h"
#include "platform/msgbox.h"
#include "tests/common/temp_folder.h"

namespace zvtest {

class ComponentTest : public ::testing::Test {
protected:
  void SetUp() override { folder.write("help/Fixture.chm", ""); }

  void writeCode(const std::vector<std::string>& lines) { folder.write("Fixture.c", crlf(lines)); }
  std::unique_ptr<zv::PWM> create() {
    return std::make_unique<zv::PWM>(zv::LibraryFacts{folder.path(), "Fixture", 4, 0, 0}, &boxes);
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
