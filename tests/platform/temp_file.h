// A file with exact bytes in a fresh temporary folder, removed at the end.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace zv::test {

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
  std::string write(const std::string& name, std::string_view bytes) const {
    std::string file = path_ + "/" + name;
    std::ofstream(file, std::ios::binary).write(bytes.data(), std::streamsize(bytes.size()));
    return file;
  }

private:
  std::string path_;
};

} // namespace zv::test
