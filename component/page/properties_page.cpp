#include "properties_page.h"

#include "../../platform/errors.h"

namespace zv {

std::unique_ptr<PageObject> createPropertiesPage() { raise(errInvalidCall, "not built yet"); }

} // namespace zv
