#include "recorder.h"

#include "platform/errors.h"
#include "platform/vbnum.h"

namespace zvhost {

void SimulationRecorder::started(zv::ComponentObject& component) {
  simulation_.steps.clear();
  simulation_.refusal.clear();
  simulation_.start = last_ = settingsOf(component);
  running_ = true;
}

void SimulationRecorder::called(zv::ComponentObject& component, int32_t macroId,
                                const zv::Variant& params, const std::string& where) {
  zv::Variant names;
  if (!component.get_MacroNames(names).ok() || !names.isArray() || macroId < names.arr().lbound() ||
      macroId > names.arr().ubound())
    return;
  if (!running_)
    started(component);
  MacroCall call{macroId, {}, where};
  if (params.isArray()) {
    const zv::SafeArray& a = params.arr();
    for (int32_t i = a.lbound(); i <= a.ubound(); ++i) {
      long value = 0;
      try {
        value = zv::toI4(a.at(i));
      } catch (const zv::RuntimeError&) {
        // an element the macro did not read, as it succeeded
      }
      call.args.push_back(value);
    }
  }
  simulation_.steps.push_back(std::move(call));
  last_ = settingsOf(component);
}

void SimulationRecorder::observe(zv::ComponentObject& component, const std::string& where) {
  if (!running_)
    return;
  std::optional<Settings> now = settingsOf(component);
  if (!now || !last_ || *now == *last_)
    return;
  if (simulation_.steps.empty())
    simulation_.start = now;
  else
    simulation_.steps.push_back(SettingsChange{*last_, *now, where});
  last_ = now;
}

void SimulationRecorder::deviceFile(const std::string& path, const std::string& where) {
  if (running_ && !simulation_.steps.empty() && path != simulation_.deviceFile &&
      simulation_.refusal.empty())
    simulation_.refusal = "the device changed while the simulation ran" +
                          (where.empty() ? "" : " (" + where + ")") +
                          ": one program is made for one device";
  simulation_.deviceFile = path;
}

} // namespace zvhost
