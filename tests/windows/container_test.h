// What the container tests share: checks that print their verdict, a message
// pump, and pictures of device contexts and of windows as the screen shows them.
#pragma once

#include <windows.h>

#include <string>

namespace zvtest {

extern int failures;
void check(bool ok, const std::string& what);

template <class I> I* as(IUnknown* object, REFIID iid) {
  I* face = nullptr;
  return SUCCEEDED(object->QueryInterface(iid, reinterpret_cast<void**>(&face))) ? face : nullptr;
}

// A visible top-level window that paints its background and nothing else.
HWND topWindow(const wchar_t* title, const RECT& place);

// Dispatches the thread's messages for a while.
void pump(int milliseconds);

// The 32-bit pixels of a DIB section, top row first.
struct Picture {
  int width = 0, height = 0;
  HDC dc = nullptr;
  HBITMAP bitmap = nullptr;
  DWORD* bits = nullptr;
  Picture(int w, int h);
  explicit Picture(HWND window); // the window's pixels as the screen shows them
  ~Picture();
  Picture(const Picture&) = delete;
  Picture& operator=(const Picture&) = delete;
  DWORD at(int x, int y) const { return bits[y * width + x] & 0xffffff; }
  bool save(const std::wstring& path) const; // as a BMP file
  int count(DWORD rgb) const;                // the pixels of that colour
};

// A window's pixels as the screen shows them, saved as a BMP file.
bool snapshot(HWND window, const std::wstring& path);

} // namespace zvtest
