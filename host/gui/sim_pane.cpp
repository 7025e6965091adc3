#include "sim_pane.h"

#include <QFileInfo>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <climits>

namespace zvhost {

std::string firstField(const std::string& entry) {
  return entry.substr(0, entry.find('|'));
}

ParameterRange parameterRange(const std::string& name) {
  static const struct {
    const char* name;
    ParameterRange range;
  } known[] = {
      {"Channel", {1, 2, "Channel 1 (OC1A) or 2 (OC1B, or OC1C with the alternative pin)"}},
      {"Duty", {0, 255, "Duty in counts: the pin is high for Duty / (period register + 1)"}},
      {"Period", {0, 255, "Period register: one period is 2 x (Period + 1) timer counts"}},
      {"Prescaler",
       {0, 7,
        "Clock source: 0 none, 1 clk/1, 2 clk/8, 3 clk/64, 4 clk/256, 5 clk/1024, "
        "6 external falling edge, 7 external rising edge"}},
      {"DutyHigh", {0, 3, "Bits 9 and 8 of a ten-bit duty"}},
      {"DutyLow", {0, 255, "Bits 7 to 0 of a ten-bit duty"}},
  };
  for (const auto& k : known)
    if (name == k.name)
      return k.range;
  // Every parameter of the code file is an unsigned char.
  return {0, 255, "A whole number from 0 to 255"};
}

SimPane::SimPane(const std::vector<std::string>& devices, QWidget* parent) : QWidget(parent) {
  auto* layout = new QVBoxLayout(this);
  auto* target = new QGroupBox(tr("Target"), this);
  auto* form = new QFormLayout(target);
  device_ = new QComboBox(target);
  for (const std::string& path : devices)
    device_->addItem(QFileInfo(QString::fromStdString(path)).completeBaseName(),
                     QString::fromStdString(path));
  form->addRow(tr("&Device:"), device_);
  pins_ = new QLabel(target);
  form->addRow(tr("Pins:"), pins_);
  clock_ = new QSpinBox(target);
  // 0 stands for a component that was told no clock (a script's, say).
  clock_->setRange(0, INT_MAX);
  clock_->setSpecialValueText(tr("not told"));
  clock_->setSuffix(tr(" Hz"));
  clock_->setGroupSeparatorShown(true);
  clock_->setStepType(QAbstractSpinBox::AdaptiveDecimalStepType);
  clock_->setKeyboardTracking(false);
  clock_->setValue(8000000);
  form->addRow(tr("C&lock:"), clock_);
  layout->addWidget(target);

  auto* run = new QHBoxLayout;
  start_ = new QPushButton(tr("&Start simulation"), this);
  stop_ = new QPushButton(tr("S&top simulation"), this);
  state_ = new QLabel(this);
  run->addWidget(start_);
  run->addWidget(stop_);
  run->addWidget(state_);
  layout->addLayout(run);
  setSimulating(false);

  macros_ = new QGroupBox(tr("Macros"), this);
  new QGridLayout(macros_);
  layout->addWidget(macros_);
  layout->addStretch(1);

  connect(device_, &QComboBox::activated, this, [this] {
    if (onDevice)
      onDevice(device());
  });
  connect(clock_, &QSpinBox::valueChanged, this, [this](int hz) {
    if (onClock)
      onClock(hz);
  });
  connect(start_, &QPushButton::clicked, this, [this] {
    if (onStart)
      onStart();
  });
  connect(stop_, &QPushButton::clicked, this, [this] {
    if (onStop)
      onStop();
  });
}

std::string SimPane::device() const {
  return device_->currentData().toString().toStdString();
}

void SimPane::setDevice(const std::string& path) {
  QString full = QString::fromStdString(path);
  int index = device_->findData(full);
  if (index < 0 && !full.isEmpty()) {
    device_->addItem(QFileInfo(full).completeBaseName(), full);
    index = device_->count() - 1;
  }
  device_->setCurrentIndex(index);
}

void SimPane::setClock(int32_t hz) {
  QSignalBlocker quiet(clock_);
  clock_->setValue(hz);
}

void SimPane::setPins(const QString& text) {
  pins_->setText(text);
}

void SimPane::setSimulating(bool running) {
  start_->setEnabled(!running);
  stop_->setEnabled(running);
  state_->setText(running ? tr("Simulation running") : tr("Not simulating"));
}

QPushButton* SimPane::macroButton(int32_t macroId) const {
  return macroId >= 0 && static_cast<size_t>(macroId) < calls_.size() ? calls_[macroId] : nullptr;
}

QSpinBox* SimPane::parameterBox(int32_t macroId, size_t index) const {
  if (macroId < 0 || static_cast<size_t>(macroId) >= boxes_.size() ||
      index >= boxes_[macroId].size())
    return nullptr;
  return boxes_[macroId][index];
}

void SimPane::setParameter(int32_t macroId, size_t index, int value) {
  if (QSpinBox* box = parameterBox(macroId, index))
    box->setValue(value);
}

void SimPane::setMacros(const std::vector<MacroRow>& macros) {
  auto* grid = static_cast<QGridLayout*>(macros_->layout());
  while (QLayoutItem* item = grid->takeAt(0)) {
    delete item->widget();
    delete item;
  }
  calls_.clear();
  boxes_.clear();
  for (size_t id = 0; id < macros.size(); ++id) {
    int row = static_cast<int>(id);
    const MacroRow& macro = macros[id];
    auto* call = new QPushButton(QString::fromStdString(macro.name), macros_);
    grid->addWidget(call, row, 0);
    std::vector<QSpinBox*> boxes;
    for (size_t p = 0; p < macro.params.size(); ++p) {
      auto* box = new QSpinBox(macros_);
      const ParameterRange range = parameterRange(macro.params[p]);
      box->setRange(range.min, range.max);
      box->setToolTip(QString::fromLatin1(range.help));
      box->setPrefix(QString::fromStdString(macro.params[p]) + " = ");
      box->setValue(range.min);
      grid->addWidget(box, row, static_cast<int>(p) + 1);
      boxes.push_back(box);
    }
    connect(call, &QPushButton::clicked, this, [this, id, boxes] {
      std::vector<long> args;
      for (QSpinBox* box : boxes)
        args.push_back(box->value());
      if (onMacro)
        onMacro(static_cast<int32_t>(id), args);
    });
    calls_.push_back(call);
    boxes_.push_back(std::move(boxes));
  }
}

} // namespace zvhost
