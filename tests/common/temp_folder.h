// A fresh temporary folder for a test's files, removed with everything in it,
// and the CR LF text such files hold.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace zvtest {

class TempFolder {
public:
  TempFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "zvtest-XXXXXX").string();
    path_ = ::mkdtemp(pattern.data()) ? pattern : std::string();
  }
  ~TempFolder() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::string& path() const { return path_; }
  // Writes the exact bytes to name (folders made as needed); answers the full path.
  std::string write(const std::string& name, std::string_view bytes) const {
    const std::filesystem::path file = std::filesystem::path(path_) / name;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary).write(bytes.data(), std::streamsize(bytes.size()));
    return file.string();
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

} // namespace zvtest
