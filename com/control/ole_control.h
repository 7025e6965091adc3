// The OLE control faces of one PWM object: siting and in-place activation,
// drawing into any device context, saved properties through a property bag or
// a stream, the class's type information, its (empty) event source and its
// property page, and quick activation. Every face shares the object's identity
// and reference count.
#pragma once

#include <ocidl.h>
#include <olectl.h>

#include <memory>

#include "event_source.h"
#include "win32/panel_window.h"

namespace zvcom {

class PwmObject;

// What the control tells a container before it is loaded: recompose on resize,
// can't link inside, inside-out, activate when visible, and the site first, so
// that the start of a load already has the host's services.
constexpr DWORD kMiscStatus = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE |
                              OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE |
                              OLEMISC_SETCLIENTSITEFIRST;

class OleControl final : public IOleInPlaceObject,
                         public IOleInPlaceActiveObject,
                         public IOleControl,
                         public IViewObject2,
                         public IProvideClassInfo2,
                         public IConnectionPointContainer,
                         public IPersistPropertyBag,
                         public IPersistStreamInit,
                         public ISpecifyPropertyPages,
                         public IQuickActivate {
public:
  explicit OleControl(PwmObject& object);
  ~OleControl();
  OleControl(const OleControl&) = delete;
  OleControl& operator=(const OleControl&) = delete;

  // The face that serves iid, or nullptr; not yet referenced.
  void* face(REFIID iid);

  // The work of PwmObject's IOleObject.
  HRESULT doVerb(LONG verb, IOleClientSite* site, HWND parent, LPCRECT place);
  HRESULT close();
  HRESULT setExtent(DWORD aspect, SIZEL* size);
  HRESULT getExtent(DWORD aspect, SIZEL* size);
  HRESULT advise(IAdviseSink* sink, DWORD* connection);
  HRESULT unadvise(DWORD connection);
  HRESULT enumAdvise(IEnumSTATDATA** advise);

  // IUnknown: the object's.
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;

  // IOleWindow, IOleInPlaceObject, IOleInPlaceActiveObject (in_place.cpp)
  HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override;
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override;
  HRESULT STDMETHODCALLTYPE InPlaceDeactivate() override;
  HRESULT STDMETHODCALLTYPE UIDeactivate() override;
  HRESULT STDMETHODCALLTYPE SetObjectRects(LPCRECT place, LPCRECT clip) override;
  HRESULT STDMETHODCALLTYPE ReactivateAndUndo() override;
  HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG) override;
  HRESULT STDMETHODCALLTYPE OnFrameWindowActivate(BOOL) override;
  HRESULT STDMETHODCALLTYPE OnDocWindowActivate(BOOL) override;
  HRESULT STDMETHODCALLTYPE ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) override;
  HRESULT STDMETHODCALLTYPE EnableModeless(BOOL) override;

  // IOleControl, IProvideClassInfo2, IConnectionPointContainer,
  // ISpecifyPropertyPages (ole_control.cpp)
  HRESULT STDMETHODCALLTYPE GetControlInfo(CONTROLINFO* info) override;
  HRESULT STDMETHODCALLTYPE OnMnemonic(MSG*) override;
  HRESULT STDMETHODCALLTYPE OnAmbientPropertyChange(DISPID) override;
  HRESULT STDMETHODCALLTYPE FreezeEvents(BOOL) override;
  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* guid) override;
  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override;
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;
  HRESULT STDMETHODCALLTYPE GetPages(CAUUID* pages) override;

  // IViewObject2 (view_object.cpp)
  HRESULT STDMETHODCALLTYPE Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC dc,
                                 LPCRECTL bounds, LPCRECTL, BOOL(STDMETHODCALLTYPE*)(ULONG_PTR),
                                 ULONG_PTR) override;
  HRESULT STDMETHODCALLTYPE GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC,
                                        LOGPALETTE** colors) override;
  HRESULT STDMETHODCALLTYPE Freeze(DWORD, LONG, void*, DWORD* freeze) override;
  HRESULT STDMETHODCALLTYPE Unfreeze(DWORD) override;
  HRESULT STDMETHODCALLTYPE SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) override;
  HRESULT STDMETHODCALLTYPE GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) override;
  HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, LPSIZEL size) override;

  // IQuickActivate (quick_activate.cpp)
  HRESULT STDMETHODCALLTYPE QuickActivate(QACONTAINER* container, QACONTROL* control) override;
  HRESULT STDMETHODCALLTYPE SetContentExtent(LPSIZEL size) override;
  HRESULT STDMETHODCALLTYPE GetContentExtent(LPSIZEL size) override;

  // IPersist, IPersistPropertyBag, IPersistStreamInit (persist.cpp)
  HRESULT STDMETHODCALLTYPE GetClassID(CLSID* clsid) override;
  HRESULT STDMETHODCALLTYPE InitNew() override;
  HRESULT STDMETHODCALLTYPE Load(IPropertyBag* bag, IErrorLog* log) override;
  HRESULT STDMETHODCALLTYPE Save(IPropertyBag* bag, BOOL clearDirty, BOOL saveAll) override;
  HRESULT STDMETHODCALLTYPE IsDirty() override;
  HRESULT STDMETHODCALLTYPE Load(IStream* stream) override;
  HRESULT STDMETHODCALLTYPE Save(IStream* stream, BOOL clearDirty) override;
  HRESULT STDMETHODCALLTYPE GetSizeMax(ULARGE_INTEGER* size) override;

private:
  // The panel's size in HIMETRIC, as the container measures objects.
  SIZEL extent();
  // The first paint of a panel that nothing has painted yet.
  HRESULT ensurePainted();
  // Tells the view's advise sink that the picture changed.
  void viewChanged();
  HRESULT activate(IOleClientSite* site, HWND parent, LPCRECT place);

  PwmObject& object_;
  bool painted_ = false;
  IOleAdviseHolder* adviseHolder_ = nullptr;
  IAdviseSink* viewSink_ = nullptr;
  DWORD viewAspects_ = 0, viewFlags_ = 0;
  IOleInPlaceSite* inPlaceSite_ = nullptr;
  std::unique_ptr<zvwin::PanelWindow> window_;
  EventSource events_{*this};
};

} // namespace zvcom
