// One keystroke in the period register box of the property page: the text
// box's change runs the nested chain with the scroll bar and the read-out.
#include <benchmark/benchmark.h>

#include <stdexcept>
#include <string>

#include "benches.h"
#include "harness.h"
#include "platform/controls/widgets.h"

namespace zvbench {

namespace {

template <class T> T& controlOf(zv::PageObject& page, const char* name, const char* kind) {
  zv::Control* control = page.control(name);
  if (!control || control->kind() != kind)
    throw std::runtime_error(std::string("the page has no ") + kind + " " + name);
  return static_cast<T&>(*control);
}

void PageKeystroke(benchmark::State& state) {
  ComponentPtr component = createReady();
  PagePtr page = createPage();
  page->site().SelectedControls = {&component->publicInterface()};
  check(page->PropertyPage_SelectionChanged(), "PropertyPage_SelectionChanged");
  auto& box = controlOf<zv::TextBox>(*page, "txt_Pr2", "textbox");
  auto& period = controlOf<zv::Label>(*page, "Lbl_period", "label");
  auto& frequency = controlOf<zv::Label>(*page, "Lbl_frequency", "label");
  box.setText("12");
  // A digit typed, then taken back: both are keystrokes with a full chain.
  bool typed = false;
  for (auto _ : state) {
    typed = !typed;
    box.setText(typed ? "123" : "12");
    benchmark::DoNotOptimize(period.Caption().size() + frequency.Caption().size());
  }
}

// Opening the page on a component: its start-up, then the selection read in.
void PageOpen(benchmark::State& state) {
  ComponentPtr component = createReady();
  for (auto _ : state) {
    PagePtr page = createPage();
    page->site().SelectedControls = {&component->publicInterface()};
    check(page->PropertyPage_SelectionChanged(), "PropertyPage_SelectionChanged");
    state.PauseTiming();
    page.reset();
    state.ResumeTiming();
  }
}

} // namespace

void registerPage() {
  add("PageOpen", PageOpen)->Unit(benchmark::kMicrosecond);
  add("PageKeystroke", PageKeystroke);
}

} // namespace zvbench
