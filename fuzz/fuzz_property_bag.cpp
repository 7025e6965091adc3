// A load from a bag of random keys, types and values. A model walks the keys
// in their order: each converts or fails, and a period register or prescaler
// whose period can't be worked out fails after it has been stored. The load
// must fail exactly there, with every key before it applied and none after.
#include <fuzzer/FuzzedDataProvider.h>

#include <functional>
#include <optional>

#include "pins/pin_slot.h"
#include "platform/propbag.h"
#include "platform/vbnum.h"
#include "support.h"

using namespace zv;

namespace {

struct Settings {
  int32_t port = 0, bit = 0;
  int16_t pr2 = 0, prescaler = 0, pwmNo = 0, useAltPin = 0, showSim = 0;
  std::string label1, label2;
  int32_t clock = 0;
  int16_t hasAltPin = 0;
  bool operator==(const Settings&) const = default;
};

Settings settingsOf(PWM& p) {
  return {pinRecord(p.aPins, 0).Port,
          pinRecord(p.aPins, 0).Bit,
          p.iPr2,
          p.iPrescaler,
          p.iPwmNo,
          p.bUseAltPin,
          p.bShowSim,
          p.sLabel1,
          p.sLabel2,
          p.lClockSpeed,
          p.iHasAltPin};
}

// The period overflows 16 bits unless there is no clock source.
bool periodFails(int16_t pr2, int16_t prescaler, int16_t divider) {
  const int32_t cycles = (int32_t{pr2} + 1) * divider;
  return prescaler != -1 && (pr2 == 32767 || cycles < -32768 || cycles > 32767);
}

// The expected settings after the load, and whether it succeeds.
std::pair<Settings, bool> model(const PropertyBag& bag, Settings s, int16_t divider) {
  using Step = std::function<bool(Settings&)>; // false: the period fails
  auto read = [&](const char* name, const Variant& d) { return bag.ReadProperty(name, d); };
  const std::vector<Step> steps = {
      [&](Settings& x) { return x.port = toI4(read("Port0", Variant::i4(-1))), true; },
      [&](Settings& x) { return x.bit = toI4(read("Bit0", Variant::i4(-1))), true; },
      [&](Settings& x) {
        x.pr2 = toI2(read("Pr2", Variant::i2(255)));
        return !periodFails(x.pr2, x.prescaler, divider);
      },
      [&](Settings& x) {
        x.prescaler = toI2(read("Prescaler", Variant::i2(1)));
        return !periodFails(x.pr2, x.prescaler, divider);
      },
      [&](Settings& x) { return x.pwmNo = toI2(read("PWM_No", Variant::i2(1))), true; },
      [&](Settings&) { return toI4(read("ClockSpeed", Variant::i4(19660800))), true; },
      [&](Settings& x) {
        return x.useAltPin = vbBool(toBool(read("UseAltPin", Variant::boolean(false)))), true;
      },
      [&](Settings&) { return toI2(read("HasAltPin", Variant::boolean(false))), true; },
      [&](Settings& x) { return x.label1 = toStr(read("Label1", Variant::str(x.label1))), true; },
      [&](Settings& x) { return x.label2 = toStr(read("Label2", Variant::str(x.label2))), true; },
      [&](Settings& x) {
        return x.showSim = vbBool(toBool(read("ShowSim", Variant::boolean(true)))), true;
      },
  };
  for (const Step& step : steps) {
    Settings next = s;
    try {
      if (!step(next))
        return {next, false};
    } catch (const RuntimeError&) {
      return {s, false};
    }
    s = next;
  }
  return {s, true};
}

const char* const kKeys[] = {"Port0",  "Bit0",       "Pr2",       "Prescaler",
                             "PWM_No", "ClockSpeed", "UseAltPin", "HasAltPin",
                             "Label1", "Label2",     "ShowSim"};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static auto pwm = fuzz::makeComponent();
  FuzzedDataProvider in(data, size);
  if (in.ConsumeBool())
    pwm->InitProperties();
  pwm->iClockDivider =
      in.PickValueInArray<int16_t>({0, 1, 2, 4, 300, in.ConsumeIntegral<int16_t>()});
  pwm->iPrescaler = in.PickValueInArray<int16_t>({-1, 1, 8, 1024});
  pwm->iPr2 = 255;

  PropertyBag bag;
  for (int n = in.ConsumeIntegralInRange(0, 14); n > 0; --n) {
    std::string name =
        in.ConsumeBool() ? in.PickValueInArray(kKeys) : in.ConsumeRandomLengthString(10);
    if (in.ConsumeBool())
      for (char& c : name)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    bag.WriteProperty(name, fuzz::randomVariant(in));
  }

  const Settings before = settingsOf(*pwm);
  const auto [expected, expectOk] = model(bag, before, pwm->iClockDivider);
  const Status status = pwm->ReadProperties(bag);
  fuzz::check(status.ok() == expectOk, "the load fails exactly where a key can't be taken");
  fuzz::check(settingsOf(*pwm) == expected, "keys before the failure applied, none after");
  return 0;
}
