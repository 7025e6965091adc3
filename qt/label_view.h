// A label shown as a QLabel: caption, single-line border, alignment.
#pragma once

#include <QLabel>

#include "binding.h"
#include "platform/controls/widgets.h"

namespace zvqt {

class LabelView : public QLabel {
public:
  LabelView(zv::Label& label, QWidget* parent = nullptr);

private:
  void sync();
  zv::Label& label_;
  ControlBinding binding_;
};

} // namespace zvqt
