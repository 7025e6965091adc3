#include "property_page.h"

#include <commctrl.h>
#include <olectl.h>
#include <prsht.h>

#include "failure.h"
#include "platform/win/wide_text.h"
#include "server.h"
#include "zelvor/plugin.h"

namespace zvcom {

// {6A1E53C0-3F2B-4C8E-9D1A-2B7C4E5F6A20}
const CLSID CLSID_PwmPropertyPage = {
    0x6a1e53c0, 0x3f2b, 0x4c8e, {0x9d, 0x1a, 0x2b, 0x7c, 0x4e, 0x5f, 0x6a, 0x20}};

namespace {

LPOLESTR taskCopy(const std::wstring& text) {
  auto* copy = static_cast<LPOLESTR>(CoTaskMemAlloc((text.size() + 1) * sizeof(wchar_t)));
  if (copy)
    lstrcpyW(copy, text.c_str());
  return copy;
}

} // namespace

void PropertyPage::Destroy::operator()(zv::PageObject* page) const {
  zelvor_destroy_page(page);
}

PropertyPage::PropertyPage() {
  objectCreated();
}

PropertyPage::~PropertyPage() {
  Deactivate();
  if (page_)
    page_->site().onChangedChanged = nullptr;
  page_.reset();
  release();
  if (site_)
    site_->Release();
  objectDestroyed();
}

HRESULT PropertyPage::create(REFIID iid, void** out) {
  if (!out)
    return E_POINTER;
  *out = nullptr;
  auto* page = new (std::nothrow) PropertyPage();
  if (!page)
    return E_OUTOFMEMORY;
  HRESULT hr = page->call([&] {
    zv::Status status;
    page->page_.reset(zelvor_create_page(&status));
    if (page->page_) {
      // The user's edits on the shown page raise their message boxes through ours.
      page->page_->setMessageBoxes(&page->boxes_);
      page->page_->site().onChangedChanged = [page] { page->changedShown(); };
    }
    return status;
  });
  if (SUCCEEDED(hr))
    hr = page->QueryInterface(iid, out);
  page->Release();
  return hr;
}

template <class Body> HRESULT PropertyPage::call(Body&& body) {
  return run(IID_IPropertyPage2, std::forward<Body>(body));
}

void PropertyPage::changedShown() {
  if (!page_->site().Changed())
    return;
  if (site_)
    site_->OnStatusChange(PROPPAGESTATUS_DIRTY);
  if (sheetPage_)
    PropSheet_Changed(GetParent(sheetPage_), sheetPage_);
}

LRESULT CALLBACK PropertyPage::sheetPage(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR,
                                         DWORD_PTR self) {
  if (message == WM_NOTIFY && reinterpret_cast<NMHDR*>(l)->code == PSN_APPLY) {
    auto* page = reinterpret_cast<PropertyPage*>(self);
    const bool applied = page->IsPageDirty() != S_OK || SUCCEEDED(page->Apply());
    if (applied)
      PropSheet_UnChanged(GetParent(window), window);
    SetWindowLongPtrW(window, DWLP_MSGRESULT, applied ? PSNRET_NOERROR : PSNRET_INVALID);
    return TRUE;
  }
  return DefSubclassProc(window, message, w, l);
}

void PropertyPage::release() {
  if (page_)
    page_->site().SelectedControls.clear();
  selection_.clear();
}

HRESULT PropertyPage::QueryInterface(REFIID iid, void** out) {
  if (!out)
    return E_POINTER;
  if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IPropertyPage) ||
      IsEqualIID(iid, IID_IPropertyPage2)) {
    *out = static_cast<IPropertyPage2*>(this);
    AddRef();
    return S_OK;
  }
  *out = nullptr;
  return E_NOINTERFACE;
}

ULONG PropertyPage::AddRef() {
  return ++references_;
}

ULONG PropertyPage::Release() {
  const ULONG left = --references_;
  if (!left)
    delete this;
  return left;
}

HRESULT PropertyPage::SetPageSite(IPropertyPageSite* site) {
  if (site)
    site->AddRef();
  if (site_)
    site_->Release();
  site_ = site;
  return S_OK;
}

