// The measured waveform of verify on chip as a Value Change Dump, which
// PulseView, GTKWave and sigrok-cli read: both pins from the chip's start to
// the end of the run, on a timescale no coarser than one clock cycle.
#pragma once

#include <string>

#include "verify.h"

namespace zvhost {

std::string vcdText(const Verification& v);
bool writeVcd(const Verification& v, const std::string& path, std::string& error);

// The timescale for a clock: the largest power of ten of seconds, down to a
// femtosecond, that is no longer than one cycle; as its exponent (-8: 10 ns).
int vcdExponent(int32_t hertz);

} // namespace zvhost
