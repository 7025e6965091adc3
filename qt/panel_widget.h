// A component's panel: its surface's size and background style, with a view
// for each of its controls. The component must outlive the widget.
#pragma once

#include <QWidget>

#include "binding.h"
#include "zelvor/objects.h"
#include "view_factory.h"

namespace zvqt {

class PanelWidget : public QWidget {
public:
  explicit PanelWidget(zv::ComponentObject& component, QWidget* parent = nullptr);
  QWidget* viewOf(const zv::Control* control) const;

private:
  void sync();
  zv::UserControlSurface& surface_;
  ControlBinding binding_;
  ViewMap views_;
};

} // namespace zvqt
