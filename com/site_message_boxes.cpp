#include "site_message_boxes.h"

#include <servprov.h>

#include "avr_pwm.h"
#include "convert.h"
#include "platform/library.h"
#include "type_info.h"

namespace zvcom {

SiteMessageBoxes::SiteMessageBoxes()
    : system_(zv::libraryFactsOf(reinterpret_cast<const void*>(&modulePath)).baseName) {}

void SiteMessageBoxes::setSite(IUnknown* site) {
  if (site)
    site->AddRef();
  if (site_)
    site_->Release();
  site_ = site;
}

void SiteMessageBoxes::show(const std::string& text, const std::string& title) {
  IServiceProvider* provider = nullptr;
  IZelvorMessageBoxes* boxes = nullptr;
  if (site_ &&
      SUCCEEDED(site_->QueryInterface(IID_IServiceProvider, reinterpret_cast<void**>(&provider)))) {
    if (FAILED(provider->QueryService(IID_IZelvorMessageBoxes, IID_IZelvorMessageBoxes,
                                      reinterpret_cast<void**>(&boxes))))
      boxes = nullptr;
    provider->Release();
  }
  if (!boxes) {
    system_.show(text, title);
    return;
  }
  BSTR wideText = toBstr(text);
  BSTR wideTitle = toBstr(title);
  // What the host's service answers is its own affair: the box was the host's to show.
  boxes->Show(wideText, wideTitle);
  SysFreeString(wideText);
  SysFreeString(wideTitle);
  boxes->Release();
}

} // namespace zvcom
