// The running library's facts on Windows: folder and base name from the path
// of the module that holds the given address, so a renamed or moved copy
// reads the code file beside it.
#include <windows.h>

#include "../library.h"

namespace zv {

LibraryFacts libraryFactsOf(const void* addressInLibrary) {
  LibraryFacts facts;
  HMODULE module = nullptr;
  if (!GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                              GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                          static_cast<LPCSTR>(addressInLibrary), &module))
    return facts;
  char path[MAX_PATH * 2];
  const DWORD n = GetModuleFileNameA(module, path, sizeof path);
  if (n == 0 || n >= sizeof path)
    return facts;
  const std::string file(path, n);
  const size_t slash = file.find_last_of("\\/");
  facts.folder = slash == std::string::npos ? std::string() : file.substr(0, slash);
  const std::string name = slash == std::string::npos ? file : file.substr(slash + 1);
  facts.baseName = name.substr(0, name.rfind('.'));
  return facts;
}

std::string joinPath(const std::string& folder, const std::string& name) {
  if (folder.empty())
    return name;
  std::string path;
  path.reserve(folder.size() + 1 + name.size());
  path.append(folder);
  if (folder.back() != '\\' && folder.back() != '/')
    path.push_back('\\');
  return path.append(name);
}

} // namespace zv
