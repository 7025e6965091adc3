#include "control_faces.h"

#include "container_test.h"

namespace zvtest {

namespace {

// A view sink that takes the calls and does nothing.
struct ViewSink final : IAdviseSinkEx {
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    *out = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IAdviseSink) ||
                   IsEqualIID(iid, IID_IAdviseSinkEx)
               ? this
               : nullptr;
    return *out ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  void STDMETHODCALLTYPE OnDataChange(FORMATETC*, STGMEDIUM*) override {}
  void STDMETHODCALLTYPE OnViewChange(DWORD, LONG) override {}
  void STDMETHODCALLTYPE OnRename(IMoniker*) override {}
  void STDMETHODCALLTYPE OnSave() override {}
  void STDMETHODCALLTYPE OnClose() override {}
  void STDMETHODCALLTYPE OnViewStatusChange(DWORD) override {}
};

} // namespace

void testEvents(IUnknown* control) {
  IConnectionPointContainer* container =
      as<IConnectionPointContainer>(control, IID_IConnectionPointContainer);
  IEnumConnectionPoints* points = nullptr;
  check(container->EnumConnectionPoints(&points) == S_OK, "EnumConnectionPoints");
  IConnectionPoint* point[2] = {};
  ULONG fetched = 9;
  IID iid{};
  check(points->Next(2, point, &fetched) == S_FALSE && fetched == 1 &&
            point[0]->GetConnectionInterface(&iid) == S_OK && IsEqualIID(iid, DIID___PWM),
        "one point, the event interface's");
  point[0]->Release();
  IEnumConnectionPoints* clone = nullptr;
  check(points->Next(1, point, &fetched) == S_FALSE && fetched == 0 && points->Skip(1) == S_FALSE &&
            points->Reset() == S_OK && points->Skip(1) == S_OK && points->Clone(&clone) == S_OK &&
            clone->Next(1, point, nullptr) == S_FALSE,
        "then nothing; Skip, Reset and Clone keep the place");
  clone->Reset();
  check(clone->Next(1, point, nullptr) == S_OK && point[0], "a reset clone gives the point");
  point[0]->Release();
  clone->Release();
  points->Release();
  container->Release();
}

void testQuickActivate(ContainerSite& site) {
  IUnknown* control = nullptr;
  CoCreateInstance(CLSID_PWM, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                   reinterpret_cast<void**>(&control));
  IQuickActivate* quick = as<IQuickActivate>(control, IID_IQuickActivate);
  IOleObject* ole = as<IOleObject>(control, IID_IOleObject);
  IViewObject2* view = as<IViewObject2>(control, IID_IViewObject2);
  ViewSink sink;
  QACONTAINER given{};
  given.cbSize = sizeof given;
  given.pClientSite = &site;
  given.pAdviseSink = &sink;
  given.pUnkEventSink = static_cast<IOleClientSite*>(&site);
  QACONTROL answer{};
  answer.cbSize = sizeof answer;
  DWORD misc = 0;
  check(quick && quick->QuickActivate(&given, &answer) == S_OK &&
            ole->GetMiscStatus(DVASPECT_CONTENT, &misc) == S_OK && answer.dwMiscStatus == misc &&
            answer.dwViewStatus == (VIEWSTATUS_OPAQUE | VIEWSTATUS_SOLIDBKGND) &&
            answer.dwEventCookie != 0,
        "QuickActivate answers the misc and view status and connects the event sink");
  IOleClientSite* sited = nullptr;
  IAdviseSink* advised = nullptr;
  check(ole->GetClientSite(&sited) == S_OK && sited == &site &&
            view->GetAdvise(nullptr, nullptr, &advised) == S_OK && advised == &sink,
        "the client site and the view's sink are the container's");
  SIZEL content{}, extent{};
  check(quick->SetContentExtent(&content) == S_OK && quick->GetContentExtent(&content) == S_OK &&
            ole->GetExtent(DVASPECT_CONTENT, &extent) == S_OK && content.cx == extent.cx &&
            content.cy == extent.cy && content.cx > 0,
        "the content extent is the panel's, whatever the container asks");
  given.cbSize = 4;
  check(quick->QuickActivate(&given, &answer) == E_INVALIDARG, "a short QACONTAINER is refused");
  ole->Close(OLECLOSE_NOSAVE);
  ole->SetClientSite(nullptr);
  for (IUnknown* face : {static_cast<IUnknown*>(view), static_cast<IUnknown*>(ole),
                         static_cast<IUnknown*>(quick), control})
    face->Release();
}

} // namespace zvtest
