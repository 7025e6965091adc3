// A drop-down list (no typing) shown as a QComboBox; choosing an entry sets
// the model's ListIndex.
#pragma once

#include <QComboBox>

#include "binding.h"
#include "platform/controls/widgets.h"

namespace zvqt {

class ComboBoxView : public QComboBox {
public:
  ComboBoxView(zv::ComboBox& combo, QWidget* parent = nullptr);

private:
  void sync();
  zv::ComboBox& combo_;
  ControlBinding binding_;
};

} // namespace zvqt
