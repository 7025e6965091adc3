// A frame shown as a QGroupBox; the views of its child controls are placed
// inside it, relative to its outer top left.
#pragma once

#include <QGroupBox>

#include "binding.h"
#include "platform/controls/widgets.h"

namespace zvqt {

class FrameView : public QGroupBox {
public:
  FrameView(zv::Frame& frame, QWidget* parent = nullptr);

private:
  void sync();
  zv::Frame& frame_;
  ControlBinding binding_;
};

} // namespace zvqt
