// The library's life: how many objects and server locks keep it loaded.
#pragma once

namespace zvcom {

void objectCreated();
void objectDestroyed();

} // namespace zvcom
