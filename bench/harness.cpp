#include "harness.h"

#include <dlfcn.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "zelvor/plugin.h"

namespace zvbench {

namespace {

struct Entries {
  decltype(&zelvor_create_component) createComponent = nullptr;
  decltype(&zelvor_destroy_component) destroyComponent = nullptr;
  decltype(&zelvor_create_page) createPage = nullptr;
  decltype(&zelvor_destroy_page) destroyPage = nullptr;
};

Entries& entries() {
  static Entries e;
  return e;
}

template <class F> F lookUp(void* handle, const char* name) {
  void* symbol = ::dlsym(handle, name);
  if (!symbol)
    throw std::runtime_error(std::string("plug-in lacks ") + name);
  return reinterpret_cast<F>(symbol);
}

// Used when the tree has no device files: the three keys the component reads.
constexpr const char* kFixtureDevice =
    "[Device]\r\nPWMCount=2\r\nHasAltPWM=0\r\nClockDivider=1\r\n";

} // namespace

void ComponentDeleter::operator()(zv::ComponentObject* c) const {
  entries().destroyComponent(c);
}

void PageDeleter::operator()(zv::PageObject* p) const {
  entries().destroyPage(p);
}

void check(const zv::Status& status, const char* what) {
  if (!status.ok())
    throw std::runtime_error(std::string(what) + " failed: " + std::to_string(status.number) + " " +
                             status.description);
}

void openPlugin() {
  Entries& e = entries();
  if (e.createComponent)
    return;
  // The library stays loaded for the whole run, as in a host.
  void* handle = ::dlopen(ZV_BENCH_PLUGIN, RTLD_NOW | RTLD_LOCAL);
  if (!handle)
    throw std::runtime_error(std::string("can't open the plug-in: ") + ::dlerror());
  e.createComponent = lookUp<decltype(e.createComponent)>(handle, "zelvor_create_component");
  e.destroyComponent = lookUp<decltype(e.destroyComponent)>(handle, "zelvor_destroy_component");
  e.createPage = lookUp<decltype(e.createPage)>(handle, "zelvor_create_page");
  e.destroyPage = lookUp<decltype(e.destroyPage)>(handle, "zelvor_destroy_page");
}

ComponentPtr createComponent(const std::string& folder, const std::string& baseName) {
  openPlugin();
  zv::Status status;
  zv::ComponentObject* made = entries().createComponent(folder.c_str(), baseName.c_str(), &status);
  check(status, "zelvor_create_component");
  made->setMessageBoxes(&boxes());
  return ComponentPtr(made);
}

PagePtr createPage() {
  openPlugin();
  zv::Status status;
  zv::PageObject* made = entries().createPage(&status);
  check(status, "zelvor_create_page");
  made->setMessageBoxes(&boxes());
  return PagePtr(made);
}

const std::string& deviceFile() {
  static const std::string path = [] {
    const std::string inTree = std::string(ZV_BENCH_DEVICES) + "/ATmega328P.zvd";
    if (std::filesystem::exists(inTree))
      return inTree;
    static ScratchFolder fixture;
    return fixture.write("ATmega328P.zvd", kFixtureDevice);
  }();
  return path;
}

void makeReady(zv::ComponentObject& component) {
  check(component.InitProperties(), "InitProperties");
  check(component.put_ZelvorVersion(kHostVersion), "put_ZelvorVersion");
  check(component.put_ZvdFilename(deviceFile()), "put_ZvdFilename");
  check(component.put_ClockSpeed(kClockHz), "put_ClockSpeed");
}

ComponentPtr createReady(const std::string& folder, const std::string& baseName) {
  ComponentPtr component = createComponent(folder, baseName);
  makeReady(*component);
  return component;
}

ScratchFolder::ScratchFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "zvbench-XXXXXX").string();
  if (!::mkdtemp(pattern.data()))
    throw std::runtime_error("can't make a temporary folder");
  path_ = pattern;
}

ScratchFolder::~ScratchFolder() {
  std::error_code ec;
  std::filesystem::remove_all(path_, ec);
}

std::string ScratchFolder::write(const std::string& name, const std::string& bytes) const {
  const std::filesystem::path file = std::filesystem::path(path_) / name;
  std::filesystem::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary).write(bytes.data(), std::streamsize(bytes.size()));
  return file.string();
}

zv::HeadlessMessageBoxes& boxes() {
  static zv::HeadlessMessageBoxes service;
  return service;
}

} // namespace zvbench
