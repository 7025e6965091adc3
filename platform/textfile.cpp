#include "textfile.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstring>
#include <utility>

#include "errors.h"

namespace zv {

namespace {
constexpr int errInputPastEnd = 62;
// Large enough that a 16 MiB file is a handful of reads.
constexpr size_t kBlockSize = size_t{1} << 20;
} // namespace

bool fileExists(const std::string& path) {
  struct stat st {};
  return !path.empty() && ::stat(path.c_str(), &st) == 0 && S_ISREG(st.st_mode);
}

LineReader::LineReader(const std::string& path) {
  struct stat st {};
  if (path.empty() || ::stat(path.c_str(), &st) != 0) {
    if (!path.empty() && errno != ENOENT && errno != ENOTDIR)
      raise(errPathAccess);
    raise(errFileNotFound);
  }
  // Checked before opening: opening a FIFO would wait for a writer.
  if (!S_ISREG(st.st_mode))
    raise(errPathAccess);
  file_ = std::fopen(path.c_str(), "rb");
  if (!file_)
    raise(errPathAccess);
  // The reader buffers whole blocks itself; stdio's copy would be a second one.
  std::setvbuf(file_, nullptr, _IONBF, 0);
  buffer_ = std::make_unique<char[]>(kBlockSize);
}

LineReader::LineReader(LineReader&& other) noexcept
    : file_(std::exchange(other.file_, nullptr)), buffer_(std::move(other.buffer_)),
      pos_(std::exchange(other.pos_, 0)), len_(std::exchange(other.len_, 0)) {}

LineReader& LineReader::operator=(LineReader&& other) noexcept {
  if (this != &other) {
    close();
    file_ = std::exchange(other.file_, nullptr);
    buffer_ = std::move(other.buffer_);
    pos_ = std::exchange(other.pos_, 0);
    len_ = std::exchange(other.len_, 0);
  }
  return *this;
}

LineReader::~LineReader() {
  close();
}

void LineReader::close() {
  if (file_)
    std::fclose(file_);
  file_ = nullptr;
  buffer_.reset();
  pos_ = len_ = 0;
}

bool LineReader::fill() {
  pos_ = len_ = 0;
  if (!file_)
    return false;
  len_ = std::fread(buffer_.get(), 1, kBlockSize, file_);
  if (len_ == 0 && std::ferror(file_))
    raise(errPathAccess);
  return len_ > 0;
}

bool LineReader::eof() {
  if (!file_)
    raise(52); // bad file name or number: the channel is not open
  return pos_ >= len_ && !fill();
}

std::string LineReader::readLine() {
  if (eof())
    raise(errInputPastEnd);
  std::string line;
  for (;;) {
    const char* start = buffer_.get() + pos_;
    const void* cr = std::memchr(start, '\r', len_ - pos_);
    if (cr) {
      const char* end = static_cast<const char*>(cr);
      line.append(start, static_cast<size_t>(end - start));
      pos_ += static_cast<size_t>(end - start) + 1;
      // The LF of a CR LF may be the first byte of the next block.
      if ((pos_ < len_ || fill()) && buffer_[pos_] == '\n')
        ++pos_;
      return line;
    }
    line.append(start, len_ - pos_);
    if (!fill())
      return line;
  }
}

} // namespace zv
