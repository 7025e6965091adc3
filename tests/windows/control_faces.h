// The control's faces that containers use before or instead of activation:
// its connection points and quick activation.
#pragma once

#include "ole_site.h"

namespace zvtest {

// The one connection point, the event interface's, through the enumerator.
void testEvents(IUnknown* control);
// A new control sited in one call, as containers do that offer quick activation.
void testQuickActivate(ContainerSite& site);

} // namespace zvtest
