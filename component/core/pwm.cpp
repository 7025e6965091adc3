// The component object's start-up and the answers about the component as a whole.
#include "../core/pwm.h"

#include "../../platform/funnel.h"
#include "../../platform/textfile.h"
#include "../../platform/vbnum.h"
#include "../codefile/key_values.h"

namespace zv {

PWM::PWM(LibraryFacts library, MessageBoxService* boxes) : App(std::move(library)), boxes_(boxes) {
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

  bIsAnalogue = boolOfKey(ini("Settings", "IsAnalogue", "0"));
  bMultipleAllowed = boolOfKey(ini("Settings", "MultipleAllowed", "0"));
  // Read before the blocks: a failed block read names the description.
  sDescription = ini("Settings", "Description", "default");
  sInitialisationCode = block("InitialisationCode");
  sInterruptCode = block("InterruptCode");
  bHasExclusiveInts = 0;
  bSupportsKeys = 0;

  buildPinTable();

  bSimulating = 0;
  iPr2 = 255;
  iPrescaler = 1;
  Calc_Period_Freq();
}

PWM::~PWM() = default;

void PWM::msgBox(const std::string& text) {
  showMessage(boxes_, text);
}

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
