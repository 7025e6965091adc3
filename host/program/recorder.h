// Follows one component through a simulation for its program: the settings
// the run began with, its macro calls, and the changes of settings made
// between them by anything else (the page, a property, saved properties).
#pragma once

#include <string>

#include "program.h"

namespace zvhost {

class SimulationRecorder {
public:
  // StartSimulation succeeded: a new run begins with the settings of now.
  void started(zv::ComponentObject& component);
  // A SimMacroCall succeeded; a number outside the macro table, which does
  // nothing, is not recorded.
  void called(zv::ComponentObject& component, int32_t macroId, const zv::Variant& params,
              const std::string& where);
  // Something else ran: a change of settings since the last look becomes a
  // step of the run, or its starting settings while no macro was called yet.
  void observe(zv::ComponentObject& component, const std::string& where);
  // The host gave the component a device file.
  void deviceFile(const std::string& path, const std::string& where);

  const Simulation& simulation() const { return simulation_; }

private:
  Simulation simulation_;
  std::optional<Settings> last_;
  bool running_ = false;
};

} // namespace zvhost
