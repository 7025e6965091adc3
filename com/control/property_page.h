// The control's property page as a COM class of its own: IPropertyPage2 over
// the component's page object, shown as Win32 child windows in the frame's
// page area. Its message boxes go through the host's message-box service,
// found on the selected control's client site or on the page site.
#pragma once

#include <ocidl.h>

#include <memory>
#include <vector>

#include "remote_dispatch.h"
#include "site_message_boxes.h"
#include "win32/page_window.h"
#include "zelvor/objects.h"

namespace zvcom {

extern const CLSID CLSID_PwmPropertyPage;

class PropertyPage final : public IPropertyPage2 {
public:
  static HRESULT create(REFIID iid, void** out);

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;

  HRESULT STDMETHODCALLTYPE SetPageSite(IPropertyPageSite* site) override;
  HRESULT STDMETHODCALLTYPE Activate(HWND parent, LPCRECT place, BOOL modal) override;
  HRESULT STDMETHODCALLTYPE Deactivate() override;
  HRESULT STDMETHODCALLTYPE GetPageInfo(PROPPAGEINFO* info) override;
  HRESULT STDMETHODCALLTYPE SetObjects(ULONG count, IUnknown** objects) override;
  HRESULT STDMETHODCALLTYPE Show(UINT command) override;
  HRESULT STDMETHODCALLTYPE Move(LPCRECT place) override;
  HRESULT STDMETHODCALLTYPE IsPageDirty() override;
  HRESULT STDMETHODCALLTYPE Apply() override;
  HRESULT STDMETHODCALLTYPE Help(LPCOLESTR) override;
  HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* message) override;
  HRESULT STDMETHODCALLTYPE EditProperty(DISPID) override;

private:
  PropertyPage();
  ~PropertyPage();
  template <class Body> HRESULT call(Body&& body);
  void changedShown();
  void release();
  // The frame's property sheet, when the page stands in one, told directly of
  // Changed and asked for Apply: a frame that ignores OnStatusChange and the
  // sheet's apply notification (Wine's) still enables Apply and applies.
  static LRESULT CALLBACK sheetPage(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR,
                                    DWORD_PTR self);
  HWND sheetPage_ = nullptr;

  struct Destroy {
    void operator()(zv::PageObject* page) const;
  };
  ULONG references_ = 1;
  std::unique_ptr<zv::PageObject, Destroy> page_;
  std::unique_ptr<zvwin::PageWindow> window_;
  std::vector<std::unique_ptr<RemoteDispatch>> selection_;
  IPropertyPageSite* site_ = nullptr;
  SiteMessageBoxes boxes_;
};

} // namespace zvcom
