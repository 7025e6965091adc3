// Files the host reads and writes for its user (bags, projects). A read takes
// only a regular file of bounded size and never waits on a pipe or a device.
// A write goes to a temporary file beside the target, which then replaces the
// target by a rename: a failure leaves what was there whole.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zvhost {

constexpr size_t kMaxReadBytes = size_t{16} << 20;

// False with error filled ("cannot read PATH: why") when it can't.
bool readRegularFile(const std::string& path, std::string& text, std::string& error,
                     size_t limit = kMaxReadBytes);
// False with error filled ("cannot write PATH: why") when it can't.
bool replaceFile(const std::string& path, std::string_view text, std::string& error);

} // namespace zvhost
