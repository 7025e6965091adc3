// The property page site: the objects selected for the page, the page's
// Changed flag, and the focus among the page's controls.
#pragma once

#include <functional>
#include <vector>

#include "../dispatch.h"
#include "control.h"

namespace zv {

class PropertyPageSite : public Form {
public:
  // SelectedControls: Item(0) is the first; the site doesn't own them.
  std::vector<Dispatch*> SelectedControls;
  Dispatch& Item(size_t i); // raises 9 when there is no such item

  bool Changed() const { return changed_; }
  void setChanged(bool c);
  std::function<void()> onChangedChanged; // for views (the Apply button)

private:
  bool changed_ = false;
};

} // namespace zv
