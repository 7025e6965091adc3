// What the fuzzed runner leaves out: pictures, which need Qt's widgets. It
// answers as it does when what it needs is missing.
#include "host/pictures/render.h"

namespace zvhost {

bool renderPanel(zv::ComponentObject&, const std::string&, std::string& error, double) {
  error = "no pictures in this build";
  return false;
}

} // namespace zvhost
