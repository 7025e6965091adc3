// Writing the registration's keys under HKEY_CLASSES_ROOT, shared by the
// server's class and the control's keys.
#pragma once

#include <windows.h>

#include <objbase.h>
#include <string>

namespace zvcom {

inline std::wstring guidText(REFGUID guid) {
  wchar_t buffer[40];
  StringFromGUID2(guid, buffer, 40);
  return buffer;
}

// Sets a value (the default one when name is null) of key, creating the key.
inline bool setRegistryValue(const std::wstring& key, const wchar_t* name,
                             const std::wstring& value) {
  HKEY handle = nullptr;
  if (RegCreateKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &handle,
                      nullptr) != ERROR_SUCCESS)
    return false;
  const LONG result =
      RegSetValueExW(handle, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                     static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
  RegCloseKey(handle);
  return result == ERROR_SUCCESS;
}

} // namespace zvcom
