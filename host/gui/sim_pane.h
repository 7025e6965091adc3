// The simulation controls of the desktop window: device file and clock with
// the device's pins, start and stop with the state of the simulation, and one
// row per macro with a spin box per parameter. The pane holds no component;
// it tells the window what the user asked for.
#pragma once

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
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
  void setPins(const QString& text);
  // Start is usable while no simulation runs, Stop while one does.
  void setSimulating(bool running);
  // The value of a macro's parameter box, when both exist.
  void setParameter(int32_t macroId, size_t index, int value);

  QComboBox* deviceBox() const { return device_; }
  QSpinBox* clockBox() const { return clock_; }
  QPushButton* startButton() const { return start_; }
  QPushButton* stopButton() const { return stop_; }
  QPushButton* macroButton(int32_t macroId) const;
  QSpinBox* parameterBox(int32_t macroId, size_t index) const;

  std::function<void(const std::string& path)> onDevice;
  std::function<void(int32_t hz)> onClock;
  std::function<void()> onStart;
  std::function<void()> onStop;
  std::function<void(int32_t macroId, const std::vector<long>& args)> onMacro;

private:
  QComboBox* device_;
  QSpinBox* clock_;
  QLabel* pins_;
  QPushButton* start_;
  QPushButton* stop_;
  QLabel* state_;
  QGroupBox* macros_;
  std::vector<QPushButton*> calls_;
  std::vector<std::vector<QSpinBox*>> boxes_;
};

// "name|name|type" fields as the macro table gives them: the first field.
std::string firstField(const std::string& entry);

// The values a macro parameter takes, by its name, and what it means.
struct ParameterRange {
  int min, max;
  const char* help;
};
ParameterRange parameterRange(const std::string& name);

} // namespace zvhost
