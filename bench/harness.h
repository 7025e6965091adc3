// What every benchmark shares: the plug-in opened once with dlopen, components
// brought to the state a host leaves them in after loading a flowchart, and
// scratch folders for generated code files.
#pragma once

#include <memory>
#include <string>

#include "zelvor/objects.h"
#include "platform/msgbox.h"

namespace zvbench {

struct ComponentDeleter {
  void operator()(zv::ComponentObject* c) const;
};
struct PageDeleter {
  void operator()(zv::PageObject* p) const;
};
using ComponentPtr = std::unique_ptr<zv::ComponentObject, ComponentDeleter>;
using PagePtr = std::unique_ptr<zv::PageObject, PageDeleter>;

// Raises std::runtime_error naming what failed; benchmarks turn it into a skip.
void check(const zv::Status& status, const char* what);

// Opens the plug-in on first use; raises std::runtime_error when it can't.
void openPlugin();

// A bare component (its start-up has run) from the plug-in's folder, or from
// folder/baseName.c when given.
ComponentPtr createComponent(const std::string& folder = {}, const std::string& baseName = {});
PagePtr createPage();

// The device file the host names for an ATmega328P.
const std::string& deviceFile();
constexpr int32_t kClockHz = 16000000;
constexpr int32_t kHostVersion = 0x0400;

// The host's load of a new component: InitProperties, the host's version
// (which builds the macro table), the device file and the clock.
void makeReady(zv::ComponentObject& component);
ComponentPtr createReady(const std::string& folder = {}, const std::string& baseName = {});

// A fresh temporary folder, removed with everything in it.
class ScratchFolder {
public:
  ScratchFolder();
  ~ScratchFolder();
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  const std::string& path() const { return path_; }
  // Writes bytes to path()/name, creating folders on the way; answers the full path.
  std::string write(const std::string& name, const std::string& bytes) const;

private:
  std::string path_;
};

// Message boxes answered at once, so that no benchmark waits on a user.
zv::HeadlessMessageBoxes& boxes();

} // namespace zvbench
