// Moving the settings between the selected component and the page. Every
// property is reached afresh through Item(0): with several components
// selected, the first alone is read and written.
#include <string>

#include "../../platform/funnel.h"
#include "../../platform/vbnum.h"
#include "../sim/prescaler.h"
#include "properties.h"

namespace zv {

Status Properties::PropertyPage_SelectionChanged() {
  return guard([this] { selectionChanged(); });
}

Status Properties::PropertyPage_ApplyChanges() {
  return guard([this] { applyChanges(); });
}

void Properties::selectionChanged() {
  auto get = [this](const char* name) { return site_.Item(0).getProperty(name); };

  lPageClockSpeed = toI4(get("ClockSpeed"));
  // MaxPwm packs the divider above the channel count: divider * 256 + count.
  iPagePwmCount = static_cast<int16_t>(toI4(get("MaxPwm")) & 255);
  iPageClockDivider = cint((toI4(get("MaxPwm")) & -256) / 256.0);
  iPagePrescaler = toI2(get("Prescaler"));
  bPageHasAltPin = toBool(get("HasAltPin"));
  bPageUseAltPin = toBool(get("UseAltPin"));
  bPageShowSim = toBool(get("ShowSim"));
  edtLabel1.setText(toStr(get("Label1")));
  edtLabel2.setText(toStr(get("Label2")));
  lblPWMCount.setCaption(std::to_string(iPagePwmCount));

  // A changed text brings iPagePr2, the bar and the read-outs along.
  txt_Pr2.setText(std::to_string(toI2(get("Pr2")) & 255));
  cboClockSource.setListIndex(prescalerCode(iPagePrescaler).value_or(0));

  // Clearing the box must not lose the stored setting to its Click.
  const bool useAltPin = bPageUseAltPin;
  chkUseAltPin.setValue(0);
  bPageUseAltPin = useAltPin;
  chkShowSim.setValue(bPageShowSim ? 1 : 0);

  const bool channels = iPagePwmCount >= 1;
  chkUseAltPin.setEnabled(channels && bPageHasAltPin);
  if (chkUseAltPin.Enabled() && bPageUseAltPin)
    chkUseAltPin.setValue(1);
  txt_Pr2.setEnabled(channels);
  VScroll1.setEnabled(channels);
  cboClockSource.setEnabled(channels);
  edtLabel1.setEnabled(channels);
  edtLabel2.setEnabled(iPagePwmCount >= 2);

  Calc_Period_Freq();
}

void Properties::applyChanges() {
  auto put = [this](const char* name, const Variant& value) {
    site_.Item(0).putProperty(name, value);
  };
  put("Prescaler", Variant::i2(iPagePrescaler));
  // Written from the text, not from iPagePr2: an empty text fails here.
  put("Pr2", Variant::i2(cint(textToNumber(txt_Pr2.Text()))));
  put("UseAltPin", Variant::boolean(bPageUseAltPin));
  put("ShowSim", Variant::boolean(bPageShowSim));
  put("Label1", Variant::str(edtLabel1.Text()));
  put("Label2", Variant::str(edtLabel2.Text()));
}

void Properties::cboClockSource_Click() {
  const int index = cboClockSource.ListIndex();
  if (index >= 0 && index < static_cast<int>(kPrescalers.size()))
    iPagePrescaler = kPrescalers[static_cast<size_t>(index)].value;
  Calc_Period_Freq();
  site_.setChanged(true);
}

void Properties::chkShowSim_Click() {
  bPageShowSim = chkShowSim.Value() == 1;
  site_.setChanged(true);
}

void Properties::chkUseAltPin_Click() {
  bPageUseAltPin = chkUseAltPin.Value() == 1;
  site_.setChanged(true);
}

} // namespace zv
