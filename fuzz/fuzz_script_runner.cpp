// Random scripts through the runner, against the shipped component loaded as
// the host loads it, as a plug-in. Each line answers at most one JSON object,
// valid UTF-8 that reads back, never a crash or a hang. Files are written only
// to the scratch folder: a command that writes one gets a path there instead.
#include <sstream>

#include "host/plugin/plugin_backend.h"
#include "host/script/json_in.h"
#include "host/script/runner.h"
#include "support.h"

namespace {

const zvhost::Plugin& plugin() {
  static const zvhost::Plugin loaded = [] {
    zv::fuzz::makeComponent(); // the shipped code file, as AVR_PWM.c in the scratch folder
    std::string error;
    zvhost::Plugin p = zvhost::Plugin::open(ZV_FUZZ_PLUGIN, error);
    zv::fuzz::check(p.loaded(), error);
    return p;
  }();
  return loaded;
}

std::string confined(const std::string& line) {
  const std::string& folder = zv::fuzz::scratchFolder();
  try {
    zvhost::LineScanner scan(line);
    const std::string command = scan.atEnd() ? "" : scan.word();
    if (command == "writeprops" && !scan.atEnd())
      return "writeprops " + folder + "/bag.json";
    if (command == "program" || command == "render")
      return command + " " + folder + "/out.c";
  } catch (const zvhost::ScriptError&) {
  }
  return line;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::istringstream input(std::string(reinterpret_cast<const char*>(data), size));
  std::string script = "create " + zv::fuzz::scratchFolder() + " AVR_PWM\n";
  for (std::string line; std::getline(input, line);)
    script += confined(line) + "\n";
  zvhost::PluginBackend backend(plugin());
  zvhost::Runner runner(backend);
  std::istringstream in(script);
  std::ostringstream out;
  runner.run(in, out);
  std::istringstream answers(out.str());
  for (std::string line; std::getline(answers, line);) {
    try {
      zv::fuzz::check(zvhost::parseJson(line).is_object(), "an answer is a JSON object");
    } catch (const zvhost::ScriptError& e) {
      zv::fuzz::check(false, std::string("an answer reads back: ") + e.what());
    }
  }
  return 0;
}
