// The plug-in's C entry points. A host dlopens AVR_PWM.so, looks these up by
// name and drives what they return through objects.h. The code file and the
// help folder are found beside the loaded library unless the host names
// another folder and base name for an object.
#pragma once

#include "objects.h"

#ifdef _WIN32
// Inside the Windows library the COM adapter calls these; nothing exports them.
#define ZV_EXPORT extern "C"
#else
#define ZV_EXPORT extern "C" __attribute__((visibility("default")))
#endif

// Creates a component (its start-up runs). folder and baseName may be null.
// On a failed start-up answers nullptr and fills status.
ZV_EXPORT zv::ComponentObject* zelvor_create_component(const char* folder, const char* baseName,
                                                        zv::Status* status);
ZV_EXPORT void zelvor_destroy_component(zv::ComponentObject* component);

// Creates the property page (its initialisation runs).
ZV_EXPORT zv::PageObject* zelvor_create_page(zv::Status* status);
ZV_EXPORT void zelvor_destroy_page(zv::PageObject* page);
