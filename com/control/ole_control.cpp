#include "ole_control.h"

#include "avr_pwm.h"
#include "event_source.h"
#include "property_page.h"
#include "pwm_object.h"
#include "type_info.h"

namespace zvcom {

namespace {

constexpr double kHimetricPerTwip = 2540.0 / 1440.0;

} // namespace

OleControl::OleControl(PwmObject& object) : object_(object) {}

OleControl::~OleControl() {
  InPlaceDeactivate();
  if (adviseHolder_)
    adviseHolder_->Release();
  if (viewSink_)
    viewSink_->Release();
}

void* OleControl::face(REFIID iid) {
  if (IsEqualIID(iid, IID_IOleWindow) || IsEqualIID(iid, IID_IOleInPlaceObject))
    return static_cast<IOleInPlaceObject*>(this);
  if (IsEqualIID(iid, IID_IOleInPlaceActiveObject))
    return static_cast<IOleInPlaceActiveObject*>(this);
  if (IsEqualIID(iid, IID_IOleControl))
    return static_cast<IOleControl*>(this);
  if (IsEqualIID(iid, IID_IViewObject) || IsEqualIID(iid, IID_IViewObject2))
    return static_cast<IViewObject2*>(this);
  if (IsEqualIID(iid, IID_IProvideClassInfo) || IsEqualIID(iid, IID_IProvideClassInfo2))
    return static_cast<IProvideClassInfo2*>(this);
  if (IsEqualIID(iid, IID_IConnectionPointContainer))
    return static_cast<IConnectionPointContainer*>(this);
  if (IsEqualIID(iid, IID_IPersist) || IsEqualIID(iid, IID_IPersistPropertyBag))
    return static_cast<IPersistPropertyBag*>(this);
  if (IsEqualIID(iid, IID_IPersistStreamInit))
    return static_cast<IPersistStreamInit*>(this);
  if (IsEqualIID(iid, IID_ISpecifyPropertyPages))
    return static_cast<ISpecifyPropertyPages*>(this);
  if (IsEqualIID(iid, IID_IQuickActivate))
    return static_cast<IQuickActivate*>(this);
  return nullptr;
}

HRESULT OleControl::QueryInterface(REFIID iid, void** out) {
  return object_.QueryInterface(iid, out);
}
ULONG OleControl::AddRef() {
  return object_.AddRef();
}
ULONG OleControl::Release() {
  return object_.Release();
}

SIZEL OleControl::extent() {
  const auto& surface = object_.component().panelSurface();
  return {static_cast<LONG>(surface.Width() * kHimetricPerTwip + 0.5),
          static_cast<LONG>(surface.Height() * kHimetricPerTwip + 0.5)};
}

HRESULT OleControl::ensurePainted() {
  if (painted_)
    return S_OK;
  painted_ = true;
  return object_.call(IID_IOleObject, [&] {
    zv::Status status = object_.component().Resize();
    return status.ok() ? object_.component().Paint() : status;
  });
}

void OleControl::viewChanged() {
  if (viewSink_ && (viewAspects_ & DVASPECT_CONTENT))
    viewSink_->OnViewChange(DVASPECT_CONTENT, -1);
}

HRESULT OleControl::doVerb(LONG verb, IOleClientSite* site, HWND parent, LPCRECT place) {
  switch (verb) {
  case OLEIVERB_PRIMARY:
  case OLEIVERB_SHOW:
  case OLEIVERB_INPLACEACTIVATE:
  case OLEIVERB_UIACTIVATE:
    return activate(site, parent, place);
  case OLEIVERB_HIDE:
    if (window_)
      ShowWindow(window_->handle(), SW_HIDE);
    return S_OK;
  case OLEIVERB_PROPERTIES: {
    IUnknown* self = static_cast<IOleControl*>(this);
    CLSID page = CLSID_PwmPropertyPage;
    return OleCreatePropertyFrame(parent, 0, 0, L"PWM", 1, &self, 1, &page, LOCALE_USER_DEFAULT, 0,
                                  nullptr);
  }
  default:
    return verb < 0 ? E_NOTIMPL : OLEOBJ_S_INVALIDVERB;
  }
}

HRESULT OleControl::close() {
  InPlaceDeactivate();
  if (adviseHolder_)
    adviseHolder_->SendOnClose();
  return S_OK;
}

HRESULT OleControl::setExtent(DWORD aspect, SIZEL* size) {
  if (aspect != DVASPECT_CONTENT)
    return DV_E_DVASPECT;
  if (!size)
    return E_POINTER;
  // The panel decides its own size: any resize is answered by the same layout.
  return object_.call(IID_IOleObject, [&] { return object_.component().Resize(); });
}

HRESULT OleControl::getExtent(DWORD aspect, SIZEL* size) {
  if (!size)
    return E_POINTER;
  if (aspect != DVASPECT_CONTENT)
    return DV_E_DVASPECT;
  *size = extent();
  return S_OK;
}

HRESULT OleControl::advise(IAdviseSink* sink, DWORD* connection) {
  if (!adviseHolder_ && FAILED(CreateOleAdviseHolder(&adviseHolder_)))
    return E_OUTOFMEMORY;
  return adviseHolder_->Advise(sink, connection);
}

HRESULT OleControl::unadvise(DWORD connection) {
  return adviseHolder_ ? adviseHolder_->Unadvise(connection) : OLE_E_NOCONNECTION;
}

HRESULT OleControl::enumAdvise(IEnumSTATDATA** advise) {
  if (!advise)
    return E_POINTER;
  *advise = nullptr;
  return adviseHolder_ ? adviseHolder_->EnumAdvise(advise) : S_OK;
}

HRESULT OleControl::GetControlInfo(CONTROLINFO* info) {
  if (!info)
    return E_POINTER;
  info->hAccel = nullptr;
  info->cAccel = 0;
  info->dwFlags = 0;
  return S_OK;
}
HRESULT OleControl::OnMnemonic(MSG*) {
  return E_NOTIMPL;
}
HRESULT OleControl::OnAmbientPropertyChange(DISPID) {
  return S_OK;
}
HRESULT OleControl::FreezeEvents(BOOL) {
  return S_OK;
}

HRESULT OleControl::GetClassInfo(ITypeInfo** info) {
  if (!info)
    return E_POINTER;
  *info = nullptr;
  ITypeLib* library = nullptr;
  HRESULT hr = loadTypeLibrary(TypeLibrary::Component, &library);
  if (FAILED(hr))
    return hr;
  hr = library->GetTypeInfoOfGuid(CLSID_PWM, info);
  library->Release();
  return hr;
}

HRESULT OleControl::GetGUID(DWORD kind, GUID* guid) {
  if (!guid)
    return E_POINTER;
  if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID)
    return E_INVALIDARG;
  *guid = DIID___PWM;
  return S_OK;
}

HRESULT OleControl::EnumConnectionPoints(IEnumConnectionPoints** points) {
  if (!points)
    return E_POINTER;
  *points = nullptr;
  IConnectionPoint* point = &events_;
  return enumeratePoints(static_cast<IConnectionPointContainer*>(this), &point, 1, points);
}

HRESULT OleControl::FindConnectionPoint(REFIID iid, IConnectionPoint** point) {
  if (!point)
    return E_POINTER;
  *point = nullptr;
  if (!IsEqualIID(iid, DIID___PWM))
    return CONNECT_E_NOCONNECTION;
  events_.AddRef();
  *point = &events_;
  return S_OK;
}

HRESULT OleControl::GetPages(CAUUID* pages) {
  if (!pages)
    return E_POINTER;
  pages->pElems = static_cast<GUID*>(CoTaskMemAlloc(sizeof(GUID)));
  if (!pages->pElems) {
    pages->cElems = 0;
    return E_OUTOFMEMORY;
  }
  pages->cElems = 1;
  pages->pElems[0] = CLSID_PwmPropertyPage;
  return S_OK;
}

} // namespace zvcom
