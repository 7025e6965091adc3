#include "fixture.h"

namespace zvtest {
namespace {

// The order and types of the saved keys, and a full round trip, are pinned by
// the container script; these are the load's defaults and its failures.
TEST_F(ComponentTest, EmptyBagGivesTheLoadDefaults) {
  auto pwm = createWith({});
  ASSERT_TRUE(pwm->put_Port(0, 3).ok());
  pwm->setPr2(9);
  pwm->setPrescaler(64);
  pwm->iPwmNo = 0;
  pwm->setUseAltPin(-1);
  pwm->setLabel1("kept");
  pwm->setShowSim(0);
  ASSERT_TRUE(pwm->put_ClockSpeed(8000000).ok());
  zv::PropertyBag empty;
  ASSERT_TRUE(pwm->ReadProperties(empty).ok());
  EXPECT_EQ(pwm->aPins[0]->Port, -1);
  EXPECT_EQ(pwm->iPr2, 255);
  EXPECT_EQ(pwm->iPrescaler, 1);
  EXPECT_EQ(pwm->iPwmNo, 1);
  EXPECT_EQ(pwm->bUseAltPin, 0);
  EXPECT_EQ(pwm->sLabel1, "kept");
  EXPECT_EQ(pwm->bShowSim, -1);
  EXPECT_EQ(pwm->lClockSpeed, 8000000); // the host's value, never loaded
}

TEST_F(ComponentTest, AValueThatDoesNotConvertStopsTheLoadAtItsKey) {
  struct Case {
    std::string key;
    zv::Variant value;
    int error;
    int16_t pr2, pwmNo; // after the failure
  };
  const std::vector<Case> cases{
      {"Bit0", zv::Variant::str("x"), zv::errTypeMismatch, 255, 0},
      {"Prescaler", zv::Variant::i4(70000), zv::errOverflow, 100, 0},
      {"ShowSim", zv::Variant::str("maybe"), zv::errTypeMismatch, 100, 9},
  };
  for (const Case& c : cases) {
    auto pwm = createWith({});
    zv::PropertyBag bag;
    bag.WriteProperty("Port0", zv::Variant::i4(2));
    bag.WriteProperty("Pr2", zv::Variant::i2(100));
    bag.WriteProperty("PWM_No", zv::Variant::i2(9));
    bag.WriteProperty(c.key, c.value);
    EXPECT_EQ(pwm->ReadProperties(bag).number, c.error) << c.key;
    EXPECT_EQ(pwm->aPins[0]->Port, 2) << c.key;
    EXPECT_EQ(pwm->iPr2, c.pr2) << c.key;
    EXPECT_EQ(pwm->iPwmNo, c.pwmNo) << c.key;
  }
}

} // namespace
} // namespace zvtest
