// An IDE's smallest use of the installed component: load it, create one, and
// list its macros.
#include <dlfcn.h>

#include <cstdio>

#include "platform/msgbox.h"
#include "zelvor/plugin.h"

int main() {
  void* lib = dlopen(PLUGIN, RTLD_NOW);
  if (!lib) {
    std::fprintf(stderr, "%s\n", dlerror());
    return 1;
  }
  auto create =
      reinterpret_cast<decltype(&zelvor_create_component)>(dlsym(lib, "zelvor_create_component"));
  auto destroy =
      reinterpret_cast<decltype(&zelvor_destroy_component)>(dlsym(lib, "zelvor_destroy_component"));
  zv::HeadlessMessageBoxes boxes;
  zv::Status status;
  zv::ComponentObject* pwm = nullptr;
  {
    // The start-up runs before there is an object to hand the boxes to.
    zv::ScopedDefaultMessageBoxes startUp(boxes);
    pwm = create(nullptr, nullptr, &status);
  }
  if (pwm)
    pwm->setMessageBoxes(&boxes);
  if (!pwm || !boxes.texts.empty()) {
    std::fprintf(stderr, "start-up: %d %s\n", status.number, status.description.c_str());
    return 1;
  }
  pwm->InitProperties();
  pwm->put_ZelvorVersion(1024);
  zv::Variant names;
  if (!pwm->get_MacroNames(names).ok() || !names.isArray() || names.arr().size() != 5) {
    std::fprintf(stderr, "no macros\n");
    return 1;
  }
  for (int32_t i = names.arr().lbound(); i <= names.arr().ubound(); ++i)
    std::printf("%s\n", names.arr().at(i).rawStr().c_str());
  destroy(pwm);
  return 0;
}
