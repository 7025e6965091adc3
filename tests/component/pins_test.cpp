#include "fixture.h"

namespace zvtest {
namespace {

// Slot 0 holds the placeholder record; other ids answer zero.
TEST_F(ComponentTest, PlaceholderPinAnswersInsideAndOutsideTheTable) {
  auto pwm = createWith({"[Pins]", "Count=0"});
  using Get = zv::Status (zv::PWM::*)(int32_t, int32_t&);
  struct Case {
    const char* what;
    Get get;
    int32_t id, expected;
  };
  const std::vector<Case> cases{{"Direction", &zv::PWM::get_Direction, 1, 0},
                                {"Port", &zv::PWM::get_Port, 0, -1},
                                {"Port", &zv::PWM::get_Port, 1, 0},
                                {"Bit", &zv::PWM::get_Bit, 0, -1},
                                {"SamePortAsID", &zv::PWM::get_SamePortAsID, -1, 0}};
  for (const Case& c : cases) {
    int32_t answer = 99;
    ASSERT_TRUE(((*pwm).*c.get)(c.id, answer).ok()) << c.what << c.id;
    EXPECT_EQ(answer, c.expected) << c.what << c.id;
  }
  std::string name = "x";
  ASSERT_TRUE(pwm->get_PinName(-1, name).ok());
  EXPECT_EQ(name, "");
}

TEST_F(ComponentTest, ConnectedOKNeedsPortAndBitOtherThanMinusOne) {
  auto pwm = createWith({});
  struct Case {
    int32_t port, bit, expected;
  };
  for (const Case& c :
       {Case{-1, -1, 0}, Case{0, -1, 0}, Case{0, 0, -1}, Case{-2, 5, -1}, Case{-1, 5, 0}}) {
    ASSERT_TRUE(pwm->put_Port(0, c.port).ok());
    ASSERT_TRUE(pwm->put_Bit(0, c.bit).ok());
    int32_t ok = 7;
    ASSERT_TRUE(pwm->get_ConnectedOK(ok).ok());
    EXPECT_EQ(ok, c.expected) << c.port << "," << c.bit;
  }
}

TEST_F(ComponentTest, PinCountsOtherThanZero) {
  {
    // A positive count leaves its slots without records.
    auto pwm = createWith({"[Pins]", "Count=2"});
    EXPECT_EQ(pwm->aPins.ubound(), 2);
    std::string name;
    int32_t answer = 0;
    EXPECT_EQ(pwm->get_PinName(0, name).number, zv::errObjectNotSet);
    EXPECT_EQ(pwm->get_ConnectedOK(answer).number, zv::errObjectNotSet);
    zv::Variant levels;
    EXPECT_EQ(pwm->SimReadPins(levels).number, zv::errObjectNotSet);
  }
  for (const char* bad : {"Count=-1", "Count=two"}) {
    writeCode({"[Pins]", bad});
    EXPECT_THROW(create(), zv::RuntimeError) << bad;
  }
}

} // namespace
} // namespace zvtest
