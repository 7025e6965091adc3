#include "project_file.h"

#include "host/script/file_io.h"
#include "host/script/json_in.h"

namespace zvhost {

std::string projectText(const Project& project) {
  Json j;
  j["device"] = project.device;
  j["clock"] = project.clock;
  j["properties"] = bagJson(project.properties);
  return j.dump(2) + "\n";
}

bool parseProject(const std::string& text, Project& project, std::string& error) {
  try {
    const Json j = parseJson(text);
    if (!j.is_object())
      throw ScriptError("a project is a JSON object");
    const Json& device = j.at("device");
    const Json& clock = j.at("clock");
    if (!device.is_string())
      throw ScriptError("the device is not a text");
    if (!clock.is_number_integer() || clock.get<int64_t>() < INT32_MIN ||
        clock.get<int64_t>() > INT32_MAX)
      throw ScriptError("the clock is not a whole number of hertz");
    Project read;
    read.device = device.get<std::string>();
    read.clock = clock.get<int32_t>();
    read.properties = bagFromJson(j.at("properties"));
    project = std::move(read);
    return true;
  } catch (const std::exception& e) {
    error = e.what();
    return false;
  }
}

bool saveProject(const std::string& path, const Project& project, std::string& error) {
  std::string text;
  try {
    text = projectText(project);
  } catch (const std::exception& e) {
    error = "cannot write " + path + ": " + e.what();
    return false;
  }
  return replaceFile(path, text, error);
}

bool loadProject(const std::string& path, Project& project, std::string& error) {
  std::string text;
  return readRegularFile(path, text, error) && parseProject(text, project, error);
}

} // namespace zvhost
