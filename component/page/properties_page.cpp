#include "properties_page.h"

#include <array>
#include <string>
#include <string_view>

#include "../../platform/errors.h"
#include "../sim/prescaler.h"
#include "properties.h"

namespace zv {

namespace {

enum class Look { Plain, Prompt, Readout };

struct Layout {
  std::string_view name;
  std::string_view text; // caption or text at creation
  float left, top, width, height;
  std::string_view parent; // empty: the page
  int tabIndex;
  Look look = Look::Plain;
};

// The controls in their order of creation; geometry in twips, relative to the parent.
constexpr std::array<Layout, 23> kLayout{{
    {"chkShowSim", "Show simulation", 720, 3000, 1575, 255, "", 22},
    {"Frame1", "PWM period", 3075, 1335, 3195, 1515, "", 15},
    {"Lbl_frequency", "", 1230, 1080, 1860, 300, "Frame1", 21, Look::Readout},
    {"Lbl_period", "", 1230, 720, 1860, 300, "Frame1", 20, Look::Readout},
    {"Label2", "Frequency:", 240, 1080, 795, 195, "Frame1", 19, Look::Prompt},
    {"Label1", "Period:", 540, 750, 495, 195, "Frame1", 18, Look::Prompt},
    {"Label3", "Clock speed:", 105, 360, 930, 195, "Frame1", 17, Look::Prompt},
    {"lblClockSpeed", "", 1230, 330, 1860, 300, "Frame1", 16, Look::Readout},
    {"Frame2", "Settings", 15, 1335, 3015, 1515, "", 9},
    {"cboClockSource", "", 1515, 840, 1365, 315, "Frame2", 14},
    {"txt_Pr2", "26", 1515, 345, 495, 315, "Frame2", 12},
    {"VScroll1", "", 2025, 345, 255, 315, "Frame2", 11},
    {"lblClockSource", "Clock source = ", 210, 885, 1260, 345, "Frame2", 13, Look::Prompt},
    {"lblPeriodRegister", "Period register = ", 210, 390, 1260, 345, "Frame2", 10, Look::Prompt},
    {"Frame3", "Labels", 2775, 105, 3495, 1125, "", 3},
    {"edtLabel2", "CCP2", 885, 645, 2415, 315, "Frame3", 7},
    {"edtLabel1", "CCP1", 900, 300, 2415, 315, "Frame3", 6},
    {"Label6", "PWM 2:", 90, 705, 675, 225, "Frame3", 5, Look::Prompt},
    {"Label5", "PWM 1:", 90, 360, 675, 225, "Frame3", 4, Look::Prompt},
    {"chkUseAltPin", "Use alternative pin", 465, 810, 1785, 390, "", 0},
    {"lblVersion", "vresion", 60, 0, 1245, 315, "", 8},
    {"lblPWMCount", "", 1575, 390, 630, 300, "", 2, Look::Readout},
    {"Label4", "PWM Count = ", 255, 435, 1275, 225, "", 1, Look::Prompt},
}};

void setCreationText(Control& c, const std::string& text) {
  if (auto* label = dynamic_cast<Label*>(&c))
    label->setCaption(text);
  else if (auto* frame = dynamic_cast<Frame*>(&c))
    frame->setCaption(text);
  else if (auto* check = dynamic_cast<CheckBox*>(&c))
    check->setCaption(text);
  else if (auto* box = dynamic_cast<TextBox*>(&c))
    box->setText(text);
}

void setLook(Control& c, Look look) {
  auto* label = dynamic_cast<Label*>(&c);
  if (label == nullptr || look == Look::Plain)
    return;
  if (look == Look::Prompt) {
    label->setAlignment(Label::RightJustify);
  } else {
    label->setBorderStyle(1);
    label->setAlignment(Label::LeftJustify);
  }
}

} // namespace

Properties::Properties() {
  createControls();
  PropertyPage_Initialize();
}

void Properties::createControls() {
  const std::vector<Control*> members{&chkShowSim,     &Frame1,
                                      &Lbl_frequency,  &Lbl_period,
                                      &Label2,         &Label1,
                                      &Label3,         &lblClockSpeed,
                                      &Frame2,         &cboClockSource,
                                      &txt_Pr2,        &VScroll1,
                                      &lblClockSource, &lblPeriodRegister,
                                      &Frame3,         &edtLabel2,
                                      &edtLabel1,      &Label6,
                                      &Label5,         &chkUseAltPin,
                                      &lblVersion,     &lblPWMCount,
                                      &Label4};
  auto byName = [&](std::string_view name) -> Control* {
    for (Control* c : members)
      if (c->name() == name)
        return c;
    return nullptr;
  };
  for (const Layout& row : kLayout) {
    Control& c = *byName(row.name);
    c.setForm(&site_);
    if (!row.parent.empty())
      c.setParent(byName(row.parent));
    c.Move(row.left, row.top, row.width, row.height);
    c.setTabIndex(row.tabIndex);
    setCreationText(c, std::string(row.text));
    setLook(c, row.look);
    order_.push_back(&c);
  }
  VScroll1.setRange(0, 32767);
  VScroll1.setChanges(1, 1);

  // Handlers are attached last: the creation texts raise nothing.
  txt_Pr2.Change = [this] { txt_Pr2_Change(); };
  VScroll1.Change = [this] { VScroll1_Change(); };
  cboClockSource.Click = [this] { cboClockSource_Click(); };
  chkShowSim.Click = [this] { chkShowSim_Click(); };
  chkUseAltPin.Click = [this] { chkUseAltPin_Click(); };
}

void Properties::PropertyPage_Initialize() {
  iPagePrescaler = 1;
  bPageUseAltPin = false;
  // Moving the bar from 0 brings text, iPagePr2 and read-outs in step.
  VScroll1.setValue(255);
  edtLabel1.setText("CCP1");
  edtLabel2.setText("CCP2");
  std::string version = "v";
  version.append(std::to_string(ZV_VERSION_MAJOR)).append(".");
  version.append(std::to_string(ZV_VERSION_MINOR)).append(".");
  version.append(std::to_string(ZV_VERSION_PATCH));
  lblVersion.setCaption(version);
  cboClockSource.Clear();
  for (const auto& entry : kPrescalers)
    cboClockSource.AddItem(entry.text);
  cboClockSource.setListIndex(1);
}

Control* Properties::control(const std::string& name) {
  for (Control* c : order_)
    if (c->name() == name)
      return c;
  return nullptr;
}

Inspected Properties::inspect() const {
  Inspected r = Inspected::record();
  r.add("fPagePeriod", Inspected::of(Variant::r4(fPagePeriod)));
  r.add("fPageFrequency", Inspected::of(Variant::r4(fPageFrequency)));
  r.add("iPagePr2", Inspected::of(Variant::i2(iPagePr2)));
  r.add("iPagePrescaler", Inspected::of(Variant::i2(iPagePrescaler)));
  r.add("bPageUseAltPin", Inspected::of(Variant::boolean(bPageUseAltPin)));
  r.add("bPageShowSim", Inspected::of(Variant::boolean(bPageShowSim)));
  r.add("bPageHasAltPin", Inspected::of(Variant::boolean(bPageHasAltPin)));
  r.add("lPageClockSpeed", Inspected::of(Variant::i4(lPageClockSpeed)));
  r.add("iPagePwmCount", Inspected::of(Variant::i2(iPagePwmCount)));
  r.add("iPageClockDivider", Inspected::of(Variant::i2(iPageClockDivider)));
  return r;
}

std::unique_ptr<PageObject> createPropertiesPage() {
  return std::make_unique<Properties>();
}

} // namespace zv
