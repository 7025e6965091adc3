// The message boxes of one object: the host's IZelvorMessageBoxes service when
// the object's site offers it through IServiceProvider, else the system's
// message box. The object hands them to its component once, at creation.
#pragma once

#include <ocidl.h>

#include "platform/win/system_msgbox.h"

namespace zvcom {

class SiteMessageBoxes final : public zv::MessageBoxService {
public:
  // The system's boxes are titled with this library's base name.
  SiteMessageBoxes();
  ~SiteMessageBoxes() override { setSite(nullptr); }
  SiteMessageBoxes(const SiteMessageBoxes&) = delete;
  SiteMessageBoxes& operator=(const SiteMessageBoxes&) = delete;

  // Keeps a reference to the site (nullptr lets it go).
  void setSite(IUnknown* site);
  IUnknown* site() const { return site_; }
  void show(const std::string& text, const std::string& title) override;

private:
  zv::SystemMessageBoxes system_;
  IUnknown* site_ = nullptr;
};

} // namespace zvcom
