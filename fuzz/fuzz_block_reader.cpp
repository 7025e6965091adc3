// The block reader on a random code file and block name: the answer is the
// one error comment, or block text whose lines each end in LF, hold no CR and
// are never the block's own end marker.
#include <fuzzer/FuzzedDataProvider.h>

#include "support.h"

using namespace zv;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static auto pwm = fuzz::makeComponent("Blocks");
  FuzzedDataProvider in(data, size);
  std::string name = in.ConsumeRandomLengthString(24);
  const std::string bytes = in.ConsumeRemainingBytesAsString();
  fuzz::writeScratch("Blocks.c", bytes);
  fuzz::boxes().texts.clear();

  const std::string asked = name;
  const std::string text = pwm->GetCodeFromFile(name);
  fuzz::check(name == asked, "the block name stays unchanged");
  fuzz::check(fuzz::boxes().texts.empty(), "an existing file brings no message");
  if (text == "//Error Reading Code For " + pwm->sDescription + "::" + name + "\r\n")
    return 0;
  fuzz::check(text.find('\r') == std::string::npos, "block text holds no CR");
  fuzz::check(text.empty() || text.back() == '\n', "block text ends in LF");
  // An LF alone is part of a line, so only without one is each LF in the text a line end.
  for (size_t i = bytes.find('\n'); i != std::string::npos; i = bytes.find('\n', i + 1))
    if (i == 0 || bytes[i - 1] != '\r')
      return 0;
  const std::string end = "/*" + name + "_End*/\n";
  fuzz::check(text.rfind(end, 0) != 0 && text.find("\n" + end) == std::string::npos,
              "block text never holds its end marker as a line");
  return 0;
}
