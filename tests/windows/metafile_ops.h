// The drawing operations a GDI metafile holds, read back record by record
// into the list the Linux side writes from its paint engine.
#pragma once

#include <windows.h>

#include "draw_ops.h"

namespace zvtest {

DrawOpList metafileOps(HENHMETAFILE metafile);

} // namespace zvtest
