// The component's Windows-1252 bytes as the UTF-16 text of the system's wide
// functions, and back.
#pragma once

#include <cstddef>
#include <string>

namespace zv {

// A character that code page lacks becomes '?'.
std::wstring wideFrom1252(const std::string& text);
std::string narrowTo1252(const wchar_t* text, size_t length);

} // namespace zv
