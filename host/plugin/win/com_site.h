// The host's site for the objects it makes: IServiceProvider offering the
// library's message-box service, which shows each box through the process's
// current zv::messageBoxService() and answers OK.
#pragma once

#include <servprov.h>

#include "avr_pwm.h"

namespace zvhost {

class ComSite final : public IServiceProvider, public IZelvorMessageBoxes {
public:
  // Starts with one reference, the creator's.
  ComSite() = default;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override;
  HRESULT STDMETHODCALLTYPE QueryService(REFGUID service, REFIID iid, void** out) override;
  HRESULT STDMETHODCALLTYPE Show(BSTR text, BSTR title) override;

private:
  ~ComSite() = default;
  ULONG references_ = 1;
};

} // namespace zvhost
