#include "binding.h"

namespace zvwin {

namespace {
ErrorReporter& installed() {
  static ErrorReporter reporter;
  return reporter;
}
} // namespace

void setErrorReporter(ErrorReporter reporter) {
  installed() = std::move(reporter);
}

void reportError(int number, const std::string& description) {
  if (installed())
    installed()(number, description);
}

double pixelsPerTwip(HWND window) {
  HDC dc = GetDC(window);
  const int dpi = dc ? GetDeviceCaps(dc, LOGPIXELSY) : 96;
  if (dc)
    ReleaseDC(window, dc);
  return (dpi > 0 ? dpi : 96) / 1440.0;
}

HINSTANCE thisModule() {
  HMODULE module = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                         GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     reinterpret_cast<LPCWSTR>(&thisModule), &module);
  return module;
}

} // namespace zvwin
