// What the fuzz targets share: a scratch folder for the files they write, a
// component made from the shipped code file, and a check that stops the run
// with a message when an invariant breaks.
#pragma once

#include <fuzzer/FuzzedDataProvider.h>

#include <memory>
#include <string>
#include <string_view>

#include "core/pwm.h"
#include "platform/msgbox.h"

namespace zv::fuzz {

// A folder of this process, removed when the process ends.
const std::string& scratchFolder();
// Writes bytes to a file in the scratch folder and answers its path.
std::string writeScratch(const std::string& name, std::string_view bytes);

// Message boxes are recorded, never shown; each target may look at them.
HeadlessMessageBoxes& boxes();

// A component whose code file is a copy of the shipped one, named baseName
// ".c" in the scratch folder, so that a target may overwrite it.
std::unique_ptr<PWM> makeComponent(const std::string& baseName = "AVR_PWM");

// A Variant of a random type: empty, a number of each kind (NaN and
// infinities included), a text that may read as a number, or an array with
// random bounds, one level deep.
Variant randomVariant(FuzzedDataProvider& in, bool allowArray = true);

// Aborts with the message when ok is false: the fuzzer keeps the input.
void check(bool ok, std::string_view what);

} // namespace zv::fuzz
