// The period register entry: the text box and the scroll bar beside it hold
// the register in step. The bar runs backwards (scroll value = 255 - register)
// and its range goes on to 32767; values above 255 are pulled back at once.
// The two handlers call each other through the controls; each chain ends
// because a control that already holds a value raises nothing.
#include <string>

#include "../../platform/errors.h"
#include "../../platform/vbnum.h"
#include "properties.h"

namespace zv {

namespace {

constexpr double kHighest = 255;

// The value of a text that has passed the range check.
double valueOf(const std::string& text) {
  const auto n = readNumber(text);
  if (!n)
    raise(errTypeMismatch);
  return *n;
}

bool isBad(const std::string& text) {
  if (text.empty())
    return false;
  const auto n = readNumber(text);
  return !n || *n < 0 || *n > kHighest;
}

} // namespace

void Properties::msgBox(const std::string& text) {
  showMessage(boxes_, text);
}

void Properties::txt_Pr2_Change() {
  if (isBad(txt_Pr2.Text())) {
    msgBox(" Invalid Data ...\r\n Data range between 0 and 255");
    // Runs this handler once more, nested, with "0"; the last good value is not restored.
    txt_Pr2.setText("0");
    txt_Pr2.SetFocus();
  }
  const std::string text = txt_Pr2.Text();
  // An emptied field waits for the next keystroke; nothing follows it.
  if (text.empty())
    return;
  const double value = valueOf(text);
  iPagePr2 = cint(value);
  VScroll1.setValue(cint(kHighest - value));
  Calc_Period_Freq();
  site_.setChanged(true);
}

void Properties::VScroll1_Change() {
  const int x = static_cast<int>(kHighest) - VScroll1.Value();
  if (x >= 0) {
    txt_Pr2.setText(std::to_string(x));
  } else {
    txt_Pr2.setText("0");
    VScroll1.setValue(static_cast<int>(kHighest));
  }
  iPagePr2 = cint(valueOf(txt_Pr2.Text()));
  Calc_Period_Freq();
  site_.setChanged(true);
}

} // namespace zv
