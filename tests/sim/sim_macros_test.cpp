#include <gtest/gtest.h>

#include "fixture.h"
#include "platform/errors.h"

namespace {

using zv::Variant;
using zvtest::SimObject;

using zvtest::ints;
using zvtest::params;

struct Call {
  zv::Status status;
  int32_t retVal = 77;
  Variant affected = Variant::str("kept");
  int32_t cycles = 99;
};

Call call(zv::PWM& p, int32_t id, const Variant& vParams) {
  Call c;
  c.status = p.SimMacroCall(id, vParams, c.retVal, c.affected, c.cycles);
  return c;
}

struct State {
  int16_t on0, on1, duty0, duty1, pr2, prescaler;
  bool operator==(const State&) const = default;
};

State stateOf(const zv::PWM& p) {
  return {p.aChannelOn[0], p.aChannelOn[1], p.aDuty[0], p.aDuty[1], p.iPr2, p.iPrescaler};
}

TEST(SimMacros, EachMacroChangesItsStateAndAnswersZero) {
  struct Case {
    const char* what;
    int16_t pwmCount;
    int32_t id;
    std::initializer_list<int32_t> args;
    State after; // from on 0/-1, duty 10/20, pr2 255, prescaler 1
  } cases[] = {
      {"enable 1", 2, 0, {1}, {-1, -1, 10, 20, 255, 1}},
      {"disable 1", 2, 1, {1}, {0, -1, 10, 20, 255, 1}},
      {"enable 1 without channels", 0, 0, {1}, {0, -1, 10, 20, 255, 1}},
      {"enable 3", 2, 0, {3}, {0, -1, 10, 20, 255, 1}},
      {"duty 1", 2, 2, {1, 128}, {0, -1, 128, 20, 255, 1}},
      {"duty 2", 2, 2, {2, 255}, {0, -1, 10, 255, 255, 1}},
      {"duty 2 on one channel", 1, 2, {2, 5}, {0, -1, 10, 20, 255, 1}},
      {"period clk/64", 2, 3, {99, 3}, {0, -1, 10, 20, 99, 64}},
      {"period external", 2, 3, {7, 7}, {0, -1, 10, 20, 7, -3}},
      {"period code 8", 2, 3, {0, 8}, {0, -1, 10, 20, 0, 1}},
      {"high/low 1:0", 2, 4, {1, 1, 0}, {0, -1, 64, 20, 255, 1}},
      {"high/low 7:0", 2, 4, {2, 7, 0}, {0, -1, 10, 192, 255, 1}},
      {"high/low 0:3", 2, 4, {1, 0, 3}, {0, -1, 0, 20, 255, 1}},
      {"high/low 3:255", 2, 4, {1, 3, 255}, {0, -1, 255, 20, 255, 1}},
      {"high/low negative high", 2, 4, {1, -1, 4}, {0, -1, 193, 20, 255, 1}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    SimObject o(5, c.pwmCount);
    zv::PWM& p = *o.pwm;
    p.aChannelOn[1] = -1;
    p.aDuty[0] = 10;
    p.aDuty[1] = 20;
    const Call r = call(p, c.id, ints(c.args));
    ASSERT_TRUE(r.status.ok()) << r.status.description;
    EXPECT_EQ(stateOf(p), c.after);
    EXPECT_EQ(r.retVal, 0);
    EXPECT_EQ(r.affected, Variant::str("kept"));
    EXPECT_EQ(r.cycles, 99);
  }
}

// Numbers outside the table answer nothing; without a table (no version
// call) or with bad parameters the call fails. Nothing changes, nothing is drawn.
TEST(SimMacros, CallsThatChangeNothing) {
  struct Case {
    const char* what;
    int macroCount;
    int32_t id;
    Variant vParams;
    int number;
  } cases[] = {
      {"sixth of six", 6, 5, ints({1, 1}), 0},
      {"minus one", 5, -1, ints({1, 1}), 0},
      {"sixth of five", 5, 5, ints({1, 1}), 0},
      {"fourth of three", 3, 3, ints({1, 1}), 0},
      {"no table", 0, 0, ints({1}), zv::errSubscript},
      {"code after a good period", 5, 3, ints({10, 256}), zv::errOverflow},
      {"low part 256", 5, 4, ints({1, 0, 256}), zv::errOverflow},
      {"high part too big", 5, 4, params({Variant::i4(1), Variant::r8(1e10), Variant::i4(0)}),
       zv::errOverflow},
      {"high part text", 5, 4, params({Variant::i4(1), Variant::str("x"), Variant::i4(0)}),
       zv::errTypeMismatch},
      {"duty after a good channel", 5, 2, params({Variant::i4(1), Variant::str("")}),
       zv::errTypeMismatch},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    SimObject o(c.macroCount);
    zv::PWM& p = *o.pwm;
    p.Pic_Graph0.Print("before");
    const auto ops = p.Pic_Graph0.ops().size();
    const Call r = call(p, c.id, c.vParams);
    EXPECT_EQ(r.status.number, c.number);
    EXPECT_EQ(r.retVal, 77);
    EXPECT_EQ(stateOf(p), (State{0, 0, 0, 0, 255, 1}));
    EXPECT_EQ(p.Pic_Graph0.ops().size(), ops) << "redrawn";
  }
}

TEST(SimMacros, HighPartIsRoundedBeforeTheMask) {
  SimObject o;
  zv::PWM& p = *o.pwm;
  // 2.5 rounds to 2 (half to even), and "5" reads as 5, of which 1 counts.
  ASSERT_TRUE(call(p, 4, params({Variant::i4(1), Variant::r8(2.5), Variant::i4(8)})).status.ok());
  EXPECT_EQ(p.aDuty[0], 130);
  ASSERT_TRUE(call(p, 4, params({Variant::i4(1), Variant::str("5"), Variant::i4(0)})).status.ok());
  EXPECT_EQ(p.aDuty[0], 64);
}

TEST(SimMacros, StartClearsChannelsAndStopKeepsThem) {
  SimObject o;
  zv::PWM& p = *o.pwm;
  int32_t simulating = 1;
  ASSERT_TRUE(p.get_IsSimulating(simulating).ok());
  EXPECT_EQ(simulating, 0);

  p.aChannelOn[0] = -1;
  ASSERT_TRUE(p.StopSimulation().ok()); // a stop without a start clears nothing
  EXPECT_EQ(p.aChannelOn[0], -1);

  p.aDuty[1] = 42;
  ASSERT_TRUE(p.StartSimulation().ok());
  p.get_IsSimulating(simulating);
  EXPECT_EQ(simulating, -1);
  EXPECT_EQ(stateOf(p), (State{0, 0, 0, 42, 255, 1}));

  call(p, 0, ints({2}));
  call(p, 3, ints({9, 5}));
  ASSERT_TRUE(p.StopSimulation().ok());
  p.get_IsSimulating(simulating);
  EXPECT_EQ(simulating, 0);
  // The period a macro set stays in the settings.
  EXPECT_EQ(stateOf(p), (State{0, -1, 0, 42, 9, 1024}));
}

} // namespace
