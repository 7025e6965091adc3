// The host's client site for an object it makes: IServiceProvider offering
// the library's message-box service, which shows each box through the
// object's service and answers OK. The site holds no document: its other
// calls answer that there is nothing to do.
#pragma once

#include <oleidl.h>
#include <servprov.h>

#include "avr_pwm.h"
#include "platform/msgbox.h"

namespace zvhost {

class ComSite final : public IOleClientSite, public IServiceProvider, public IZelvorMessageBoxes {
public:
  // Starts with one reference, the creator's. boxes (not owned) shows the
  // boxes; null: the platform's default.
  explicit ComSite(zv::MessageBoxService* boxes) : boxes_(boxes) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override;
  HRESULT STDMETHODCALLTYPE SaveObject() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker** moniker) override;
  HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** container) override;
  HRESULT STDMETHODCALLTYPE ShowObject() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE QueryService(REFGUID service, REFIID iid, void** out) override;
  HRESULT STDMETHODCALLTYPE Show(BSTR text, BSTR title) override;

private:
  ~ComSite() = default;
  ULONG references_ = 1;
  zv::MessageBoxService* boxes_;
};

} // namespace zvhost
