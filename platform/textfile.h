// Files as the component sees them: an existence test and a sequential read
// by lines. Lines end in CR LF or a lone CR; a lone LF ends no line and stays
// in the line's text. The reader is a move-only owner: open or visibly closed.
#pragma once

#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

namespace zv {

// True when a regular file exists at path (a folder is no file).
bool fileExists(const std::string& path);

class LineReader {
public:
  LineReader() = default;
  // Raises 53 (file not found) or 75 (path/file access) when it can't open.
  explicit LineReader(const std::string& path);
  LineReader(LineReader&& other) noexcept;
  LineReader& operator=(LineReader&& other) noexcept;
  LineReader(const LineReader&) = delete;
  LineReader& operator=(const LineReader&) = delete;
  ~LineReader();

  bool isOpen() const { return fd_ >= 0; }
  bool eof() { return pos_ >= len_ && atEnd(); }
  // The next line without its line end; raises 62-style errors past the end.
  std::string readLine();
  // The same into line, whose capacity is reused.
  void readLine(std::string& line);
  // The same as a view into the reader's buffer, valid until the next read or close.
  std::string_view readLineView() {
    // Inline for the common line, inside the block with the byte after its CR.
    if (pos_ < len_) {
      const char* start = buffer_.get() + pos_;
      const auto* cr = static_cast<const char*>(std::memchr(start, '\r', len_ - pos_));
      if (cr && cr + 1 < buffer_.get() + len_) {
        const size_t n = static_cast<size_t>(cr - start);
        pos_ += n + (cr[1] == '\n' ? 2 : 1);
        return {start, n};
      }
    }
    return readLineAcross();
  }
  // Passes lines up to and including the next one equal to line; false when
  // the file ends first. Searches the block instead of reading line by line.
  // The lines passed before it are added to passed, if given, each with an LF.
  bool skipToLine(std::string_view line, std::string* passed = nullptr);
  void close();

private:
  // eof() once the block is used up: refills it, raises when closed.
  bool atEnd();
  // A line that ends past the block, or the file's last line.
  std::string_view readLineAcross();
  // Refills the block buffer; false at the end of the file.
  bool fill();
  int fd_ = -1;
  std::unique_ptr<char[]> buffer_;
  size_t pos_ = 0;
  size_t size_ = 0; // of buffer_
  size_t len_ = 0;
  bool drained_ = false; // the last read came back short: the file has ended
  std::string carry_; // a line that runs across blocks
};

} // namespace zv
