/// @file
/// The status every operation of the contract answers (zv::Status), and the
/// run-time error numbers it carries (zv::ErrorNumber).
#pragma once

#include "platform/funnel.h"
