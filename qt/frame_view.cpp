#include "frame_view.h"

namespace zvqt {

FrameView::FrameView(zv::Frame& frame, QWidget* parent)
    : QGroupBox(parent), frame_(frame), binding_(frame, [this] { sync(); }) {
  sync();
}

void FrameView::sync() {
  showControlState(*this, frame_);
  QString caption = fromAnsi(frame_.Caption());
  if (title() != caption)
    setTitle(caption);
}

} // namespace zvqt
