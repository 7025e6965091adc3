// zelvor-host run SCRIPT|- [--plugin PATH]
// zelvor-host gui [SCRIPT] [--plugin PATH]
#include <cstring>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "gui/gui.h"
#include "host/plugin/loader.h"
#include "host/plugin/plugin_backend.h"
#include "host/script/runner.h"

namespace {

const char* const kUsage = "usage: zelvor-host run SCRIPT|- [--plugin PATH]\n"
                           "       zelvor-host gui [SCRIPT] [--plugin PATH]\n"
                           "       zelvor-host [COMMAND] --help\n";

const char* const kRunUsage =
    "usage: zelvor-host run SCRIPT|- [--plugin PATH]\n"
    "Carries out a script (a file, or - for standard input) one line at a time\n"
    "and prints one JSON object per command. Exit status 0, 2 when a line was\n"
    "a script error, 1 when nothing could be run.\n"
    "  --plugin PATH  the component library (default: the one beside the host)\n";

const char* const kGuiUsage =
    "usage: zelvor-host gui [SCRIPT] [--plugin PATH]\n"
    "Opens the desktop window: the component's panel, device and clock,\n"
    "simulation and macros, the property page, the period calculator, and\n"
    "SCRIPT (a .zsc file) ready to be stepped.\n"
    "  --plugin PATH  the component library (default: the one beside the host)\n"
    "Keys: Ctrl+O open project, Ctrl+S save, F1 help, F4 properties, F5 refresh,\n"
    "F7 period calculator, F10 step the script.\n";

int usage() {
  std::cerr << kUsage;
  return 1;
}

} // namespace

int main(int argc, char** argv) {
  std::string pluginPath;
  std::vector<std::string> words;
  bool help = false;
  for (int i = 1; i < argc; ++i) {
    if (std::strcmp(argv[i], "--plugin") == 0) {
      if (i + 1 >= argc)
        return usage();
      pluginPath = argv[++i];
    } else if (std::strcmp(argv[i], "--help") == 0 || std::strcmp(argv[i], "-h") == 0) {
      help = true;
    } else {
      words.emplace_back(argv[i]);
    }
  }
  if (help) {
    const std::string command = words.empty() ? "" : words[0];
    std::cout << (command == "gui" ? kGuiUsage : command == "run" ? kRunUsage : kUsage);
    return 0;
  }
  if (words.empty())
    return usage();

  if (words[0] == "gui" && words.size() <= 2)
    return zvhost::runGui(argc, argv, pluginPath, words.size() == 2 ? words[1] : std::string());
  if (words[0] != "run" || words.size() != 2)
    return usage();

  std::string error;
  const std::string path = pluginPath.empty() ? zvhost::defaultPluginPath() : pluginPath;
  zvhost::Plugin plugin = zvhost::Plugin::open(path, error);
  if (!plugin.loaded()) {
    std::cerr << "zelvor-host: cannot load the plug-in " << path << ": " << error << '\n';
    return 1;
  }
  zvhost::PluginBackend backend(plugin);
  zvhost::Runner runner(backend);
  if (words[1] == "-")
    return runner.run(std::cin, std::cout);
  std::ifstream script(words[1]);
  if (!script) {
    std::cerr << "zelvor-host: cannot read " << words[1] << '\n';
    return 1;
  }
  return runner.run(script, std::cout);
}
