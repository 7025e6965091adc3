#include "sim_pane.h"

#include <QFileInfo>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <climits>

namespace zvhost {

std::string firstField(const std::string& entry) {
  return entry.substr(0, entry.find('|'));
}

SimPane::SimPane(const std::vector<std::string>& devices, QWidget* parent) : QWidget(parent) {
  auto* layout = new QVBoxLayout(this);
  auto* target = new QGroupBox(tr("Target"), this);
  auto* form = new QFormLayout(target);
  device_ = new QComboBox(target);
  for (const std::string& path : devices)
    device_->addItem(QFileInfo(QString::fromStdString(path)).completeBaseName(),
                     QString::fromStdString(path));
  form->addRow(tr("Device:"), device_);
  clock_ = new QSpinBox(target);
  clock_->setRange(0, INT_MAX);
  clock_->setSuffix(tr(" Hz"));
  clock_->setGroupSeparatorShown(true);
  clock_->setValue(8000000);
  form->addRow(tr("Clock:"), clock_);
  layout->addWidget(target);

  auto* run = new QHBoxLayout;
  auto* start = new QPushButton(tr("Start simulation"), this);
  auto* stop = new QPushButton(tr("Stop simulation"), this);
  run->addWidget(start);
  run->addWidget(stop);
  layout->addLayout(run);

  macros_ = new QGroupBox(tr("Macros"), this);
  new QGridLayout(macros_);
  layout->addWidget(macros_);
  layout->addStretch(1);

  connect(device_, &QComboBox::activated, this, [this] {
    if (onDevice)
      onDevice(device());
  });
  connect(clock_, &QSpinBox::editingFinished, this, [this] {
    if (onClock)
      onClock(clock_->value());
  });
  connect(start, &QPushButton::clicked, this, [this] {
    if (onStart)
      onStart();
  });
  connect(stop, &QPushButton::clicked, this, [this] {
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
  clock_->setValue(hz);
}

void SimPane::setMacros(const std::vector<MacroRow>& macros) {
  auto* grid = static_cast<QGridLayout*>(macros_->layout());
  while (QLayoutItem* item = grid->takeAt(0)) {
    delete item->widget();
    delete item;
  }
  for (size_t id = 0; id < macros.size(); ++id) {
    int row = static_cast<int>(id);
    const MacroRow& macro = macros[id];
    auto* call = new QPushButton(QString::fromStdString(macro.name), macros_);
    grid->addWidget(call, row, 0);
    std::vector<QSpinBox*> boxes;
    for (size_t p = 0; p < macro.params.size(); ++p) {
      auto* box = new QSpinBox(macros_);
      // Wider than a parameter's range, so the component's own checks are reachable.
      box->setRange(-32768, 65535);
      box->setPrefix(QString::fromStdString(macro.params[p]) + " = ");
      box->setValue(p == 0 ? 1 : 0);
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
  }
}

} // namespace zvhost
