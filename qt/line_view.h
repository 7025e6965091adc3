// A line control shown as a thin transparent widget over the line's extent in
// its parent, painting the line in its colour.
#pragma once

#include <QWidget>

#include "binding.h"
#include "platform/controls/widgets.h"

namespace zvqt {

class LineView : public QWidget {
public:
  LineView(zv::Line& line, QWidget* parent = nullptr);

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  void sync();
  zv::Line& line_;
  ControlBinding binding_;
};

} // namespace zvqt
