// MacroCodeOverride on random text and settings. A filler of up to 64 KiB in
// front reaches the last position that can be handled. Success leaves no
// placeholder; the only failure is an overflow, with the text replaced so far.
#include <fuzzer/FuzzedDataProvider.h>

#include <array>

#include "platform/vbnum.h"
#include "sim/prescaler.h"
#include "support.h"

using namespace zv;

namespace {

// A placeholder at 1-based position 32766 or later can't be handled.
constexpr size_t kLimit = 32766;

// Rescans from the start after each replacement, as the rules say.
bool model(std::string& text, const std::array<std::string, 3>& values) {
  const char* placeholders[] = {"%a", "%b", "%d"};
  for (size_t i = 0; i < 3; ++i)
    for (size_t at = text.find(placeholders[i]); at != std::string::npos;
         at = text.find(placeholders[i])) {
      if (at + 1 >= kLimit)
        return false;
      text.replace(at, 2, values[i]);
    }
  return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static auto pwm = fuzz::makeComponent();
  FuzzedDataProvider in(data, size);
  pwm->iPr2 = in.ConsumeIntegral<int16_t>();
  pwm->iPrescaler = in.ConsumeBool() ? kPrescalers[in.ConsumeIntegralInRange(0, 7)].value
                                     : in.ConsumeIntegral<int16_t>();
  pwm->bUseAltPin = vbBool(in.ConsumeBool());
  pwm->iHasAltPin = in.ConsumeIntegral<int16_t>();
  // Blanks ending in one "%": the text may still complete a placeholder there,
  // and a search passes the filler at memchr's speed, with no compare per byte
  // for the fuzzer to trace.
  const size_t filler = in.ConsumeIntegral<uint8_t>() * size_t{256};
  const std::string original = (filler ? std::string(filler - 1, ' ') + '%' : std::string()) +
                               in.ConsumeRemainingBytesAsString();

  const int16_t code = prescalerCode(pwm->iPrescaler).value_or(1);
  const std::array<std::string, 3> values = {std::to_string(pwm->iPr2), std::to_string(code),
                                             std::to_string(pwm->bUseAltPin ? pwm->iHasAltPin : 0)};
  std::string expected = original;
  const bool expectOk = model(expected, values);

  std::string text = original;
  const Status status = pwm->MacroCodeOverride(text);
  fuzz::check(status.ok() == expectOk, "fails exactly when a placeholder lies too far");
  fuzz::check(status.ok() || status.number == 6, "the one failure is an overflow");
  fuzz::check(text == expected, "text holds the replacements made");
  if (status.ok())
    for (const char* p : {"%a", "%b", "%d"})
      fuzz::check(text.find(p) == std::string::npos, "no placeholder remains");
  return 0;
}
