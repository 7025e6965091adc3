// Bags through the host's JSON reader and writer. Random text either is
// refused or reads as a bag whose text, read again, gives the same bag and the
// same text. A random bag of any bytes is written and read back unchanged.
#include <fuzzer/FuzzedDataProvider.h>

#include <cmath>

#include "host/script/json_in.h"
#include "support.h"

using namespace zv;

namespace {

void roundTrip(const PropertyBag& bag, const char* what) {
  const std::string text = zvhost::dumpJson(zvhost::bagJson(bag));
  PropertyBag again;
  try {
    again = zvhost::bagFromJson(zvhost::parseJson(text));
  } catch (const zvhost::ScriptError&) {
    fuzz::check(false, what);
  }
  fuzz::check(again.entries() == bag.entries(), what);
  fuzz::check(zvhost::dumpJson(zvhost::bagJson(again)) == text, what);
}

// NaN and infinities have no JSON form: a bag holding one isn't asked to return.
bool hasJsonForm(const Variant& v) {
  if (!v.isArray())
    return (v.type() != VarType::R4 && v.type() != VarType::R8) || std::isfinite(v.rawR8());
  for (int32_t i = v.arr().lbound(); i <= v.arr().ubound(); ++i)
    if (!hasJsonForm(v.arr().at(i)))
      return false;
  return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  FuzzedDataProvider in(data, size);
  if (in.ConsumeBool()) {
    const std::string text = in.ConsumeRemainingBytesAsString();
    PropertyBag bag;
    try {
      bag = zvhost::bagFromJson(zvhost::parseJson(text));
    } catch (const zvhost::ScriptError&) {
      return 0;
    }
    roundTrip(bag, "a bag read from text saves and loads again unchanged");
    return 0;
  }
  PropertyBag bag;
  for (int n = in.ConsumeIntegralInRange(0, 8); n > 0; --n) {
    const std::string name = in.ConsumeRandomLengthString(8);
    bag.WriteProperty(name, in.ConsumeBool() ? Variant::str(in.ConsumeRandomLengthString(16))
                                             : fuzz::randomVariant(in));
  }
  bool finite = true;
  for (const auto& entry : bag.entries())
    finite = finite && hasJsonForm(entry.second);
  if (finite)
    roundTrip(bag, "a bag of any bytes saves and loads unchanged");
  return 0;
}
