// Properties: the component's property page. It works on a copy of the
// settings: it reads the selected component's public properties by name when
// the selection arrives and writes six of them back on apply; in between only
// its own fields and controls change.
//
// Notifications run nested inside the control write that raised them and only
// on a real change; the chains between txt_Pr2 and VScroll1 end on that rule.
// A run-time error inside a handler travels out through the control write
// that raised it; the two platform calls turn it into a failed Status.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "zelvor/objects.h"

namespace zv {

class Properties final : public PageObject {
public:
  // Creates the controls and runs PropertyPage_Initialize.
  Properties();

  // ---- Fields, in their order ----
  float fPagePeriod = 0;    // microseconds; 0 without a clock source
  float fPageFrequency = 0; // kilohertz; 0 when the period is 0
  int16_t iPagePr2 = 0;
  int16_t iPagePrescaler = 0;
  bool bPageUseAltPin = false;
  bool bPageShowSim = false;
  bool bPageHasAltPin = false;
  int32_t lPageClockSpeed = 0; // hertz; 0 when unknown
  int16_t iPagePwmCount = 0;
  int16_t iPageClockDivider = 0;

  // How many times Calc_Period_Freq has run, for whoever watches the chains.
  int calcRuns = 0;

  // Works out the period and frequency from the page's fields and writes
  // the three read-outs.
  void Calc_Period_Freq();

  // ---- PageObject ----
  void setMessageBoxes(MessageBoxService* service) override { boxes_ = service; }
  PropertyPageSite& site() override { return site_; }
  Status PropertyPage_SelectionChanged() override;
  Status PropertyPage_ApplyChanges() override;
  float pageWidth() const override { return 6345; }
  float pageHeight() const override { return 3360; }
  std::string caption() const override { return "Properties"; }
  std::vector<Control*> controls() override { return order_; }
  Control* control(const std::string& name) override;
  Inspected inspect() const override;

  // ---- Controls, in their order of creation ----
  CheckBox chkShowSim{"chkShowSim"};
  Frame Frame1{"Frame1"};
  Label Lbl_frequency{"Lbl_frequency"};
  Label Lbl_period{"Lbl_period"};
  Label Label2{"Label2"};
  Label Label1{"Label1"};
  Label Label3{"Label3"};
  Label lblClockSpeed{"lblClockSpeed"};
  Frame Frame2{"Frame2"};
  ComboBox cboClockSource{"cboClockSource"};
  TextBox txt_Pr2{"txt_Pr2"};
  ScrollBar VScroll1{"VScroll1"};
  Label lblClockSource{"lblClockSource"};
  Label lblPeriodRegister{"lblPeriodRegister"};
  Frame Frame3{"Frame3"};
  TextBox edtLabel2{"edtLabel2"};
  TextBox edtLabel1{"edtLabel1"};
  Label Label6{"Label6"};
  Label Label5{"Label5"};
  CheckBox chkUseAltPin{"chkUseAltPin"};
  Label lblVersion{"lblVersion"};
  Label lblPWMCount{"lblPWMCount"};
  Label Label4{"Label4"};

private:
  void createControls();
  void PropertyPage_Initialize();
  void selectionChanged();
  void applyChanges();

  void txt_Pr2_Change();
  void VScroll1_Change();
  void cboClockSource_Click();
  void chkShowSim_Click();
  void chkUseAltPin_Click();

  float Calc_Page_Period(int16_t pr2, float cycleTime, int16_t prescale) const;

  // Shows text in a box of the page's service, under the default title.
  void msgBox(const std::string& text);

  MessageBoxService* boxes_ = nullptr;
  PropertyPageSite site_;
  std::vector<Control*> order_;
};

} // namespace zv
