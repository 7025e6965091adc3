#include "gui.h"

#include <cstdio>

namespace zvhost {

int runGui(int, char**, const std::string&, const std::string&) {
  std::fprintf(stderr, "zelvor-host: the desktop is not built yet\n");
  return 2;
}

} // namespace zvhost
