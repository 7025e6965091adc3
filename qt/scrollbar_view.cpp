#include "scrollbar_view.h"

#include <QSignalBlocker>

namespace zvqt {

ScrollBarView::ScrollBarView(zv::ScrollBar& bar, QWidget* parent)
    : QScrollBar(Qt::Vertical, parent), bar_(bar), binding_(bar, [this] { sync(); }) {
  setFocusPolicy(Qt::StrongFocus);
  connect(this, &QAbstractSlider::actionTriggered, this, [this](int action) {
    if (action != SliderSingleStepSub && action != SliderSingleStepAdd)
      return;
    runUserAction([&] {
      if (action == SliderSingleStepSub)
        bar_.arrowUp();
      else
        bar_.arrowDown();
    });
    // The slider then settles on the model's value instead of stepping itself.
    setSliderPosition(bar_.Value());
  });
  connect(this, &QAbstractSlider::valueChanged, this, [this](int value) {
    runUserAction([&] { bar_.setValue(value); });
    sync();
  });
  sync();
}

void ScrollBarView::sync() {
  showControlState(*this, bar_);
  QSignalBlocker block(this);
  if (minimum() != bar_.Min() || maximum() != bar_.Max())
    setRange(bar_.Min(), bar_.Max());
  setSingleStep(bar_.SmallChange());
  setPageStep(bar_.LargeChange());
  if (value() != bar_.Value())
    setValue(bar_.Value());
}

} // namespace zvqt
