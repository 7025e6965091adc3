// The property page "Properties" of the component.
#pragma once

#include <memory>

#include "zelvor/objects.h"

namespace zv {

// Creates the page and its controls; PropertyPage_Initialize runs.
std::unique_ptr<PageObject> createPropertiesPage();

} // namespace zv
