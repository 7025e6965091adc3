// What the widl-generated headers include for automation_base.idl: the
// system's own declarations of the same types.
#pragma once

#include <oaidl.h>
#include <ocidl.h>
