#include "fixture.h"

namespace zvtest {
namespace {

TEST_F(ComponentTest, PublicPropertiesByNameKeepTheirTypes) {
  auto pwm = createWith({});
  zv::Dispatch& d = pwm->publicInterface();
  struct Case {
    const char* name;
    zv::Variant put;
    zv::Variant read; // after the put
  };
  const std::vector<Case> cases{
      {"Pr2", zv::Variant::str("300"), zv::Variant::i2(300)},
      {"MaxPwm", zv::Variant::i4(9), zv::Variant::i4(0)},
      {"UseAltPin", zv::Variant::i2(1), zv::Variant::boolean(true)},
      {"ShowSim", zv::Variant::boolean(true), zv::Variant::boolean(true)},
      {"iVersionMajor", zv::Variant::i2(4), zv::Variant::i2(4)},
  };
  for (const Case& c : cases) {
    d.putProperty(c.name, c.put);
    EXPECT_EQ(d.getProperty(c.name), c.read) << c.name;
  }
  auto failsWith = [](int number, auto&& f) {
    try {
      f();
      return false;
    } catch (const zv::RuntimeError& e) {
      return e.number() == number;
    }
  };
  EXPECT_TRUE(failsWith(6, [&] { d.putProperty("Pr2", zv::Variant::i4(40000)); }));
  std::vector<zv::Variant> none;
  EXPECT_TRUE(failsWith(438, [&] { d.callMethod("NoSuchThing", none); }));
}

TEST_F(ComponentTest, PublicMethodsWriteBackTheirInOutArguments) {
  auto pwm = createWith({"[Settings]", "Description=Fix"});
  zv::Dispatch& d = pwm->publicInterface();
  std::vector<zv::Variant> args{zv::Variant::str("Settings"), zv::Variant::str("Description"),
                                zv::Variant::i2(0)};
  EXPECT_EQ(d.callMethod("GetIniKeyValue", args), zv::Variant::str("Fix"));
  EXPECT_EQ(args[2], zv::Variant::str("0"));

  std::vector<zv::Variant> pin{zv::Variant::i2(0),  zv::Variant::str("P"), zv::Variant::i2(1),
                               zv::Variant::i2(-1), zv::Variant::i2(-1),   zv::Variant::i2(4),
                               zv::Variant::i2(0),  zv::Variant::i2(2),    zv::Variant::i2(0)};
  d.callMethod("setupAPin", pin);
  EXPECT_EQ(pwm->aPins[0]->PinName, "P");
  EXPECT_EQ(pwm->aPins[0]->PortMandatory, -1);
  EXPECT_EQ(pwm->aPins[0]->DesiredBit, 4);
  pin[0] = zv::Variant::i2(1);
  EXPECT_THROW(d.callMethod("setupAPin", pin), zv::RuntimeError);
}

} // namespace
} // namespace zvtest
