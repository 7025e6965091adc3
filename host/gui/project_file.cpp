#include "project_file.h"

#include <fstream>
#include <sstream>

#include "host/script/json_out.h"

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
    Json j = Json::parse(text);
    Project read;
    read.device = j.at("device").get<std::string>();
    read.clock = j.at("clock").get<int32_t>();
    read.properties = bagFromJson(j.at("properties"));
    project = std::move(read);
    return true;
  } catch (const std::exception& e) {
    error = e.what();
    return false;
  }
}

bool saveProject(const std::string& path, const Project& project, std::string& error) {
  std::ofstream out(path, std::ios::binary);
  out << projectText(project);
  if (!out) {
    error = "cannot write " + path;
    return false;
  }
  return true;
}

bool loadProject(const std::string& path, Project& project, std::string& error) {
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    error = "cannot read " + path;
    return false;
  }
  std::stringstream text;
  text << in.rdbuf();
  return parseProject(text.str(), project, error);
}

} // namespace zvhost
