#include "fixture.h"

#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace zvtest {

zv::Variant params(std::vector<zv::Variant> items) {
  zv::SafeArray a(zv::VarType::Variant, 0, static_cast<int32_t>(items.size()) - 1);
  for (size_t i = 0; i < items.size(); ++i)
    a.set(static_cast<int32_t>(i), items[i]);
  return zv::Variant::array(std::move(a));
}

zv::Variant ints(std::initializer_list<int32_t> values) {
  std::vector<zv::Variant> items;
  for (int32_t v : values)
    items.push_back(zv::Variant::i4(v));
  return params(items);
}

std::string writeFixtureFolder(int macroCount) {
  static int serial = 0;
  const auto folder = std::filesystem::temp_directory_path() /
                      ("zv-sim-" + std::to_string(getpid()) + "-" + std::to_string(++serial));
  std::filesystem::create_directories(folder);
  static const char* names[] = {"EnableChannel", "DisableChannel", "SetDuty",
                                "ChangePeriod",  "SetDutyHighLow", "Spare"};
  std::ofstream out(folder / "Fixture.c", std::ios::binary);
  out << "[Settings]\r\nDescription=Fixture\r\n\r\n[MacroNames]\r\nCount=" << macroCount << "\r\n";
  for (int i = 0; i < macroCount; ++i)
    out << (i + 1) << "=" << names[i % 6] << "\r\n";
  out << "\r\n[MacroReturns]\r\n";
  for (int i = 0; i < macroCount; ++i)
    out << (i + 1) << "=void\r\n";
  return folder.string();
}

SimObject::SimObject(int macroCount, int16_t pwmCount) {
  zv::setMessageBoxService(&boxes);
  folder = writeFixtureFolder(macroCount);
  pwm = std::make_unique<zv::PWM>(zv::LibraryFacts{folder, "Fixture", 4, 0, 0});
  zv::PWM& p = *pwm;
  if (macroCount > 0)
    (void)p.put_ZelvorVersion(4 * 256);
  p.iPwmCount = pwmCount;
  p.iClockDivider = 1;
  p.bShowSim = -1;
  p.Calc_Period_Freq();
  boxes.texts.clear();
}

SimObject::~SimObject() {
  pwm.reset();
  zv::setMessageBoxService(nullptr);
  std::error_code ec;
  std::filesystem::remove_all(folder, ec);
}

} // namespace zvtest
