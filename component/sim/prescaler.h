// The prescaler table: code (list index, macro parameter, "%b" in C code),
// the Prescaler value saved and held in iPrescaler, and the list text.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

namespace zv {

struct PrescalerEntry {
  int16_t code;
  int16_t value;
  const char* text;
};

inline constexpr std::array<PrescalerEntry, 8> kPrescalers{{
    {0, -1, "No clock source"},
    {1, 1, "clk / 1"},
    {2, 8, "clk / 8"},
    {3, 64, "clk / 64"},
    {4, 256, "clk / 256"},
    {5, 1024, "clk / 1024"},
    {6, -2, "External - falling edge"},
    {7, -3, "External - rising edge"},
}};

// What a Prescaler value makes the counter count: a clock divided by the
// value, nothing, or pulses on the external pin. The timing model and the
// page's read-out both branch on it, each with its own constants; a value the
// table doesn't hold counts as its sign says.
enum class ClockSource { Divided, None, External };

constexpr ClockSource clockSourceOf(int16_t value) {
  if (value > 0)
    return ClockSource::Divided;
  return value == -1 ? ClockSource::None : ClockSource::External;
}

// The code of a Prescaler value; nullopt for a value the table doesn't hold.
inline std::optional<int16_t> prescalerCode(int16_t value) {
  for (const auto& e : kPrescalers)
    if (e.value == value)
      return e.code;
  return std::nullopt;
}

} // namespace zv
