// Filling the user's settings into C code that the host passes through.
#include <array>
#include <string_view>

#include "../../platform/errors.h"
#include "../../platform/funnel.h"
#include "../core/pwm.h"
#include "../sim/prescaler.h"

namespace zv {

namespace {

// Positions are 16-bit: the text after an occurrence at this position can't be addressed.
constexpr size_t kFirstUnreachablePosition = 32766;

// Replaces every occurrence of placeholder in text, left to right. The result
// equals a rescan from the start after each replacement, because a replacement
// holds no "%" and so can't form a new placeholder. An occurrence at a 1-based
// position at or beyond the limit fails, leaving the replacements made so far.
void replaceAll(std::string& text, std::string_view placeholder, const std::string& value) {
  size_t at = text.find(placeholder);
  if (at == std::string::npos)
    return;
  std::string done;
  // Values are mostly one to three characters for two: half again is room enough.
  done.reserve(text.size() + text.size() / 2);
  size_t consumed = 0;
  for (; at != std::string::npos; at = text.find(placeholder, consumed)) {
    const size_t position = done.size() + (at - consumed) + 1;
    if (position >= kFirstUnreachablePosition) {
      text = done + text.substr(consumed);
      raise(errOverflow);
    }
    done.append(text, consumed, at - consumed);
    done += value;
    consumed = at + placeholder.size();
  }
  done.append(text, consumed, std::string::npos);
  text = std::move(done);
}

} // namespace

std::string PWM::FillPlaceholders(std::string& text) {
  const std::array<std::pair<std::string_view, std::string>, 3> replacements{{
      {"%a", std::to_string(iPr2)},
      {"%b", std::to_string(prescalerCode(iPrescaler).value_or(1))},
      {"%d", std::to_string(bUseAltPin != 0 ? iHasAltPin : 0)},
  }};
  for (const auto& [placeholder, value] : replacements)
    replaceAll(text, placeholder, value);
  return text;
}

Status PWM::MacroCodeOverride(std::string& pVal) {
  return guard([&] { pVal = FillPlaceholders(pVal); });
}

} // namespace zv
