// The plug-in as the host loads it, from the build tree, and components made
// the way the desktop makes them.
#pragma once

#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

#include "host/plugin/loader.h"

namespace zvqt_test {

inline std::string buildDir() {
  const char* dir = std::getenv("ZV_BUILD_DIR");
  return dir ? dir : ".";
}

inline std::string sourceDir() {
  const char* dir = std::getenv("ZV_SOURCE_DIR");
  return dir ? dir : ".";
}

inline const zvhost::Plugin& plugin() {
  static zvhost::Plugin loaded = [] {
    std::string error;
    zvhost::Plugin p = zvhost::Plugin::open(buildDir() + "/lib/AVR_PWM.so", error);
    if (!p.loaded())
      ADD_FAILURE() << error;
    return p;
  }();
  return loaded;
}

inline zvhost::Plugin::ComponentPtr makeComponent(const std::string& device,
                                                  zv::MessageBoxService* boxes = nullptr) {
  zv::Status status;
  auto component = plugin().createComponent("", "", status, boxes);
  EXPECT_TRUE(component) << status.description;
  if (!component)
    return component;
  component->InitProperties();
  component->put_ZelvorVersion(1024);
  component->put_ZvdFilename(sourceDir() + "/devices/" + device + ".zvd");
  component->put_ClockSpeed(8000000);
  return component;
}

} // namespace zvqt_test
