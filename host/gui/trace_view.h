// The logic-analyzer view of verify on chip: channel 1's and channel 2's pins
// on one time axis over the measured periods, and beside each trace the
// panel's period and duty with the chip's period, high time and duty, a
// mismatch in red.
#pragma once

#include <QWidget>
#include <optional>

#include "host/verify/verify.h"

namespace zvhost {

class TraceView : public QWidget {
public:
  explicit TraceView(QWidget* parent = nullptr);

  void show(const Verification& v);
  void showError(const QString& text); // what kept verify from running
  const std::optional<Verification>& verification() const { return shown_; }

  QSize sizeHint() const override { return {480, 190}; }

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  void paintTrace(QPainter& p, const PinTrace& pin, const QRect& row, uint64_t from,
                  uint64_t to) const;
  void paintAxis(QPainter& p, const QRect& area, uint64_t from, uint64_t to) const;

  std::optional<Verification> shown_;
  QString message_;
};

} // namespace zvhost
