#include "fixture.h"

namespace zvtest {
namespace {

// Properties by name, their types and failures, are pinned by the public
// interface script; here what it doesn't show: in/out arguments written back,
// and a Long put into a Boolean.
TEST_F(ComponentTest, PublicInterfaceWritesBackInOutArgumentsAndTakesALongForABoolean) {
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

  d.putProperty("UseAltPin", zv::Variant::i2(1));
  EXPECT_EQ(d.getProperty("UseAltPin"), zv::Variant::boolean(true));
}

} // namespace
} // namespace zvtest
