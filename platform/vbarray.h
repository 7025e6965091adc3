// A one-dimensional array with bounds that may be unallocated, as the
// component's array fields are. Reading the bounds or an element of an
// unallocated array, or an index outside the bounds, raises error 9.
#pragma once

#include <cstdint>
#include <vector>

#include "errors.h"

namespace zv {

template <class T> class VbArray {
public:
  bool allocated() const { return allocated_; }
  // Allocates anew with bounds lower..upper; every element default-valued.
  void redim(int32_t lower, int32_t upper) {
    allocated_ = true;
    lower_ = lower;
    items_.clear();
    items_.resize(upper >= lower ? static_cast<size_t>(upper - lower + 1) : 0);
  }
  void erase() {
    allocated_ = false;
    items_.clear();
  }
  int32_t lbound() const {
    if (!allocated_)
      raise(errSubscript);
    return lower_;
  }
  int32_t ubound() const {
    if (!allocated_)
      raise(errSubscript);
    return lower_ + static_cast<int32_t>(items_.size()) - 1;
  }
  bool inBounds(int64_t i) const { return i >= lbound() && i <= ubound(); }
  T& operator[](int64_t i) {
    if (!inBounds(i))
      raise(errSubscript);
    return items_[static_cast<size_t>(i - lower_)];
  }
  const T& operator[](int64_t i) const {
    if (!inBounds(i))
      raise(errSubscript);
    return items_[static_cast<size_t>(i - lower_)];
  }
  size_t size() const { return items_.size(); }

private:
  bool allocated_ = false;
  int32_t lower_ = 0;
  std::vector<T> items_;
};

} // namespace zv
