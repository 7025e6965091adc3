// Sequences of simulated macro calls with random numbers and parameters. A
// failed call changes nothing: not the simulation state, not the period, not
// the panel, and none of the host's in/out arguments.
#include <fuzzer/FuzzedDataProvider.h>

#include "support.h"

using namespace zv;

namespace {

struct State {
  int16_t on0, on1, duty0, duty1, pr2, prescaler, simulating;
  float period;
  size_t ops0, ops1;
  bool operator==(const State&) const = default;
};

State stateOf(PWM& p) {
  return {p.aChannelOn[0],
          p.aChannelOn[1],
          p.aDuty[0],
          p.aDuty[1],
          p.iPr2,
          p.iPrescaler,
          p.bSimulating,
          p.fPeriod,
          p.Pic_Graph0.ops().size(),
          p.Pic_Graph1.ops().size()};
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  FuzzedDataProvider in(data, size);
  static auto withTable = [] {
    auto p = fuzz::makeComponent();
    p->put_ZelvorVersion(4);
    return p;
  }();
  static auto withoutTable = fuzz::makeComponent();
  PWM& pwm = in.ConsumeIntegralInRange(0, 7) == 0 ? *withoutTable : *withTable;
  pwm.iPwmCount = in.ConsumeIntegralInRange<int16_t>(0, 3);

  for (int calls = in.ConsumeIntegralInRange(1, 12); calls > 0 && in.remaining_bytes(); --calls) {
    switch (in.ConsumeIntegralInRange(0, 9)) {
    case 0:
      fuzz::check(pwm.StartSimulation().ok(), "start succeeds");
      continue;
    case 1:
      fuzz::check(pwm.StopSimulation().ok(), "stop succeeds");
      continue;
    default:
      break;
    }
    const int32_t id = in.ConsumeIntegralInRange(-2, 7);
    const Variant params = fuzz::randomVariant(in);
    const int32_t retIn = in.ConsumeIntegral<int32_t>();
    int32_t ret = retIn, cycles = 77;
    Variant affected = Variant::i4(-9);
    const State before = stateOf(pwm);
    const Status status = pwm.SimMacroCall(id, params, ret, affected, cycles);
    fuzz::check(affected == Variant::i4(-9) && cycles == 77, "in/out arguments untouched");
    if (!status.ok()) {
      fuzz::check(stateOf(pwm) == before, "a failed call changes nothing");
      fuzz::check(ret == retIn, "a failed call leaves the return value");
      fuzz::check(status.number == 6 || status.number == 9 || status.number == 13,
                  "a parameter fails with overflow, subscript or type mismatch");
      continue;
    }
    const bool runs =
        id >= 0 && id <= 4 && id >= pwm.aMacros.lbound() && id <= pwm.aMacros.ubound();
    fuzz::check(ret == (runs ? 0 : retIn), "a macro answers 0, an unknown number nothing");
    if (!runs)
      fuzz::check(stateOf(pwm) == before, "an unknown number changes nothing");
    for (int16_t d : {pwm.aDuty[0], pwm.aDuty[1], pwm.iPr2})
      fuzz::check(d >= 0 && d <= 255, "duty and register stay 0..255");
  }
  return 0;
}
