/// @file
/// The plug-in's C entry points. A host opens the plug-in library (AVR_PWM.so),
/// looks these up by name and drives what they answer through objects.h. The
/// code file and the help folder are found beside the loaded library unless
/// the host names another folder and base name for an object.
#pragma once

#include "objects.h"

/// Exports an entry point by its C name. Inside the Windows library the COM
/// adapter calls these, and nothing exports them.
#ifdef _WIN32
#define ZV_EXPORT extern "C"
#else
#define ZV_EXPORT extern "C" __attribute__((visibility("default")))
#endif

/// Creates a component; its start-up runs, reading the code file
/// folder/baseName.c (null or empty: the library's own folder and base name),
/// and shows its messages through the default message box service. Answers
/// the component, owned by the caller until zelvor_destroy_component; on a
/// failed start-up answers nullptr. status (may be null) receives the outcome.
ZV_EXPORT zv::ComponentObject* zelvor_create_component(const char* folder, const char* baseName,
                                                       zv::Status* status);
/// Destroys a component made by zelvor_create_component; null does nothing.
ZV_EXPORT void zelvor_destroy_component(zv::ComponentObject* component);

/// Creates the property page (its initialisation runs). Answers the page,
/// owned by the caller until zelvor_destroy_page, or nullptr on a failure;
/// status (may be null) receives the outcome.
ZV_EXPORT zv::PageObject* zelvor_create_page(zv::Status* status);
/// Destroys a page made by zelvor_create_page; null does nothing.
ZV_EXPORT void zelvor_destroy_page(zv::PageObject* page);
