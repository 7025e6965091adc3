#include "fixture.h"

namespace zvtest {
namespace {

TEST_F(ComponentTest, PlaceholderPinAnswersInsideAndOutsideTheTable) {
  auto pwm = createWith({"[Pins]", "Count=0"});
  using Get = zv::Status (zv::PWM::*)(int32_t, int32_t&);
  struct Case {
    const char* what;
    Get get;
    int32_t id, expected;
  };
  const std::vector<Case> cases{
      {"Direction", &zv::PWM::get_Direction, 0, 2},
      {"Direction", &zv::PWM::get_Direction, 1, 0},
      {"SimIODirection", &zv::PWM::get_SimIODirection, 0, 2},
      {"SimIODirection", &zv::PWM::get_SimIODirection, 7, 0},
      {"Port", &zv::PWM::get_Port, 0, -1},
      {"Port", &zv::PWM::get_Port, 1, 0},
      {"Bit", &zv::PWM::get_Bit, 0, -1},
      {"SamePortAsID", &zv::PWM::get_SamePortAsID, 0, -1},
      {"SamePortAsID", &zv::PWM::get_SamePortAsID, -1, 0},
      {"PortMandatory", &zv::PWM::get_PortMandatory, 0, 0},
      {"DesiredPort", &zv::PWM::get_DesiredPort, 0, 0},
  };
  for (const Case& c : cases) {
    int32_t answer = 99;
    ASSERT_TRUE(((*pwm).*c.get)(c.id, answer).ok()) << c.what << c.id;
    EXPECT_EQ(answer, c.expected) << c.what << c.id;
  }
  int32_t count = 9, port = 0;
  ASSERT_TRUE(pwm->get_PinCount(count).ok());
  EXPECT_EQ(count, 0);
  std::string name;
  ASSERT_TRUE(pwm->get_PinName(0, name).ok());
  EXPECT_EQ(name, "Pin A0");
  ASSERT_TRUE(pwm->get_PinName(-1, name).ok());
  EXPECT_EQ(name, "");
  EXPECT_EQ(pwm->get_DesiredPort(1, port).number, zv::errSubscript);
  ASSERT_TRUE(pwm->put_Port(5, 3).ok());
  ASSERT_TRUE(pwm->get_Port(5, port).ok());
  EXPECT_EQ(port, 0);
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

TEST_F(ComponentTest, PinExchangeWithoutPinsCarriesOneFalseLevel) {
  auto pwm = createWith({});
  zv::Variant levels = zv::Variant::i4(5);
  ASSERT_TRUE(pwm->SimReadPins(levels).ok());
  ASSERT_TRUE(levels.isArray());
  EXPECT_EQ(levels.vt(), 0x200B);
  EXPECT_EQ(levels.arr().ubound(), 0);
  EXPECT_EQ(levels.arr().at(0), zv::Variant::boolean(false));
  ASSERT_TRUE(pwm->SimWritePins(zv::Variant::str("anything")).ok());
  EXPECT_EQ(pwm->aPins[0]->SimValue, 0);

  int32_t size = 12;
  zv::Variant message;
  ASSERT_TRUE(pwm->get_VNodeMsgRead(3, size, message).ok());
  EXPECT_EQ(size, 0);
  EXPECT_EQ(message.vt(), 0x2011);
  EXPECT_EQ(message.arr().size(), 1u);
}

} // namespace
} // namespace zvtest
