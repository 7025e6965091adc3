#include "calc_pane.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLocale>
#include <QVBoxLayout>
#include <cmath>

namespace zvhost {

QString clockSourceText(int code) {
  const int n = prescalerOfCode(code);
  return n ? QStringLiteral("clk / %1").arg(n) : QStringLiteral("?");
}

namespace {

QString number(double v) {
  return QLocale::c().toString(v, 'g', 7);
}

} // namespace

QString microsecondsText(double us) {
  if (us >= 1e6)
    return number(us / 1e6) + " s";
  if (us >= 1e3)
    return number(us / 1e3) + " ms";
  return number(us) + QString::fromUtf8(" µs");
}

QString hertzText(double hz) {
  if (hz >= 1e6)
    return number(hz / 1e6) + " MHz";
  if (hz >= 1e3)
    return number(hz / 1e3) + " kHz";
  return number(hz) + " Hz";
}

CalcPane::CalcPane(QWidget* parent) : QWidget(parent) {
  auto* layout = new QVBoxLayout(this);
  target_ = new QLabel(this);
  target_->setWordWrap(true);
  layout->addWidget(target_);

  auto* form = new QFormLayout;
  auto* wantRow = new QHBoxLayout;
  want_ = new QComboBox(this);
  want_->addItems({tr("Frequency (Hz)"), tr("Period (µs)")});
  value_ = new QDoubleSpinBox(this);
  value_->setRange(0.001, 1e9);
  value_->setDecimals(3);
  value_->setGroupSeparatorShown(true);
  value_->setStepType(QAbstractSpinBox::AdaptiveDecimalStepType);
  value_->setValue(1000);
  wantRow->addWidget(want_);
  wantRow->addWidget(value_, 1);
  auto* wantLabel = new QLabel(tr("&Wanted:"), this);
  wantLabel->setBuddy(value_);
  form->addRow(wantLabel, wantRow);
  auto* dutyRow = new QHBoxLayout;
  dutyUnit_ = new QComboBox(this);
  dutyUnit_->addItems({tr("No duty"), tr("Duty (%)"), tr("High time (µs)")});
  duty_ = new QDoubleSpinBox(this);
  duty_->setDecimals(3);
  duty_->setRange(0, 100);
  duty_->setValue(50);
  duty_->setEnabled(false);
  dutyRow->addWidget(dutyUnit_);
  dutyRow->addWidget(duty_, 1);
  auto* dutyLabel = new QLabel(tr("D&uty:"), this);
  dutyLabel->setBuddy(duty_);
  form->addRow(dutyLabel, dutyRow);
  layout->addLayout(form);

  table_ = new QTableWidget(0, 7, this);
  table_->setHorizontalHeaderLabels({tr("Clock source"), tr("Register"), tr("Period"),
                                     tr("Frequency"), tr("Error"), tr("Duty"), tr("High")});
  table_->horizontalHeaderItem(1)->setToolTip(tr("The period register"));
  table_->horizontalHeaderItem(5)->setToolTip(tr("The duty register for the duty asked"));
  table_->horizontalHeaderItem(6)->setToolTip(tr("What that duty gives"));
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table_->verticalHeader()->setVisible(false);
  table_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  table_->horizontalHeader()->setStretchLastSection(true);
  layout->addWidget(table_, 1);

  note_ = new QLabel(
      tr("One period on the chip is 2 × (period register + 1) × N clock cycles, N the divider "
         "of the clock source. A duty of d counts is high for d / (period register + 1) of it."),
      this);
  note_->setWordWrap(true);
  layout->addWidget(note_);

  auto* buttons = new QHBoxLayout;
  toPage_ = new QPushButton(tr("Put on the &property page..."), this);
  toPage_->setToolTip(tr("Open the property page with this period register and clock source"));
  toMacro_ = new QPushButton(tr("Call &ChangePeriod"), this);
  toMacro_->setToolTip(
      tr("Call the ChangePeriod macro with this setting and fill in the duty of SetDuty"));
  auto* help = new QPushButton(tr("Help"), this);
  buttons->addWidget(toPage_);
  buttons->addWidget(toMacro_);
  buttons->addStretch(1);
  buttons->addWidget(help);
  layout->addLayout(buttons);

  connect(want_, &QComboBox::currentIndexChanged, this, [this] { recalculate(); });
  connect(value_, &QDoubleSpinBox::valueChanged, this, [this] { recalculate(); });
  connect(dutyUnit_, &QComboBox::currentIndexChanged, this, [this](int unit) {
    duty_->setEnabled(unit != 0);
    duty_->setRange(0, unit == 1 ? 100 : 1e9);
    recalculate();
  });
  connect(duty_, &QDoubleSpinBox::valueChanged, this, [this] { recalculate(); });
  connect(toPage_, &QPushButton::clicked, this, [this] {
    if (const PeriodSetting* s = chosen(); s && onToPage)
      onToPage(*s);
  });
  connect(toMacro_, &QPushButton::clicked, this, [this] {
    if (const PeriodSetting* s = chosen(); s && onToMacro)
      onToMacro(*s);
  });
  connect(help, &QPushButton::clicked, this, [this] {
    if (onHelp)
      onHelp();
  });
  recalculate();
}

void CalcPane::setTarget(const QString& device, const QString& pins, int32_t clockHz) {
  target_->setText(tr("<b>%1</b> at %2 &mdash; pins: %3")
                       .arg(device.isEmpty() ? tr("No device") : device.toHtmlEscaped(),
                            hertzText(clockHz), pins.toHtmlEscaped()));
  if (clockHz != clockHz_) {
    clockHz_ = clockHz;
    recalculate();
  }
}

void CalcPane::ask(bool frequency, double value, DutyUnit dutyUnit, double duty) {
  want_->setCurrentIndex(frequency ? 0 : 1);
  value_->setValue(value);
  dutyUnit_->setCurrentIndex(static_cast<int>(dutyUnit));
  duty_->setValue(duty);
}

const PeriodSetting* CalcPane::chosen() const {
  if (settings_.empty())
    return nullptr;
  const int row = table_->currentRow();
  return row >= 0 && static_cast<size_t>(row) < settings_.size() ? &settings_[row]
                                                                 : &settings_.front();
}

void CalcPane::recalculate() {
  PeriodRequest r;
  r.clockHz = clockHz_;
  r.periodUs = want_->currentIndex() == 0 ? 1e6 / value_->value() : value_->value();
  r.dutyUnit = static_cast<DutyUnit>(dutyUnit_->currentIndex());
  r.duty = duty_->value();
  settings_ = closestSettings(r);
  showSettings();
}

void CalcPane::showSettings() {
  table_->setRowCount(static_cast<int>(settings_.size()));
  for (size_t i = 0; i < settings_.size(); ++i) {
    const PeriodSetting& s = settings_[i];
    const int row = static_cast<int>(i);
    const QString error = std::fabs(s.errorPercent) < 5e-7
                              ? tr("exact")
                              : QLocale::c().toString(s.errorPercent, 'f', 2) + " %";
    const QStringList cells = {clockSourceText(s.code),
                               QString::number(s.pr2),
                               microsecondsText(s.periodUs),
                               hertzText(1e6 / s.periodUs),
                               error,
                               s.duty < 0 ? QString("-") : QString::number(s.duty),
                               s.duty < 0 ? QString("-")
                                          : QLocale::c().toString(s.dutyPercent, 'f', 2) + " %, " +
                                                microsecondsText(s.highUs)};
    for (int col = 0; col < cells.size(); ++col)
      table_->setItem(row, col, new QTableWidgetItem(cells[col]));
  }
  if (!settings_.empty())
    table_->selectRow(0);
  toPage_->setEnabled(!settings_.empty());
  toMacro_->setEnabled(!settings_.empty());
}

} // namespace zvhost
