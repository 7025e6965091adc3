// The running library's facts: its folder and base name (from the loaded
// file's own path), its version, and the application help file setting.
#pragma once

#include <string>

namespace zv {

struct LibraryFacts {
  std::string folder;   // without a trailing '/'
  std::string baseName; // file name without its extension
  int major = 0;
  int minor = 0;
  int revision = 0;
};

// Facts of the shared object (or executable) that holds the given address.
LibraryFacts libraryFactsOf(const void* addressInLibrary);

// Joins a folder and a name with the platform's separator.
std::string joinPath(const std::string& folder, const std::string& name);

} // namespace zv
