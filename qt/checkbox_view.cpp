#include "checkbox_view.h"

#include <QSignalBlocker>

namespace zvqt {

CheckBoxView::CheckBoxView(zv::CheckBox& box, QWidget* parent)
    : QCheckBox(parent), box_(box), binding_(box, [this] { sync(); }) {
  connect(this, &QCheckBox::clicked, this, [this] {
    runUserAction([&] { box_.setValue(checkState() == Qt::Checked ? 1 : 0); });
    sync();
  });
  sync();
}

void CheckBoxView::sync() {
  showControlState(*this, box_);
  QSignalBlocker block(this);
  QString caption = fromAnsi(box_.Caption());
  if (text() != caption)
    setText(caption);
  static const Qt::CheckState states[] = {Qt::Unchecked, Qt::Checked, Qt::PartiallyChecked};
  int value = box_.Value();
  setCheckState(value >= 0 && value <= 2 ? states[value] : Qt::Unchecked);
  // Only the model greys the box: a click never leads to the third state.
  setTristate(value == 2);
}

} // namespace zvqt
