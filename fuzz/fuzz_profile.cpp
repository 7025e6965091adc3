// Profile lookups on random file bytes with random section, key and default:
// the answer is never longer than the buffer allows and its count is its length.
#include <fuzzer/FuzzedDataProvider.h>

#include "platform/profile.h"
#include "support.h"

using namespace zv;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  FuzzedDataProvider in(data, size);
  const std::string section = in.ConsumeRandomLengthString(40);
  const std::string key = in.ConsumeRandomLengthString(40);
  const std::string defaultValue = in.ConsumeRandomLengthString(400);
  const uint32_t bufferSize = in.PickValueInArray<uint32_t>({255, 255, 30, 2, 1, 0});
  const std::string path = fuzz::writeScratch("profile.ini", in.ConsumeRemainingBytesAsString());

  std::string out = "untouched";
  const uint32_t n = getPrivateProfileString(section, key, defaultValue, out, bufferSize, path);
  fuzz::check(n == out.size(), "count equals the answer's length");
  fuzz::check(bufferSize == 0 ? n == 0 : n <= bufferSize - 1, "answer fits the buffer");

  std::string again;
  fuzz::check(getPrivateProfileString(section, key, defaultValue, again, bufferSize, path) == n &&
                  again == out,
              "a second read answers the same");

  // An empty value or a missing key gives the default number.
  std::string value;
  if (getPrivateProfileString(section, key, "", value, 255, path) == 0)
    fuzz::check(getPrivateProfileInt(section, key, -7, path) == -7,
                "empty value gives the default");
  else
    (void)getPrivateProfileInt(section, key, -7, path);
  return 0;
}
