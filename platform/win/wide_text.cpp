#include "wide_text.h"

#include <windows.h>

namespace zv {

namespace {
constexpr UINT kWindows1252 = 1252;
}

std::wstring wideFrom1252(const std::string& text) {
  if (text.empty())
    return {};
  const int n =
      MultiByteToWideChar(kWindows1252, 0, text.data(), static_cast<int>(text.size()), nullptr, 0);
  std::wstring wide(static_cast<size_t>(n), L'\0');
  MultiByteToWideChar(kWindows1252, 0, text.data(), static_cast<int>(text.size()), wide.data(), n);
  return wide;
}

std::string narrowTo1252(const wchar_t* text, size_t length) {
  if (length == 0)
    return {};
  const int n = WideCharToMultiByte(kWindows1252, 0, text, static_cast<int>(length), nullptr, 0,
                                    "?", nullptr);
  std::string narrow(static_cast<size_t>(n), '\0');
  WideCharToMultiByte(kWindows1252, 0, text, static_cast<int>(length), narrow.data(), n, "?",
                      nullptr);
  return narrow;
}

} // namespace zv
