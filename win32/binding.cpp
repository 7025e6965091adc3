#include "binding.h"

namespace zvwin {

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
