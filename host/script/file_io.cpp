#include "file_io.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstring>

namespace zvhost {

namespace {

struct Fd {
  int fd;
  ~Fd() {
    if (fd >= 0)
      ::close(fd);
  }
};

bool fail(std::string& error, const char* verb, const std::string& path, const std::string& why) {
  error = std::string("cannot ") + verb + " " + path + ": " + why;
  return false;
}

bool writeAll(int fd, std::string_view text) {
  while (!text.empty()) {
    const ssize_t n = ::write(fd, text.data(), text.size());
    if (n < 0 && errno == EINTR)
      continue;
    if (n <= 0)
      return false;
    text.remove_prefix(static_cast<size_t>(n));
  }
  return true;
}

} // namespace

bool readRegularFile(const std::string& path, std::string& text, std::string& error, size_t limit) {
  // Non-blocking, so that opening a FIFO without a writer answers at once.
  Fd in{::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC)};
  if (in.fd < 0)
    return fail(error, "read", path, std::strerror(errno));
  struct stat st {};
  if (::fstat(in.fd, &st) != 0)
    return fail(error, "read", path, std::strerror(errno));
  if (!S_ISREG(st.st_mode))
    return fail(error, "read", path, "not a regular file");
  const std::string tooLarge =
      "larger than " + (limit % (1 << 20) == 0 ? std::to_string(limit >> 20) + " MiB"
                                               : std::to_string(limit) + " bytes");
  if (static_cast<uint64_t>(st.st_size) > limit)
    return fail(error, "read", path, tooLarge);
  std::string read(static_cast<size_t>(st.st_size) + 1, '\0');
  size_t used = 0;
  for (;;) {
    if (used == read.size()) {
      // The file grew while it was read; still not past the limit.
      if (read.size() > limit)
        return fail(error, "read", path, tooLarge);
      read.resize(std::min(limit + 1, read.size() * 2));
    }
    const ssize_t n = ::read(in.fd, read.data() + used, read.size() - used);
    if (n < 0 && errno == EINTR)
      continue;
    if (n < 0)
      return fail(error, "read", path, std::strerror(errno));
    if (n == 0)
      break;
    used += static_cast<size_t>(n);
  }
  read.resize(used);
  text = std::move(read);
  return true;
}

bool replaceFile(const std::string& path, std::string_view text, std::string& error) {
  struct stat st {};
  const bool existed = ::stat(path.c_str(), &st) == 0;
  if (existed && !S_ISREG(st.st_mode))
    return fail(error, "write", path, "not a regular file");
  static std::atomic<unsigned> counter{0};
  std::string temporary;
  Fd out{-1};
  for (int attempt = 0; out.fd < 0; ++attempt) {
    temporary = path + ".tmp" + std::to_string(::getpid()) + "-" + std::to_string(counter++);
    // 0666 less the umask, as a file the user creates any other way.
    out.fd = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (out.fd < 0 && (errno != EEXIST || attempt == 100))
      return fail(error, "write", path, std::strerror(errno));
  }
  if (existed)
    (void)::fchmod(out.fd, st.st_mode & 07777); // the replaced file's permissions stay
  const bool written = writeAll(out.fd, text) && ::fsync(out.fd) == 0;
  const int writeErrno = errno;
  const int closed = ::close(out.fd);
  out.fd = -1;
  if (!written || closed != 0 || ::rename(temporary.c_str(), path.c_str()) != 0) {
    const int why = !written ? writeErrno : errno;
    ::unlink(temporary.c_str());
    return fail(error, "write", path, std::strerror(why));
  }
  return true;
}

} // namespace zvhost
