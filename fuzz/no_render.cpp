// The fuzzed runner draws no pictures: rendering needs Qt and writes files
// the fuzzer has no use for.
#include "host/pictures/render.h"

namespace zvhost {

bool renderPanel(zv::ComponentObject&, const std::string&, std::string& error, double) {
  error = "no pictures in this build";
  return false;
}

std::string panelSvg(zv::ComponentObject&) {
  return {};
}

} // namespace zvhost
