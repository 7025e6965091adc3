#include "pagesite.h"

#include "../errors.h"

namespace zv {

Dispatch& PropertyPageSite::Item(size_t i) {
  if (i >= SelectedControls.size() || SelectedControls[i] == nullptr)
    raise(errSubscript);
  return *SelectedControls[i];
}

void PropertyPageSite::setChanged(bool c) {
  if (c == changed_)
    return;
  changed_ = c;
  if (onChangedChanged)
    onChangedChanged();
}

} // namespace zv
