// A check box shown as a QCheckBox; a click sets the model's Value to 1 or 0.
// Value 2 shows greyed.
#pragma once

#include <QCheckBox>

#include "binding.h"
#include "platform/controls/widgets.h"

namespace zvqt {

class CheckBoxView : public QCheckBox {
public:
  CheckBoxView(zv::CheckBox& box, QWidget* parent = nullptr);

private:
  void sync();
  zv::CheckBox& box_;
  ControlBinding binding_;
};

} // namespace zvqt
