// A selected component standing in for the real one, and a page with the
// headless message boxes installed.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "page/properties.h"
#include "platform/errors.h"
#include "platform/msgbox.h"

namespace zv::test {

// Public properties by name; records every read and every write in order.
class FakeComponent : public Dispatch {
public:
  std::map<std::string, Variant> props;
  std::vector<std::string> reads;
  std::vector<std::pair<std::string, Variant>> writes;

  Variant getProperty(const std::string& name) override {
    reads.push_back(name);
    auto it = props.find(name);
    if (it == props.end())
      raise(errNoSuchMember);
    return it->second;
  }
  void putProperty(const std::string& name, const Variant& value) override {
    writes.emplace_back(name, value);
    props[name] = value;
  }
  Variant callMethod(const std::string&, std::vector<Variant>&) override { raise(errNoSuchMember); }
};

struct Device {
  int32_t clock = 8000000;
  int32_t maxPwm = 1 * 256 + 2; // divider 1, two channels
  int16_t prescaler = 1;
  int16_t pr2 = 255;
  int16_t hasAltPin = 1;
  bool useAltPin = false;
  bool showSim = true;

  void fill(FakeComponent& c) const {
    c.props = {{"ClockSpeed", Variant::i4(clock)},     {"MaxPwm", Variant::i4(maxPwm)},
               {"Prescaler", Variant::i2(prescaler)},  {"Pr2", Variant::i2(pr2)},
               {"HasAltPin", Variant::i2(hasAltPin)},  {"UseAltPin", Variant::boolean(useAltPin)},
               {"ShowSim", Variant::boolean(showSim)}, {"Label1", Variant::str("Motor")},
               {"Label2", Variant::str("Fan")}};
  }
};

struct PageTest {
  PageTest() { page.setMessageBoxes(&boxes); }

  Status select(const Device& d) {
    d.fill(component);
    page.site().SelectedControls = {&component};
    return page.PropertyPage_SelectionChanged();
  }
  // Forgets what start-up or selection did to the watched counters.
  void resetWatch() {
    page.calcRuns = 0;
    page.site().setChanged(false);
    boxes.texts.clear();
  }

  HeadlessMessageBoxes boxes;
  Properties page;
  FakeComponent component;
};

} // namespace zv::test
