#include "textfile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "errors.h"

namespace zv {

namespace {
constexpr int errInputPastEnd = 62;
// Large enough that a 16 MiB file is a handful of reads.
constexpr size_t kBlockSize = size_t{1} << 20;
constexpr size_t kMinBlockSize = 4096;
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
  // Read with plain system calls: the reader buffers whole blocks itself.
  fd_ = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd_ < 0)
    raise(errPathAccess);
  // Sized to the file, so a small file costs no large allocation; a file that
  // grows after the stat is still read whole, block by block.
  size_ = std::clamp(static_cast<size_t>(st.st_size) + 1, kMinBlockSize, kBlockSize);
  buffer_ = std::make_unique_for_overwrite<char[]>(size_);
}

LineReader::LineReader(LineReader&& other) noexcept
    : fd_(std::exchange(other.fd_, -1)), buffer_(std::move(other.buffer_)),
      pos_(std::exchange(other.pos_, 0)), size_(std::exchange(other.size_, 0)),
      len_(std::exchange(other.len_, 0)), drained_(std::exchange(other.drained_, false)),
      carry_(std::move(other.carry_)) {}

LineReader& LineReader::operator=(LineReader&& other) noexcept {
  if (this != &other) {
    close();
    fd_ = std::exchange(other.fd_, -1);
    buffer_ = std::move(other.buffer_);
    pos_ = std::exchange(other.pos_, 0);
    size_ = std::exchange(other.size_, 0);
    len_ = std::exchange(other.len_, 0);
    drained_ = std::exchange(other.drained_, false);
    carry_ = std::move(other.carry_);
  }
  return *this;
}

LineReader::~LineReader() {
  close();
}

void LineReader::close() {
  if (fd_ >= 0)
    ::close(fd_);
  fd_ = -1;
  buffer_.reset();
  pos_ = len_ = size_ = 0;
  drained_ = false;
}

bool LineReader::fill() {
  pos_ = len_ = 0;
  if (fd_ < 0 || drained_)
    return false;
  ssize_t got;
  do
    got = ::read(fd_, buffer_.get(), size_);
  while (got < 0 && errno == EINTR);
  if (got < 0)
    raise(errPathAccess);
  len_ = static_cast<size_t>(got);
  // A regular file reads short only at its end: asking again would answer nothing.
  drained_ = len_ < size_;
  return len_ > 0;
}

bool LineReader::atEnd() {
  if (fd_ < 0)
    raise(52); // bad file name or number: the channel is not open
  return !fill();
}

std::string LineReader::readLine() {
  std::string line;
  readLine(line);
  return line;
}

std::string_view LineReader::readLineAcross() {
  readLine(carry_);
  return carry_;
}

namespace {

// Whole lines, each ended by CR LF or a lone CR, added with an LF each.
void appendLines(std::string& out, const char* from, const char* to) {
  out.reserve(out.size() + static_cast<size_t>(to - from));
  while (from < to) {
    const auto* cr =
        static_cast<const char*>(std::memchr(from, '\r', static_cast<size_t>(to - from)));
    out.append(from, static_cast<size_t>(cr - from)).push_back('\n');
    from = cr + 1;
    if (from < to && *from == '\n')
      ++from;
  }
}

} // namespace

bool LineReader::skipToLine(std::string_view line, std::string* passed) {
  while (!eof()) {
    const char* base = buffer_.get();
    const char* start = base + pos_;
    // The whole lines of the block end at its last CR with a byte after it.
    const char* lastCr = static_cast<const char*>(memrchr(start, '\r', len_ - pos_));
    if (lastCr && lastCr + 1 == base + len_)
      lastCr = static_cast<const char*>(memrchr(start, '\r', static_cast<size_t>(lastCr - start)));
    if (lastCr && !line.empty()) {
      for (const char* from = start;;) {
        const auto* hit = static_cast<const char*>(
            memmem(from, static_cast<size_t>(lastCr - from), line.data(), line.size()));
        if (!hit)
          break;
        // A line starts after a CR, or after the LF of a CR LF; a lone LF stays in its line.
        const bool lineStart = hit == start || hit[-1] == '\r' ||
                               (hit[-1] == '\n' && hit - 1 > start && hit[-2] == '\r');
        const char* after = hit + line.size();
        if (lineStart && *after == '\r') {
          if (passed)
            appendLines(*passed, start, hit);
          pos_ = static_cast<size_t>(after + 1 - base);
          if (base[pos_] == '\n')
            ++pos_;
          return true;
        }
        from = hit + 1;
      }
      pos_ = static_cast<size_t>(lastCr + 1 - base);
      if (base[pos_] == '\n')
        ++pos_;
      if (passed)
        appendLines(*passed, start, base + pos_);
    }
    // The block's last line, which may run on into the next block.
    if (!eof()) {
      const std::string_view last = readLineView();
      if (last == line)
        return true;
      if (passed)
        passed->append(last).push_back('\n');
    }
  }
  return false;
}

void LineReader::readLine(std::string& line) {
  if (eof())
    raise(errInputPastEnd);
  line.clear();
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
      return;
    }
    line.append(start, len_ - pos_);
    if (!fill())
      return;
  }
}

} // namespace zv
