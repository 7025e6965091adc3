#include "combobox_view.h"

#include <QSignalBlocker>

namespace zvqt {

ComboBoxView::ComboBoxView(zv::ComboBox& combo, QWidget* parent)
    : QComboBox(parent), combo_(combo), binding_(combo, [this] { sync(); }) {
  setEditable(false);
  connect(this, &QComboBox::activated, this, [this](int index) {
    runUserAction([&] { combo_.setListIndex(index); });
    sync();
  });
  sync();
}

void ComboBoxView::sync() {
  showControlState(*this, combo_);
  QSignalBlocker block(this);
  const auto& items = combo_.items();
  bool same = count() == static_cast<int>(items.size());
  for (int i = 0; same && i < count(); ++i)
    same = itemText(i) == fromAnsi(items[i]);
  if (!same) {
    clear();
    for (const auto& item : items)
      addItem(fromAnsi(item));
  }
  if (currentIndex() != combo_.ListIndex())
    setCurrentIndex(combo_.ListIndex());
}

} // namespace zvqt
