// A desktop project: the device file, the clock, and the component's saved
// properties in the script runner's bag form, as one JSON file.
#pragma once

#include <cstdint>
#include <string>

#include "platform/propbag.h"

namespace zvhost {

struct Project {
  std::string device; // path of the device file, may be empty
  int32_t clock = 0;  // hertz
  zv::PropertyBag properties;
};

std::string projectText(const Project& project);
// False with error filled when the text isn't a project.
bool parseProject(const std::string& text, Project& project, std::string& error);

bool saveProject(const std::string& path, const Project& project, std::string& error);
bool loadProject(const std::string& path, Project& project, std::string& error);

} // namespace zvhost
