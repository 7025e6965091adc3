#include "fixture.h"

namespace zvtest {
namespace {

std::vector<std::string> keys(const zv::PropertyBag& bag) {
  std::vector<std::string> out;
  for (const auto& [name, value] : bag.entries())
    out.push_back(name + ":" + zv::varTypeName(value.type()));
  return out;
}

TEST_F(ComponentTest, SaveWritesEveryKeyInOrderWithItsType) {
  auto pwm = createWith({});
  ASSERT_TRUE(pwm->InitProperties().ok());
  zv::PropertyBag bag;
  ASSERT_TRUE(pwm->WriteProperties(bag).ok());
  EXPECT_EQ(keys(bag),
            (std::vector<std::string>{"Port0:I4", "Bit0:I4", "Pr2:I2", "Prescaler:I2", "PWM_No:I2",
                                      "ClockSpeed:I4", "UseAltPin:BOOL", "HasAltPin:I2",
                                      "Label1:BSTR", "Label2:BSTR", "ShowSim:BOOL"}));
  EXPECT_EQ(bag.ReadProperty("PWM_No", {}), zv::Variant::i2(0));
  EXPECT_EQ(bag.ReadProperty("Label1", {}), zv::Variant::str("CCP1"));
}

TEST_F(ComponentTest, LoadRestoresSettingsButNotHostValues) {
  auto saved = createWith({});
  ASSERT_TRUE(saved->InitProperties().ok());
  ASSERT_TRUE(saved->put_Port(0, 1).ok());
  ASSERT_TRUE(saved->put_Bit(0, 3).ok());
  saved->setPr2(300);
  saved->setPrescaler(5);
  saved->setUseAltPin(-1);
  saved->setLabel2("Motor");
  saved->setShowSim(0);
  saved->iHasAltPin = 1;
  ASSERT_TRUE(saved->put_ClockSpeed(8000000).ok());
  zv::PropertyBag bag;
  ASSERT_TRUE(saved->WriteProperties(bag).ok());

  auto loaded = createWith({});
  ASSERT_TRUE(loaded->ReadProperties(bag).ok());
  EXPECT_EQ(loaded->aPins[0]->Port, 1);
  EXPECT_EQ(loaded->aPins[0]->Bit, 3);
  EXPECT_EQ(loaded->iPr2, 300);
  EXPECT_EQ(loaded->iPrescaler, 5);
  EXPECT_EQ(loaded->iPwmNo, 0);
  EXPECT_EQ(loaded->PWM_No(), -1);
  EXPECT_EQ(loaded->bUseAltPin, -1);
  EXPECT_EQ(loaded->sLabel1, "CCP1");
  EXPECT_EQ(loaded->sLabel2, "Motor");
  EXPECT_EQ(loaded->bShowSim, 0);
  EXPECT_EQ(loaded->lClockSpeed, 0);
  EXPECT_EQ(loaded->iHasAltPin, 0);

  zv::PropertyBag again;
  ASSERT_TRUE(loaded->WriteProperties(again).ok());
  zv::PropertyBag twice;
  ASSERT_TRUE(loaded->WriteProperties(twice).ok());
  EXPECT_EQ(again.entries(), twice.entries());
}

TEST_F(ComponentTest, EmptyBagGivesTheLoadDefaults) {
  auto pwm = createWith({});
  zv::PropertyBag empty;
  ASSERT_TRUE(pwm->ReadProperties(empty).ok());
  EXPECT_EQ(pwm->aPins[0]->Port, -1);
  EXPECT_EQ(pwm->iPr2, 255);
  EXPECT_EQ(pwm->iPrescaler, 1);
  EXPECT_EQ(pwm->iPwmNo, 1);
  EXPECT_EQ(pwm->bUseAltPin, 0);
  EXPECT_EQ(pwm->sLabel1, "");
  EXPECT_EQ(pwm->bShowSim, -1);
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
      {"ClockSpeed", zv::Variant::str("fast"), zv::errTypeMismatch, 100, 9},
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
