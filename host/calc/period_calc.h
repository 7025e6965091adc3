// The inverse of the PWM timing: from a wanted period (and perhaps a duty)
// to the period register and clock source that come closest on the chip.
// The chip runs Timer1 in fast PWM with TOP = ICR1 = 2 x PR + 1, so one period
// is 2 x (PR + 1) x N clock cycles and a duty of d counts is high for
// 2 x d x N of them.
#pragma once

#include <cstdint>
#include <vector>

namespace zvhost {

enum class DutyUnit { None, Percent, Microseconds };

struct PeriodRequest {
  double clockHz = 0;  // the target's clock
  double periodUs = 0; // the wanted period
  DutyUnit dutyUnit = DutyUnit::None;
  double duty = 0; // in dutyUnit
};

struct PeriodSetting {
  int pr2 = 0;             // period register, 0..255
  int code = 0;            // clock source code: 1 clk / 1 ... 5 clk / 1024
  int prescaler = 0;       // N of that code
  uint64_t cycles = 0;     // one period in clock cycles
  double periodUs = 0;     // what the chip gives
  double errorPercent = 0; // (given - wanted) / wanted x 100
  int duty = -1;           // duty register for the asked duty; -1 when none was asked
  double dutyPercent = 0;  // what that duty gives
  double highUs = 0;
};

// One setting per divided clock source, each with the register closest to the
// wanted period, best first (smallest error; on a tie the finer register).
// Empty when the clock or the period is not above 0.
std::vector<PeriodSetting> closestSettings(const PeriodRequest& request);

// The prescaler N of a clock source code 1..5; 0 for any other code.
int prescalerOfCode(int code);

} // namespace zvhost
