#include "textfile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <bit>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <utility>

#include "errors.h"

#if defined(__SSE2__)
#include <immintrin.h>
#define ZV_FIND_AVX2 1
#endif

namespace zv {

namespace {
#ifdef _WIN32
// Bytes as they are: the C runtime would otherwise turn CR LF into LF.
constexpr int kOpenFlags = O_RDONLY | O_BINARY;
#else
constexpr int kOpenFlags = O_RDONLY | O_CLOEXEC | O_NONBLOCK;
#endif
#ifdef _WIN32
// The C library there has no memrchr.
const void* memrchr(const void* s, int c, size_t n) {
  const auto* p = static_cast<const unsigned char*>(s);
  while (n > 0)
    if (p[--n] == static_cast<unsigned char>(c))
      return p + n;
  return nullptr;
}
#endif
// Large enough that a 16 MiB file is a handful of reads.
constexpr size_t kBlockSize = size_t{1} << 20;
constexpr size_t kMinBlockSize = 4096;
} // namespace

bool fileExists(const std::string& path) {
  struct stat st {};
  return !path.empty() && ::stat(path.c_str(), &st) == 0 && S_ISREG(st.st_mode);
}

LineReader::LineReader(const std::string& path) {
  // Without blocking, so a FIFO is refused below instead of waiting for a writer.
  fd_ = path.empty() ? -1 : ::open(path.c_str(), kOpenFlags);
  if (fd_ < 0) {
    if (!path.empty() && errno != ENOENT && errno != ENOTDIR)
      raise(errPathAccess);
    raise(errFileNotFound);
  }
  struct stat st {};
  if (::fstat(fd_, &st) != 0 || !S_ISREG(st.st_mode)) {
    close();
    raise(errPathAccess);
  }
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
    raise(errBadFileNameOrNumber); // the channel is not open
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
  const size_t start = out.size();
  // Each line shrinks or keeps its length, so the text fits in its own size.
  out.resize(start + static_cast<size_t>(to - from));
  char* dest = out.data() + start;
  constexpr uint64_t kOnes = 0x0101010101010101u;
  // Eight bytes at a time, a word's first CR found by its bits: lines are
  // short, and a memchr and a memcpy per line cost more than their bytes.
  while (std::endian::native == std::endian::little && to - from >= 8) {
    uint64_t word;
    std::memcpy(&word, from, 8);
    std::memcpy(dest, &word, 8); // dest never runs ahead of from
    const uint64_t x = word ^ (kOnes * '\r');
    const uint64_t crs = (x - kOnes) & ~x & (kOnes * 0x80);
    if (!crs) {
      dest += 8;
      from += 8;
      continue;
    }
    const int at = std::countr_zero(crs) / 8; // exact for the lowest CR
    dest[at] = '\n';
    dest += at + 1;
    from += at + 1;
    if (from < to && *from == '\n')
      ++from;
  }
  while (from < to) {
    const char c = *from++;
    if (c != '\r') {
      *dest++ = c;
      continue;
    }
    *dest++ = '\n';
    if (from < to && *from == '\n')
      ++from;
  }
  out.resize(static_cast<size_t>(dest - out.data()));
}

#if defined(ZV_FIND_AVX2)
// findText's test below, thirty-two places at a time; `at` is left where the
// places that remain are fewer.
__attribute__((target("avx2"))) const char* findText32(const char*& at, const char* last,
                                                       std::string_view text) {
  const size_t n = text.size();
  const __m256i first = _mm256_set1_epi8(text.front());
  const __m256i end = _mm256_set1_epi8(text.back());
  for (; last - at >= 31; at += 32) {
    const __m256i heads = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(at));
    const __m256i tails = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(at + n - 1));
    auto candidates = static_cast<unsigned>(_mm256_movemask_epi8(
        _mm256_and_si256(_mm256_cmpeq_epi8(heads, first), _mm256_cmpeq_epi8(tails, end))));
    for (; candidates; candidates &= candidates - 1) {
      const char* start = at + std::countr_zero(candidates);
      if (std::memcmp(start + 1, text.data() + 1, n - 2) == 0)
        return start;
    }
  }
  return nullptr;
}

bool hasAvx2() {
  static const bool has = __builtin_cpu_supports("avx2");
  return has;
}
#endif

// The first place of `text` in [from, to). Sixteen places at a time (32 with
// AVX2) are tested on the text's first and last bytes together, which C text
// seldom matches both; memmem's byte pairs and a memchr per candidate crawl.
const char* findText(const char* from, const char* to, std::string_view text) {
  const size_t n = text.size();
  if (n == 0 || static_cast<size_t>(to - from) < n)
    return nullptr;
  const char* last = to - n; // the last place the text fits
  const char* at = from;
#if defined(ZV_FIND_AVX2)
  if (n >= 2 && hasAvx2())
    if (const char* hit = findText32(at, last, text))
      return hit;
#endif
#if defined(__SSE2__)
  if (n >= 2) {
    const __m128i first = _mm_set1_epi8(text.front());
    const __m128i end = _mm_set1_epi8(text.back());
    for (; last - at >= 15; at += 16) {
      const __m128i heads = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
      const __m128i tails = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at + n - 1));
      auto candidates = static_cast<unsigned>(_mm_movemask_epi8(
          _mm_and_si128(_mm_cmpeq_epi8(heads, first), _mm_cmpeq_epi8(tails, end))));
      for (; candidates; candidates &= candidates - 1) {
        const char* start = at + std::countr_zero(candidates);
        if (std::memcmp(start + 1, text.data() + 1, n - 2) == 0)
          return start;
      }
    }
  }
#endif
  while (at <= last) {
    const auto* hit =
        static_cast<const char*>(std::memchr(at, text.front(), static_cast<size_t>(last - at) + 1));
    if (!hit)
      return nullptr;
    if (std::memcmp(hit, text.data(), n) == 0)
      return hit;
    at = hit + 1;
  }
  return nullptr;
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
        const char* hit = findText(from, lastCr, line);
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
