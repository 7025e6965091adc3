// The desktop's project reader on random text: refused with a reason, or read
// as a project that saves as text which reads back to the same project.
#include "host/gui/project_file.h"
#include "support.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  zvhost::Project project;
  std::string error;
  if (!zvhost::parseProject(text, project, error)) {
    zv::fuzz::check(!error.empty(), "a refused project says why");
    return 0;
  }
  const std::string saved = zvhost::projectText(project);
  zvhost::Project again;
  zv::fuzz::check(zvhost::parseProject(saved, again, error), "a saved project loads");
  zv::fuzz::check(again.device == project.device && again.clock == project.clock &&
                      again.properties.entries() == project.properties.entries(),
                  "a saved project loads as it was");
  zv::fuzz::check(zvhost::projectText(again) == saved, "a loaded project saves as it was");
  return 0;
}
