#include "fixture.h"

#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace zvtest {

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
