// The profile-file functions, with the rules of the Windows ones
// (GetPrivateProfileStringA / GetPrivateProfileIntA). The file is read afresh
// on every call and is never written.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zv {

// Copies the key's value (or the default when the file, section or key is
// missing) into out, cut to size - 1 characters, and answers the count.
// `fileFound`, when given, tells whether path named a regular file: the
// system function's last error, without a second look at the path.
uint32_t getPrivateProfileString(std::string_view section, std::string_view key,
                                 std::string_view defaultValue, std::string& out, uint32_t size,
                                 const std::string& path, bool* fileFound = nullptr);

// The key's value read as a whole number; the default when the key is missing
// or empty. Wraps modulo 2^32 as the Windows function does.
int32_t getPrivateProfileInt(std::string_view section, std::string_view key, int32_t defaultValue,
                             const std::string& path);

} // namespace zv
