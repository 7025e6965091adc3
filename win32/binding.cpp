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

} // namespace zvwin
