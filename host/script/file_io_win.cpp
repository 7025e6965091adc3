// The host's files on Windows: the same answers as file_io.cpp gives on
// Linux, with the C library's streams and a rename that replaces the target.
#include <windows.h>

#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "file_io.h"

namespace zvhost {

namespace {

bool fail(std::string& error, const char* verb, const std::string& path, const std::string& why) {
  error = std::string("cannot ") + verb + " " + path + ": " + why;
  return false;
}

// What stands at path: the answer of a failed look is the C library's text for it.
bool lookAt(const std::string& path, std::filesystem::file_status& status, std::string& why) {
  std::error_code code;
  status = std::filesystem::status(path, code);
  if (status.type() == std::filesystem::file_type::not_found) {
    why = std::strerror(ENOENT);
    return false;
  }
  if (code) {
    why = code.message();
    return false;
  }
  return true;
}

} // namespace

bool readRegularFile(const std::string& path, std::string& text, std::string& error, size_t limit) {
  std::filesystem::file_status status;
  std::string why;
  if (!lookAt(path, status, why))
    return fail(error, "read", path, why);
  if (!std::filesystem::is_regular_file(status))
    return fail(error, "read", path, "not a regular file");
  std::ifstream in(path, std::ios::binary);
  if (!in)
    return fail(error, "read", path, std::strerror(errno));
  // Room for one byte more than the file has, to see it grow past the limit.
  std::error_code code;
  const uintmax_t size = std::filesystem::file_size(path, code);
  std::string read(static_cast<size_t>(code || size > limit ? limit : size) + 1, '\0');
  in.read(read.data(), static_cast<std::streamsize>(read.size()));
  if (in.bad())
    return fail(error, "read", path, std::strerror(errno));
  read.resize(static_cast<size_t>(in.gcount()));
  if (read.size() > limit)
    return fail(error, "read", path,
                "larger than " + (limit % (1 << 20) == 0 ? std::to_string(limit >> 20) + " MiB"
                                                         : std::to_string(limit) + " bytes"));
  text = std::move(read);
  return true;
}

bool replaceFile(const std::string& path, std::string_view text, std::string& error) {
  std::filesystem::file_status status;
  std::string why;
  if (lookAt(path, status, why) && !std::filesystem::is_regular_file(status))
    return fail(error, "write", path, "not a regular file");
  static std::atomic<unsigned> counter{0};
  const std::string temporary =
      path + ".tmp" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(counter++);
  bool written;
  {
    std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
    written =
        out && out.write(text.data(), static_cast<std::streamsize>(text.size())) && out.flush();
  }
  const int writeErrno = errno;
  if (!written || !MoveFileExA(temporary.c_str(), path.c_str(),
                               MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
    DeleteFileA(temporary.c_str());
    return fail(error, "write", path, std::strerror(written ? EACCES : writeErrno));
  }
  return true;
}

} // namespace zvhost