HRESULT PropertyPage::Activate(HWND parent, LPCRECT place, BOOL) {
  if (!place)
    return E_POINTER;
  window_ = std::make_unique<zvwin::PageWindow>(*page_);
  if (!window_->create(parent, *place)) {
    window_.reset();
    return E_FAIL;
  }
  wchar_t cls[16] = {};
  if (GetClassNameW(parent, cls, 16) && lstrcmpW(cls, L"#32770") == 0 && GetParent(parent) &&
      SetWindowSubclass(parent, sheetPage, 1, reinterpret_cast<DWORD_PTR>(this)))
    sheetPage_ = parent;
  return S_OK;
}

HRESULT PropertyPage::Deactivate() {
  if (sheetPage_)
    RemoveWindowSubclass(sheetPage_, sheetPage, 1);
  sheetPage_ = nullptr;
  window_.reset();
  return S_OK;
}

HRESULT PropertyPage::GetPageInfo(PROPPAGEINFO* info) {
  if (!info)
    return E_POINTER;
  const std::string caption = page_->caption();
  info->cb = sizeof *info;
  info->pszTitle = taskCopy(zv::wideFrom1252(caption));
  info->size = zvwin::PageWindow::pixelSize(*page_, nullptr);
  info->pszDocString = nullptr;
  info->pszHelpFile = nullptr;
  info->dwHelpContext = 0;
  return info->pszTitle ? S_OK : E_OUTOFMEMORY;
}

HRESULT PropertyPage::SetObjects(ULONG count, IUnknown** objects) {
  if (count && !objects)
    return E_POINTER;
  release();
  boxes_.setSite(site_);
  for (ULONG i = 0; i < count; ++i) {
    IDispatch* dispatch = nullptr;
    if (!objects[i] ||
        FAILED(objects[i]->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&dispatch))))
      continue;
    selection_.push_back(std::make_unique<RemoteDispatch>(dispatch));
    page_->site().SelectedControls.push_back(selection_.back().get());
    dispatch->Release();
    // The host's services stand on the first control's client site.
    IOleObject* control = nullptr;
    IOleClientSite* clientSite = nullptr;
    if (selection_.size() == 1 &&
        SUCCEEDED(objects[i]->QueryInterface(IID_IOleObject, reinterpret_cast<void**>(&control)))) {
      if (SUCCEEDED(control->GetClientSite(&clientSite)) && clientSite) {
        boxes_.setSite(clientSite);
        clientSite->Release();
      }
      control->Release();
    }
  }
  if (selection_.empty())
    return count ? E_NOINTERFACE : S_OK;
  const HRESULT hr = call([&] { return page_->PropertyPage_SelectionChanged(); });
  // What the page shows now is the selection itself: nothing to apply yet.
  page_->site().setChanged(false);
  return hr;
}

HRESULT PropertyPage::Show(UINT command) {
  if (window_)
    ShowWindow(window_->handle(), command);
  return S_OK;
}

HRESULT PropertyPage::Move(LPCRECT place) {
  if (!place)
    return E_POINTER;
  if (window_)
    MoveWindow(window_->handle(), place->left, place->top, place->right - place->left,
               place->bottom - place->top, TRUE);
  return S_OK;
}

HRESULT PropertyPage::IsPageDirty() {
  return page_->site().Changed() ? S_OK : S_FALSE;
}

HRESULT PropertyPage::Apply() {
  if (selection_.empty())
    return E_UNEXPECTED;
  const HRESULT hr = call([&] { return page_->PropertyPage_ApplyChanges(); });
  if (SUCCEEDED(hr))
    page_->site().setChanged(false);
  return FAILED(hr) ? hr : S_OK;
}

HRESULT PropertyPage::Help(LPCOLESTR) {
  return E_NOTIMPL;
}

HRESULT PropertyPage::TranslateAccelerator(MSG* message) {
  if (!message)
    return E_POINTER;
  return window_ && IsDialogMessageW(window_->handle(), message) ? S_OK : S_FALSE;
}

HRESULT PropertyPage::EditProperty(DISPID) {
  return E_NOTIMPL;
}

} // namespace zvcom
