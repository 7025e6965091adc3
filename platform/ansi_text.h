// Text in the platform's ANSI code page, Windows-1252, beside UTF-8. Each of
// the 256 bytes is one character; the five bytes Windows-1252 leaves
// undefined stand for the control characters of the same number, so that any
// byte string converts to UTF-8 and back unchanged.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zv {

// Appends the UTF-8 form of ANSI text.
void appendUtf8FromAnsi(std::string& out, std::string_view ansi);
std::string utf8FromAnsi(std::string_view ansi);

// The well-formed UTF-8 character at the start of text (no overlong form,
// no surrogate, nothing past U+10FFFF) into c; answers its length in bytes,
// 0 when there is none.
size_t decodeUtf8(std::string_view text, char32_t& c);

// The ANSI text of UTF-8 text. False when the text is not well-formed UTF-8
// or holds a character Windows-1252 has no byte for; badAt then tells the
// byte offset of the first such character.
bool ansiFromUtf8(std::string_view utf8, std::string& ansi, size_t& badAt);

} // namespace zv
