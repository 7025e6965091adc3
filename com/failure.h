// The one funnel from a failure to what a COM client reads: a run-time error
// number n becomes the HRESULT 0x800A0000 + n, and IErrorInfo (or EXCEPINFO,
// late-bound) carries its description.
#pragma once

#include <oaidl.h>

#include <string>
#include <type_traits>

#include "platform/funnel.h"
#include "zelvor/status.h"

namespace zvcom {

// The source a client reads in Err.Source.
inline constexpr wchar_t kErrorSource[] = L"Zelvor_AVR_PWM.PWM";

HRESULT hresultOf(int errorNumber);

// The HRESULT of a status; a failure also sets the thread's error info.
HRESULT report(const zv::Status& status, REFIID iid);

// Runs body, which answers a zv::Status or raises a run-time error; no C++
// exception leaves it.
template <class Body> HRESULT run(REFIID iid, Body&& body) noexcept {
  zv::Status status;
  try {
    if constexpr (std::is_void_v<decltype(body())>)
      body();
    else
      status = body();
  } catch (...) {
    status = zv::statusOfCurrentException();
  }
  return report(status, iid);
}

// Fills EXCEPINFO from a failed HRESULT and the thread's error info.
void fillException(HRESULT hr, EXCEPINFO* info);

} // namespace zvcom
