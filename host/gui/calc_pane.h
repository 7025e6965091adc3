// The period calculator of the desktop window: the user asks for a frequency
// or a period, and perhaps a duty, for the device and clock of the component
// shown; the pane lists the period register and clock source that come
// closest for each divided clock, best first, each with its error. The chosen
// row goes onto the property page or into a ChangePeriod call, as the window
// decides.
#pragma once

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QWidget>
#include <functional>
#include <vector>

#include "host/calc/period_calc.h"

namespace zvhost {

class CalcPane : public QWidget {
public:
  explicit CalcPane(QWidget* parent = nullptr);

  // The target the settings are worked out for.
  void setTarget(const QString& device, const QString& pins, int32_t clockHz);
  // What the user asks for: a frequency in hertz, or a period in microseconds.
  void ask(bool frequency, double value, DutyUnit dutyUnit = DutyUnit::None, double duty = 0);

  const std::vector<PeriodSetting>& settings() const { return settings_; }
  // The row the user chose (the best one unless another is selected); null when none.
  const PeriodSetting* chosen() const;

  QComboBox* wantBox() const { return want_; }
  QDoubleSpinBox* valueBox() const { return value_; }
  QComboBox* dutyUnitBox() const { return dutyUnit_; }
  QDoubleSpinBox* dutyBox() const { return duty_; }
  QTableWidget* table() const { return table_; }
  QPushButton* toPageButton() const { return toPage_; }
  QPushButton* toMacroButton() const { return toMacro_; }

  std::function<void(const PeriodSetting&)> onToPage;
  std::function<void(const PeriodSetting&)> onToMacro;
  std::function<void()> onHelp;

private:
  void recalculate();
  void showSettings();
  QLabel* target_;
  QComboBox* want_;
  QDoubleSpinBox* value_;
  QComboBox* dutyUnit_;
  QDoubleSpinBox* duty_;
  QTableWidget* table_;
  QLabel* note_;
  QPushButton* toPage_;
  QPushButton* toMacro_;
  int32_t clockHz_ = 0;
  std::vector<PeriodSetting> settings_;
};

// "clk / 64" for a clock source code 1..5, as the property page lists it.
QString clockSourceText(int code);
// A time in microseconds as "64 µs", "4.096 ms", "1.5 s"; a frequency in Hz as "15.625 kHz".
QString microsecondsText(double us);
QString hertzText(double hz);

} // namespace zvhost
