// What a plain OLE container gives a control: a client site that is also the
// in-place site of one window, a service provider offering the host's message
// boxes (which only records the texts), and a property bag that keeps its
// values in the order written.
#pragma once

#include <ocidl.h>

#include <string>
#include <utility>
#include <vector>

#include "avr_pwm.h"

namespace zvtest {

class ContainerSite final : public IOleClientSite,
                            public IOleInPlaceSite,
                            public IServiceProvider,
                            public IZelvorMessageBoxes {
public:
  explicit ContainerSite(HWND window) : window_(window) {}
  std::vector<std::wstring> messages;
  RECT place{10, 10, 400, 400};

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; } // lives on the stack of main
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  // IOleClientSite
  HRESULT STDMETHODCALLTYPE SaveObject() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker** m) override;
  HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** c) override;
  HRESULT STDMETHODCALLTYPE ShowObject() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() override { return E_NOTIMPL; }
  // IOleInPlaceSite
  HRESULT STDMETHODCALLTYPE GetWindow(HWND* w) override;
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE CanInPlaceActivate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnInPlaceActivate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnUIActivate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** f, IOleInPlaceUIWindow** d,
                                             LPRECT pos, LPRECT clip,
                                             LPOLEINPLACEFRAMEINFO info) override;
  HRESULT STDMETHODCALLTYPE Scroll(SIZE) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE DiscardUndoState() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE DeactivateAndUndo() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT) override { return S_OK; }
  // IServiceProvider
  HRESULT STDMETHODCALLTYPE QueryService(REFGUID service, REFIID iid, void** out) override;
  // IZelvorMessageBoxes
  HRESULT STDMETHODCALLTYPE Show(BSTR text, BSTR) override {
    messages.emplace_back(text ? text : L"");
    return S_OK;
  }

private:
  HWND window_;
};

class Bag final : public IPropertyBag {
public:
  Bag() = default;
  Bag(const Bag& other);
  ~Bag();
  std::vector<std::pair<std::wstring, VARIANT>> entries;
  void put(const wchar_t* name, const VARIANT& value); // replaces in place or appends

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE Read(LPCOLESTR name, VARIANT* value, IErrorLog*) override;
  HRESULT STDMETHODCALLTYPE Write(LPCOLESTR name, VARIANT* value) override;
};

// "Name:vt=value" for each entry, in order.
std::wstring describe(const Bag& bag);

} // namespace zvtest
