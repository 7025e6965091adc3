// zelvor-host.exe run SCRIPT|-: the script runner over the registered COM
// server (register it with regsvr32 first). Pictures and the desktop are the
// Linux host's.
#include <fcntl.h>
#include <io.h>
#include <objbase.h>

#include <cstdio>
#include <fstream>
#include <iostream>
#include <string>

#include "host/plugin/win/com_backend.h"
#include "host/script/runner.h"

namespace {

int runScript(const std::string& path) {
  zvhost::ComBackend backend;
  zvhost::Runner runner(backend);
  if (path == "-")
    return runner.run(std::cin, std::cout);
  std::ifstream script(path, std::ios::binary);
  if (!script) {
    std::cerr << "zelvor-host: cannot read " << path << '\n';
    return 1;
  }
  return runner.run(script, std::cout);
}

} // namespace

int main(int argc, char** argv) {
  if (argc != 3 || std::string(argv[1]) != "run") {
    std::cerr << "usage: zelvor-host run SCRIPT|-\n";
    return 1;
  }
  // Lines end in LF, as the Linux host writes them.
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stdin), _O_BINARY);
  if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {
    std::cerr << "zelvor-host: COM is not available\n";
    return 1;
  }
  const int status = runScript(argv[2]);
  CoUninitialize();
  return status;
}
