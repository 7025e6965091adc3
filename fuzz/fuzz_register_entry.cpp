// Random keystrokes, pastes, arrow clicks and drags on the period register
// entry of the property page. What holds after every step:
//  - the register and the scroll value stay within 0..255, at most one
//    message is shown, and nothing fails;
//  - a text that is not empty is a number v within 0..255, the register is
//    v rounded and the scroll value is 255 - v rounded (ties to even, so a
//    typed 13.5 gives register 14 beside scroll value 242: the two need not
//    add up to 255);
//  - an emptied text leaves register and scroll value as they were;
//  - a step that brings the message leaves the text "0".
#include <fuzzer/FuzzedDataProvider.h>

#include "page/properties.h"
#include "platform/vbnum.h"
#include "support.h"

using namespace zv;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const char kKeys[] = "0123456789012345.-+eE &Hh,$x";
  FuzzedDataProvider in(data, size);
  Properties page;
  page.setMessageBoxes(&fuzz::boxes());
  for (int steps = in.ConsumeIntegralInRange(1, 40); steps > 0 && in.remaining_bytes(); --steps) {
    const int16_t pr2Before = page.iPagePr2;
    const int scrollBefore = page.VScroll1.Value();
    fuzz::boxes().texts.clear();
    std::string text = page.txt_Pr2.Text();
    try {
      switch (in.ConsumeIntegralInRange(0, 9)) {
      case 0:
        page.txt_Pr2.setText(in.ConsumeRandomLengthString(12)); // a paste
        break;
      case 1:
        if (!text.empty())
          text.pop_back(); // backspace
        page.txt_Pr2.setText(text);
        break;
      case 2:
        page.txt_Pr2.setText("");
        break;
      case 3:
        page.VScroll1.arrowUp();
        break;
      case 4:
        page.VScroll1.arrowDown();
        break;
      case 5:
        page.VScroll1.setValue(in.ConsumeIntegralInRange(0, 32767)); // a drag
        break;
      default:
        page.txt_Pr2.setText(text + kKeys[in.ConsumeIntegralInRange<size_t>(0, sizeof kKeys - 2)]);
      }
    } catch (const RuntimeError& e) {
      fuzz::check(false, "an edit fails with error " + std::to_string(e.number()));
    }
    const std::string now = page.txt_Pr2.Text();
    const int scroll = page.VScroll1.Value();
    fuzz::check(page.iPagePr2 >= 0 && page.iPagePr2 <= 255, "register within 0..255");
    fuzz::check(scroll >= 0 && scroll <= 255, "scroll value within 0..255");
    fuzz::check(fuzz::boxes().texts.size() <= 1, "at most one message per edit");
    if (!fuzz::boxes().texts.empty())
      fuzz::check(now == "0", "the message leaves the text 0");
    if (now.empty()) {
      fuzz::check(page.iPagePr2 == pr2Before && scroll == scrollBefore,
                  "an empty text leaves register and bar");
      continue;
    }
    const auto v = readNumber(now);
    fuzz::check(v && *v >= 0 && *v <= 255, "the text is a number within 0..255");
    fuzz::check(page.iPagePr2 == cint(*v), "the register is the text's value rounded");
    fuzz::check(scroll == cint(255 - *v), "the bar is 255 less the text's value, rounded");
  }
  return 0;
}
