#include "support.h"

#include <stdlib.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>

#include "platform/errors.h"
#include "platform/variant.h"

namespace zv::fuzz {

namespace {

struct Scratch {
  Scratch() {
    std::string pattern = (std::filesystem::temp_directory_path() / "zvfuzz-XXXXXX").string();
    if (::mkdtemp(pattern.data()))
      path = pattern;
  }
  ~Scratch() {
    std::error_code ec;
    std::filesystem::remove_all(path, ec);
  }
  std::string path;
};

} // namespace

const std::string& scratchFolder() {
  static Scratch scratch;
  return scratch.path;
}

std::string writeScratch(const std::string& name, std::string_view bytes) {
  const std::string path = scratchFolder() + "/" + name;
  std::ofstream(path, std::ios::binary | std::ios::trunc)
      .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return path;
}

HeadlessMessageBoxes& boxes() {
  static HeadlessMessageBoxes headless;
  return headless;
}

std::unique_ptr<PWM> makeComponent(const std::string& baseName) {
  std::ifstream shipped(ZV_CODE_FOLDER "/AVR_PWM.c", std::ios::binary);
  const std::string code{std::istreambuf_iterator<char>(shipped), {}};
  writeScratch(baseName + ".c", code);
  return std::make_unique<PWM>(LibraryFacts{scratchFolder(), baseName, 4, 0, 0}, &boxes());
}

Variant randomVariant(FuzzedDataProvider& in, bool allowArray) {
  static const char* const kTexts[] = {"",    "0",    "1",     "255",   "256",   "-1",    " 12 ",
                                       "1e3", "&HFF", "abc",   "True",  "false", "1,000", "(5)",
                                       "2.5", "-0.4", "1e400", "12abc", "&O777", "$3"};
  switch (in.ConsumeIntegralInRange(0, allowArray ? 9 : 8)) {
  case 0:
    return {};
  case 1:
    return Variant::i2(in.ConsumeIntegral<int16_t>());
  case 2:
    return Variant::i4(in.ConsumeIntegral<int32_t>());
  case 3:
    return Variant::ui1(in.ConsumeIntegral<uint8_t>());
  case 4:
    return Variant::boolean(in.ConsumeBool());
  case 5:
    return Variant::r4(in.ConsumeFloatingPoint<float>());
  case 6:
    return Variant::r8(in.PickValueInArray<double>(
        {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(), -0.5,
         255.5, 1e300, in.ConsumeFloatingPoint<double>()}));
  case 7:
    return Variant::str(in.PickValueInArray(kTexts));
  case 8:
    return Variant::str(in.ConsumeRandomLengthString(12));
  default: {
    const int32_t lower = in.PickValueInArray<int32_t>({0, 0, 1, -1});
    const int32_t count = in.ConsumeIntegralInRange(0, 4);
    const VarType type = in.PickValueInArray<VarType>(
        {VarType::Variant, VarType::Variant, VarType::I2, VarType::UI1, VarType::BSTR});
    SafeArray a(type, lower, lower + count - 1);
    for (int32_t i = 0; i < count; ++i) {
      Variant v = randomVariant(in, type == VarType::Variant && lower == 0 && i == 0);
      // Elements that don't convert to the element type stay empty.
      try {
        a.set(lower + i, v);
      } catch (const RuntimeError&) {
      }
    }
    return Variant::array(std::move(a));
  }
  }
}

void check(bool ok, std::string_view what) {
  if (ok)
    return;
  std::fprintf(stderr, "invariant broken: %.*s\n", static_cast<int>(what.size()), what.data());
  std::abort();
}

} // namespace zv::fuzz
