#include "program.h"

namespace zvhost {

bool generateProgram(zv::ComponentObject&, const std::vector<MacroCall>&, std::string&,
                     std::string& error) {
  error = "program generation is not built yet";
  return false;
}

} // namespace zvhost
