#include "zelvor/plugin.h"

#include "../../platform/funnel.h"
#include "../page/properties_page.h"
#include "pwm.h"

namespace {

zv::LibraryFacts factsFor(const char* folder, const char* baseName) {
  zv::LibraryFacts facts =
      zv::libraryFactsOf(reinterpret_cast<const void*>(&zelvor_create_component));
  facts.major = ZV_VERSION_MAJOR;
  facts.minor = ZV_VERSION_MINOR;
  facts.revision = ZV_VERSION_PATCH;
  if (folder && *folder)
    facts.folder = folder;
  if (baseName && *baseName)
    facts.baseName = baseName;
  return facts;
}

} // namespace

zv::ComponentObject* zelvor_create_component(const char* folder, const char* baseName,
                                             zv::Status* status) {
  zv::PWM* made = nullptr;
  zv::Status s = zv::guard([&] { made = new zv::PWM(factsFor(folder, baseName)); });
  if (status)
    *status = s;
  return made;
}

void zelvor_destroy_component(zv::ComponentObject* component) {
  delete component;
}

zv::PageObject* zelvor_create_page(zv::Status* status) {
  zv::PageObject* made = nullptr;
  zv::Status s = zv::guard([&] { made = zv::createPropertiesPage().release(); });
  if (status)
    *status = s;
  return made;
}

void zelvor_destroy_page(zv::PageObject* page) {
  delete page;
}
