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

using V = zv::Variant;

// A zero-based array of Variant.
V list(std::vector<V> items) {
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
  const V args[] = {list({V::i2(1)}), list({V::i2(1), V::i2(64)})};
  for (size_t i = 0; i < calls.size(); ++i) {
    int32_t retVal = 0, cycles = 0;
    V affected;
    ASSERT_TRUE(late.SimMacroCall(calls[i].macroId, args[i], retVal, affected, cycles).ok());
  }
  std::string direct, named, error;
  ASSERT_TRUE(zvhost::generateProgram(handle.object(), calls, direct, error)) << error;
  ASSERT_TRUE(zvhost::generateProgram(late.source(), calls, named, error)) << error;
  EXPECT_EQ(direct, named);
  EXPECT_NE(direct.find("int main(void)"), std::string::npos);
}

TEST(DiagnosticViews, a_tree_of_another_shape_is_a_type_mismatch) {
  const auto mismatch = [](const std::function<void()>& read) {
    return zvtest::errorOf(read) == zv::errTypeMismatch;
  };
  for (const V& tree : {V::i2(1), list({V::i2(7), V()}), list({V::i2(3), list({V::i2(1), V()})})})
    EXPECT_TRUE(mismatch([&] { zvhost::fieldsFrom(tree); })) << "fields";
  for (const V& tree : {list({V::r4(1), V::r4(2)}), list({V::r8(1), V::r4(2), V::i4(1), list({})})})
    EXPECT_TRUE(mismatch([&] { zvhost::panelFrom(tree); })) << "panel";
  EXPECT_TRUE(mismatch([] {
    zvhost::canvasFrom(list({V::r4(1), V::r4(2), V::str("x"), list({})}));
  }));
  EXPECT_TRUE(mismatch([] { zvhost::pageFrom(list({})); }));
  EXPECT_TRUE(mismatch([] { zvhost::controlKindFrom(6); }));
  zv::PropertyBag bag;
  EXPECT_TRUE(mismatch([&] {
    zvcom::fillBag(list({V::str("A"), V::i2(1)}), list({V(), V()}), bag);
  }));
  EXPECT_TRUE(mismatch([&] { zvcom::fillBag(list({V::str("A")}), list({}), bag); }));
  EXPECT_FALSE(zvhost::canvasFrom(V()));
}

TEST(DiagnosticTrees, a_bag_goes_as_two_arrays_and_comes_back_in_its_order) {
  zv::PropertyBag bag, back;
  bag.WriteProperty("Pr2", V::i2(300));
  bag.WriteProperty("Label1", V::str("Left"));
  bag.WriteProperty("ShowSim", V::boolean(true));
  const auto [names, values] = zvcom::bagArrays(bag);
  zvcom::fillBag(names, values, back);
  EXPECT_EQ(back.entries(), bag.entries());
}

} // namespace
