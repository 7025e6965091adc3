// The plug-in library, opened with dlopen: its four entry points, and owners
// for the objects they make. A Plugin is move-only and either holds an open
// library or is visibly empty.
#pragma once

#include <memory>
#include <string>

#include "zelvor/objects.h"

namespace zvhost {

class Plugin {
public:
  struct ComponentDeleter {
    void (*destroy)(zv::ComponentObject*) = nullptr;
    void operator()(zv::ComponentObject* c) const { destroy(c); }
  };
  struct PageDeleter {
    void (*destroy)(zv::PageObject*) = nullptr;
    void operator()(zv::PageObject* p) const { destroy(p); }
  };
  using ComponentPtr = std::unique_ptr<zv::ComponentObject, ComponentDeleter>;
  using PagePtr = std::unique_ptr<zv::PageObject, PageDeleter>;

  Plugin() = default;
  Plugin(Plugin&& other) noexcept;
  Plugin& operator=(Plugin&& other) noexcept;
  Plugin(const Plugin&) = delete;
  Plugin& operator=(const Plugin&) = delete;
  ~Plugin();

  // Opens the library at path; on failure answers an empty Plugin and fills error.
  static Plugin open(const std::string& path, std::string& error);
  bool loaded() const { return handle_ != nullptr; }

  // folder and baseName may be empty (the library's own). Null on failure,
  // with status filled. The object shows its message boxes, those of its
  // start-up among them, through boxes (null: the platform's default).
  ComponentPtr createComponent(const std::string& folder, const std::string& baseName,
                               zv::Status& status, zv::MessageBoxService* boxes = nullptr) const;
  PagePtr createPage(zv::Status& status, zv::MessageBoxService* boxes = nullptr) const;

private:
  void close();
  void* handle_ = nullptr;
  zv::ComponentObject* (*createComponent_)(const char*, const char*, zv::Status*) = nullptr;
  void (*destroyComponent_)(zv::ComponentObject*) = nullptr;
  zv::PageObject* (*createPage_)(zv::Status*) = nullptr;
  void (*destroyPage_)(zv::PageObject*) = nullptr;
};

// The plug-in beside the running host: <exe dir>/../lib/AVR_PWM.so in a build
// tree, else <exe dir>/../lib/zelvor/components/AVR_PWM.so when installed.
std::string defaultPluginPath();

} // namespace zvhost
