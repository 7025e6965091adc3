// A vertical scroll bar shown as a QScrollBar. A click on an arrow (or the
// arrow keys) is the model's arrowUp/arrowDown; any other move sets the value.
#pragma once

#include <QScrollBar>

#include "binding.h"
#include "platform/controls/widgets.h"

namespace zvqt {

class ScrollBarView : public QScrollBar {
public:
  ScrollBarView(zv::ScrollBar& bar, QWidget* parent = nullptr);

private:
  void sync();
  zv::ScrollBar& bar_;
  ControlBinding binding_;
};

} // namespace zvqt
