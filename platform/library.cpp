#include "library.h"

#include <dlfcn.h>

#include <filesystem>

namespace zv {

LibraryFacts libraryFactsOf(const void* addressInLibrary) {
  LibraryFacts facts;
  Dl_info info{};
  if (dladdr(addressInLibrary, &info) && info.dli_fname) {
    std::filesystem::path file = std::filesystem::absolute(info.dli_fname).lexically_normal();
    facts.folder = file.parent_path().string();
    facts.baseName = file.stem().string();
  }
  return facts;
}

std::string joinPath(const std::string& folder, const std::string& name) {
  if (folder.empty())
    return name;
  std::string path;
  path.reserve(folder.size() + 1 + name.size());
  path.append(folder);
  if (folder.back() != '/')
    path.push_back('/');
  return path.append(name);
}

} // namespace zv
