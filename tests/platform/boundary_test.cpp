// What crosses an object's boundary: the status a failure becomes, and the
// message boxes an object shows.
#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <stdexcept>

#include "platform/funnel.h"
#include "platform/msgbox.h"

namespace zv {
namespace {

TEST(Funnel, WhatABodyThrowsBecomesItsStatusAndWhatItWroteStays) {
  const struct {
    std::function<void()> fails;
    int number;
    std::string description;
  } rows[] = {
      {[] {}, 0, ""},
      {[] { raise(errOverflow); }, errOverflow, "Overflow"},
      {[] { raise(errNoSuchMember, "no Foo"); }, errNoSuchMember, "no Foo"},
      {[] { throw std::bad_alloc(); }, errOutOfMemory, "Out of memory"},
      {[] { throw std::logic_error("broken"); }, errInternal, "broken"},
      {[] { throw 42; }, errInternal, "Internal error"},
  };
  for (const auto& row : rows) {
    int written = 0;
    const Status status = guard([&] {
      written = 1;
      row.fails();
    });
    EXPECT_EQ(status.number, row.number) << row.description;
    EXPECT_EQ(status.description, row.description);
    EXPECT_EQ(written, 1);
  }
}

TEST(MessageBoxes, AnObjectWithoutServiceUsesTheDefaultThatAGuardStandsInFor) {
  HeadlessMessageBoxes own, outer, inner;
  MessageBoxService& platform = defaultMessageBoxes();
  showMessage(&own, "own");
  {
    ScopedDefaultMessageBoxes first(outer);
    showMessage(nullptr, "outer");
    {
      ScopedDefaultMessageBoxes second(inner);
      showMessage(nullptr, "inner");
    }
    showMessage(nullptr, "outer again");
  }
  EXPECT_EQ(own.texts, std::vector<std::string>{"own"});
  EXPECT_EQ(outer.texts, (std::vector<std::string>{"outer", "outer again"}));
  EXPECT_EQ(inner.texts, std::vector<std::string>{"inner"});
  EXPECT_EQ(&defaultMessageBoxes(), &platform);
}

} // namespace
} // namespace zv
