// The component object's start-up and the answers about the component as a whole.
#include "../core/pwm.h"

#include "../../platform/msgbox.h"
#include "../../platform/textfile.h"
#include "../../platform/vbnum.h"
#include "../codefile/key_values.h"
#include "../core/guard.h"

namespace zv {

namespace {

std::string ini(PWM& pwm, std::string section, std::string key, std::string fallback) {
  return pwm.GetIniKeyValue(section, key, fallback);
}

std::string block(PWM& pwm, std::string name) {
  return pwm.GetCodeFromFile(name);
}

} // namespace

PWM::PWM(LibraryFacts library) : App(std::move(library)) {
  // Fixed-size per-channel arrays exist from the object's creation.
  aChannelOn.redim(0, 2);
  aDuty.redim(0, 2);
  createPanel();

  sCodeFilename = App.baseName + ".c";

  const std::string helpFolder = joinPath(App.folder, "help");
  std::string help = joinPath(helpFolder, App.baseName + ".hlp");
  if (!fileExists(help))
    help = joinPath(helpFolder, App.baseName + ".chm");
  if (fileExists(help))
    appHelpFile = help;
  else
    msgBox("Can't find " + App.baseName + " help file");

  bIsAnalogue = boolOfKey(ini(*this, "Settings", "IsAnalogue", "0"));
  bMultipleAllowed = boolOfKey(ini(*this, "Settings", "MultipleAllowed", "0"));
  // Read before the blocks: a failed block read names the description.
  sDescription = ini(*this, "Settings", "Description", "default");
  sInitialisationCode = block(*this, "InitialisationCode");
  sInterruptCode = block(*this, "InterruptCode");
  bHasExclusiveInts = 0;
  bSupportsKeys = 0;

  buildPinTable();

  bSimulating = 0;
  iPr2 = 255;
  iPrescaler = 1;
  Calc_Period_Freq();
}

PWM::~PWM() = default;

Status PWM::get_MultipleAllowed(int32_t& result) {
  return guard([&] { result = bMultipleAllowed; });
}

Status PWM::get_IsAnalogue(int32_t& result) {
  return guard([&] { result = bIsAnalogue; });
}

Status PWM::get_Description(std::string& result) {
  return guard([&] { result = sDescription; });
}

Status PWM::put_ZelvorVersion(int32_t RHS) {
  return guard([&] {
    const int64_t withoutMinor = static_cast<int64_t>(RHS) & ~int64_t{0xFF};
    iVersionMajor = narrow16(withoutMinor / 256);
    iVersionMinor = static_cast<int16_t>(RHS & 0xFF);
    BuildMacroTable();
  });
}

Status PWM::get_ComponentVersion(int32_t& result) {
  return guard([&] { result = add16(mul16(App.major, 256), App.minor); });
}

Status PWM::put_PICAnalogueBits(int32_t RHS) {
  return guard([&] { lAnalogueBits = RHS; });
}

} // namespace zv
