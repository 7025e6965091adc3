#include "render.h"

namespace zvhost {

bool renderPanel(zv::ComponentObject&, const std::string&, std::string& error, double) {
  error = "render is not built yet";
  return false;
}

std::string panelSvg(zv::ComponentObject&) { return {}; }

} // namespace zvhost
