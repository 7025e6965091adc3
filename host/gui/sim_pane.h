// The simulation controls of the desktop window: device file and clock, start
// and stop, and one row per macro with a spin box per parameter. The pane
// holds no component; it tells the window what the user asked for.
#pragma once

#include <QComboBox>
#include <QGroupBox>
#include <QSpinBox>
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

namespace zvhost {

struct MacroRow {
  std::string name;
  std::vector<std::string> params; // parameter names
  bool operator==(const MacroRow&) const = default;
};

class SimPane : public QWidget {
public:
  explicit SimPane(const std::vector<std::string>& devices, QWidget* parent = nullptr);

  void setMacros(const std::vector<MacroRow>& macros);
  std::string device() const;
  void setDevice(const std::string& path); // adds it to the list when unknown
  int32_t clock() const { return clock_->value(); }
  void setClock(int32_t hz);

  std::function<void(const std::string& path)> onDevice;
  std::function<void(int32_t hz)> onClock;
  std::function<void()> onStart;
  std::function<void()> onStop;
  std::function<void(int32_t macroId, const std::vector<long>& args)> onMacro;

private:
  QComboBox* device_;
  QSpinBox* clock_;
  QGroupBox* macros_;
};

// "name|name|type" fields as the macro table gives them: the first field.
std::string firstField(const std::string& entry);

} // namespace zvhost
