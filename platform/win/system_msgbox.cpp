#include "system_msgbox.h"

#include <windows.h>

#include "wide_text.h"

namespace zv {

void SystemMessageBoxes::show(const std::string& text, const std::string& title) {
  const std::wstring caption = wideFrom1252(title.empty() ? defaultTitle_ : title);
  MessageBoxW(nullptr, wideFrom1252(text).c_str(), caption.c_str(), MB_OK);
}

} // namespace zv
