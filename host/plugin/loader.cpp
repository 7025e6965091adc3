#include "loader.h"

#include <dlfcn.h>

#include <filesystem>
#include <optional>
#include <utility>

namespace zvhost {

namespace {

template <class Fn> bool lookUp(void* handle, const char* name, Fn& fn, std::string& error) {
  void* symbol = dlsym(handle, name);
  if (!symbol) {
    error = std::string("missing entry point ") + name;
    return false;
  }
  fn = reinterpret_cast<Fn>(symbol);
  return true;
}

} // namespace

Plugin::Plugin(Plugin&& other) noexcept {
  *this = std::move(other);
}

Plugin& Plugin::operator=(Plugin&& other) noexcept {
  if (this != &other) {
    close();
    handle_ = std::exchange(other.handle_, nullptr);
    createComponent_ = std::exchange(other.createComponent_, nullptr);
    destroyComponent_ = std::exchange(other.destroyComponent_, nullptr);
    createPage_ = std::exchange(other.createPage_, nullptr);
    destroyPage_ = std::exchange(other.destroyPage_, nullptr);
  }
  return *this;
}

Plugin::~Plugin() {
  close();
}

void Plugin::close() {
  if (handle_)
    dlclose(handle_);
  handle_ = nullptr;
}

Plugin Plugin::open(const std::string& path, std::string& error) {
  Plugin p;
  void* handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!handle) {
    const char* why = dlerror();
    error = why ? why : "cannot open " + path;
    return p;
  }
  p.handle_ = handle;
  if (!lookUp(handle, "zelvor_create_component", p.createComponent_, error) ||
      !lookUp(handle, "zelvor_destroy_component", p.destroyComponent_, error) ||
      !lookUp(handle, "zelvor_create_page", p.createPage_, error) ||
      !lookUp(handle, "zelvor_destroy_page", p.destroyPage_, error))
    return Plugin();
  return p;
}

Plugin::ComponentPtr Plugin::createComponent(const std::string& folder, const std::string& baseName,
                                             zv::Status& status,
                                             zv::MessageBoxService* boxes) const {
  zv::ComponentObject* made = nullptr;
  {
    // The start-up runs before there is an object to hand the service to.
    std::optional<zv::ScopedDefaultMessageBoxes> startUp;
    if (boxes)
      startUp.emplace(*boxes);
    made = createComponent_(folder.empty() ? nullptr : folder.c_str(),
                            baseName.empty() ? nullptr : baseName.c_str(), &status);
  }
  if (made)
    made->setMessageBoxes(boxes);
  return ComponentPtr(made, ComponentDeleter{destroyComponent_});
}

Plugin::PagePtr Plugin::createPage(zv::Status& status, zv::MessageBoxService* boxes) const {
  PagePtr page(createPage_(&status), PageDeleter{destroyPage_});
  if (page)
    page->setMessageBoxes(boxes);
  return page;
}

std::string defaultPluginPath() {
  std::error_code ec;
  const std::filesystem::path exe = std::filesystem::read_symlink("/proc/self/exe", ec);
  const std::filesystem::path prefix = exe.parent_path().parent_path();
  const std::filesystem::path built = prefix / "lib" / "AVR_PWM.so";
  if (std::filesystem::exists(built, ec))
    return built.string();
  return (prefix / ZV_INSTALL_LIBDIR / "zelvor" / "components" / "AVR_PWM.so").string();
}

} // namespace zvhost
