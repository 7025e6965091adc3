#include "container_test.h"

#include <cstdio>

namespace zvtest {

int failures = 0;

void check(bool ok, const std::string& what) {
  std::printf("%s %s\n", ok ? "ok  " : "FAIL", what.c_str());
  std::fflush(stdout);
  failures += !ok;
}

HWND topWindow(const wchar_t* title, const RECT& place) {
  WNDCLASSW wc{};
  wc.lpfnWndProc = DefWindowProcW;
  wc.hInstance = GetModuleHandleW(nullptr);
  wc.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
  wc.lpszClassName = L"ZelvorTestContainer";
  RegisterClassW(&wc); // fails harmlessly from the second window on
  return CreateWindowW(wc.lpszClassName, title, WS_OVERLAPPEDWINDOW | WS_VISIBLE, place.left,
                       place.top, place.right - place.left, place.bottom - place.top, nullptr,
                       nullptr, wc.hInstance, nullptr);
}

void pump(int milliseconds) {
  const DWORD end = GetTickCount() + milliseconds;
  MSG m;
  while (GetTickCount() < end) {
    while (PeekMessageW(&m, nullptr, 0, 0, PM_REMOVE)) {
      TranslateMessage(&m);
      DispatchMessageW(&m);
    }
    Sleep(10);
  }
}

Picture::Picture(int w, int h) : width(w), height(h), dc(CreateCompatibleDC(nullptr)) {
  BITMAPINFO info{};
  info.bmiHeader = {sizeof(BITMAPINFOHEADER), w, -h, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, reinterpret_cast<void**>(&bits), nullptr, 0);
  SelectObject(dc, bitmap);
}

static SIZE sizeOf(HWND window) {
  RECT r{};
  GetWindowRect(window, &r);
  return {r.right - r.left, r.bottom - r.top};
}

Picture::Picture(HWND window) : Picture(sizeOf(window).cx, sizeOf(window).cy) {
  RECT r{};
  GetWindowRect(window, &r);
  HDC screen = GetDC(nullptr);
  BitBlt(dc, 0, 0, width, height, screen, r.left, r.top, SRCCOPY);
  ReleaseDC(nullptr, screen);
}

Picture::~Picture() {
  DeleteDC(dc);
  DeleteObject(bitmap);
}

bool Picture::save(const std::wstring& path) const {
  BITMAPFILEHEADER file{0x4d42, 0, 0, 0, sizeof(BITMAPFILEHEADER) + sizeof(BITMAPINFOHEADER)};
  BITMAPINFOHEADER header{sizeof header, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  const DWORD bytes = static_cast<DWORD>(width * height * 4);
  file.bfSize = file.bfOffBits + bytes;
  FILE* out = _wfopen(path.c_str(), L"wb");
  if (!out)
    return false;
  std::fwrite(&file, sizeof file, 1, out);
  std::fwrite(&header, sizeof header, 1, out);
  std::fwrite(bits, bytes, 1, out);
  return std::fclose(out) == 0;
}

int Picture::count(DWORD rgb) const {
  int n = 0;
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x)
      n += at(x, y) == rgb;
  return n;
}

bool snapshot(HWND window, const std::wstring& path) {
  return Picture(window).save(path);
}

} // namespace zvtest
