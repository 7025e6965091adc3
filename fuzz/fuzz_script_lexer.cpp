// One script line through the scanner, as the runner reads a command: words,
// values and the rest, in an order the input picks. Whatever it reads must
// print as valid UTF-8 JSON, and a string value must read back from its JSON
// byte for byte.
#include <fuzzer/FuzzedDataProvider.h>

#include "host/script/json_in.h"
#include "platform/ansi_text.h"
#include "support.h"

using namespace zv;

namespace {

bool validUtf8(std::string_view text) {
  char32_t c = 0;
  for (size_t n = 0; !text.empty(); text.remove_prefix(n))
    if ((n = decodeUtf8(text, c)) == 0)
      return false;
  return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  FuzzedDataProvider in(data, size);
  const uint8_t steps = in.ConsumeIntegral<uint8_t>();
  const std::string line = in.ConsumeRemainingBytesAsString();
  zvhost::LineScanner scan(line);
  try {
    for (int step = 0; step < 8 && !scan.atEnd(); ++step) {
      switch ((steps >> (step % 4 * 2)) & 3) {
      case 0:
        scan.word();
        break;
      case 1:
        scan.rest();
        break;
      default: {
        const Variant v = scan.value();
        const std::string text = zvhost::dumpJson(zvhost::variantJson(v));
        fuzz::check(validUtf8(text), "a value prints as UTF-8");
        fuzz::check(zvhost::variantFromJson(zvhost::parseJson(text)) == v,
                    "a value reads back from its JSON");
      }
      }
    }
  } catch (const zvhost::ScriptError&) {
  }
  return 0;
}
