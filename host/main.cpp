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

int usage() {
  std::cerr << "usage: zelvor-host run SCRIPT|- [--plugin PATH]\n"
               "       zelvor-host gui [SCRIPT] [--plugin PATH]\n";
  return 1;
}

} // namespace

int main(int argc, char** argv) {
  std::string pluginPath;
  std::vector<std::string> words;
  for (int i = 1; i < argc; ++i) {
    if (std::strcmp(argv[i], "--plugin") == 0) {
      if (i + 1 >= argc)
        return usage();
      pluginPath = argv[++i];
    } else {
      words.emplace_back(argv[i]);
    }
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
