// The runner's backends: a component driven by operation names answers what
// the object itself answers, and the diagnostic trees are read strictly.
#include <gtest/gtest.h>

#include "com/diagnostic_trees.h"
#include "host/plugin/diagnostic_views.h"
#include "host/plugin/plugin_backend.h"
#include "host/program/program.h"
#include "host/script/late_bound.h"
#include "tests/common/error_of.h"
#include "tests/qt/plugin_fixture.h"

namespace {

zv::Variant params(std::initializer_list<int16_t> values) {
  zv::SafeArray a(zv::VarType::Variant, 0, static_cast<int32_t>(values.size()) - 1);
  int32_t i = 0;
  for (int16_t v : values)
    a.set(i++, zv::Variant::i2(v));
  return zv::Variant::array(std::move(a));
}

zv::Variant list(std::vector<zv::Variant> items) {
  zv::SafeArray a(zv::VarType::Variant, 0, static_cast<int32_t>(items.size()) - 1);
  for (size_t i = 0; i < items.size(); ++i)
    a.set(static_cast<int32_t>(i), items[i]);
  return zv::Variant::array(std::move(a));
}

TEST(LateBoundComponent, generates_the_program_that_the_object_itself_gives) {
  zvhost::PluginComponent handle(zvqt_test::makeComponent("ATmega328P"));
  zvhost::LateBoundComponent late(handle);
  ASSERT_TRUE(late.StartSimulation().ok());
  const std::vector<zvhost::MacroCall> calls{{0, {1}}, {2, {1, 64}}};
  const zv::Variant args[] = {params({1}), params({1, 64})};
  for (size_t i = 0; i < calls.size(); ++i) {
    int32_t retVal = 0, cycles = 0;
    zv::Variant affected;
    ASSERT_TRUE(late.SimMacroCall(calls[i].macroId, args[i], retVal, affected, cycles).ok());
  }
  std::string direct, named, error;
  ASSERT_TRUE(zvhost::generateProgram(handle.object(), calls, direct, error)) << error;
  ASSERT_TRUE(zvhost::generateProgram(late.source(), calls, named, error)) << error;
  EXPECT_EQ(direct, named);
  EXPECT_NE(direct.find("int main(void)"), std::string::npos);
}

TEST(DiagnosticViews, a_tree_of_another_shape_is_a_type_mismatch) {
  using zv::Variant;
  const std::vector<std::function<void()>> reads{
      [] { zvhost::fieldsFrom(Variant::i2(1)); },
      [] {
        zvhost::fieldsFrom(list({Variant::i2(7), Variant()}));
      },
      [] {
        zvhost::fieldsFrom(list({Variant::i2(3), list({Variant::i2(1), Variant()})}));
      },
      [] {
        zvhost::panelFrom(list({Variant::r4(1), Variant::r4(2)}));
      },
      [] {
        zvhost::panelFrom(list({Variant::r8(1), Variant::r4(2), Variant::i4(1), list({})}));
      },
      [] {
        zvhost::canvasFrom(list({Variant::r4(1), Variant::r4(2), Variant::str("x"), list({})}));
      },
      [] { zvhost::pageFrom(list({})); },
      [] { zvhost::controlKindFrom(6); },
      [] {
        zv::PropertyBag bag;
        zvcom::fillBag(list({Variant::str("A"), Variant::i2(1)}), list({Variant(), Variant()}),
                       bag);
      },
      [] {
        zv::PropertyBag bag;
        zvcom::fillBag(list({Variant::str("A")}), list({}), bag);
      },
  };
  for (size_t i = 0; i < reads.size(); ++i)
    EXPECT_EQ(zvtest::errorOf(reads[i]), zv::errTypeMismatch) << "read " << i;
  EXPECT_FALSE(zvhost::canvasFrom(Variant()));
}

TEST(DiagnosticTrees, a_bag_goes_as_two_arrays_and_comes_back_in_its_order) {
  zv::PropertyBag bag, back;
  bag.WriteProperty("Pr2", zv::Variant::i2(300));
  bag.WriteProperty("Label1", zv::Variant::str("Left"));
  bag.WriteProperty("ShowSim", zv::Variant::boolean(true));
  const auto [names, values] = zvcom::bagArrays(bag);
  zvcom::fillBag(names, values, back);
  EXPECT_EQ(back.entries(), bag.entries());
}

} // namespace
