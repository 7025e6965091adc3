// Views for a set of control models: one view per control, each placed in the
// view of its parent control (a frame) or in the root widget.
#pragma once

#include <QWidget>
#include <map>
#include <vector>

#include "platform/controls/control.h"

namespace zvqt {

// The view that shows the control, or nullptr for a kind without a view.
QWidget* makeView(zv::Control& control, QWidget* parent);

using ViewMap = std::map<const zv::Control*, QWidget*>;
ViewMap buildViews(const std::vector<zv::Control*>& controls, QWidget& root);

// Chains the keyboard order of the views that take the focus by their tab indexes.
void applyTabOrder(const ViewMap& views);

} // namespace zvqt
