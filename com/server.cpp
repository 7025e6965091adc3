// The class factory and the entry points that create objects and tell when
// the library may be unloaded.
#include "server.h"

#include "avr_pwm.h"
#include "control/property_page.h"
#include "pwm_object.h"
#include "type_info.h"

namespace zvcom {

namespace {

LONG objects = 0;
LONG locks = 0;

// A class's factory: one for the library's life, whose references count as
// server locks, as LockServer's do.
class ClassFactory final : public IClassFactory {
public:
  explicit ClassFactory(HRESULT (*create)(REFIID, void**)) : create_(create) {}
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    if (!out)
      return E_POINTER;
    if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, IID_IClassFactory)) {
      *out = nullptr;
      return E_NOINTERFACE;
    }
    *out = static_cast<IClassFactory*>(this);
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override {
    return static_cast<ULONG>(InterlockedIncrement(&locks));
  }
  ULONG STDMETHODCALLTYPE Release() override {
    return static_cast<ULONG>(InterlockedDecrement(&locks));
  }

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** out) override {
    if (!out)
      return E_POINTER;
    *out = nullptr;
    if (outer)
      return CLASS_E_NOAGGREGATION;
    return create_(iid, out);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
    if (lock)
      InterlockedIncrement(&locks);
    else
      InterlockedDecrement(&locks);
    return S_OK;
  }

private:
  HRESULT (*create_)(REFIID, void**);
};

ClassFactory controlFactory(PwmObject::create);
ClassFactory pageFactory(PropertyPage::create);

} // namespace

void objectCreated() {
  InterlockedIncrement(&objects);
}

void objectDestroyed() {
  InterlockedDecrement(&objects);
}

} // namespace zvcom

extern "C" HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID clsid, REFIID iid, void** out) {
  if (!out)
    return E_POINTER;
  *out = nullptr;
  if (IsEqualCLSID(clsid, zvcom::CLSID_PwmPropertyPage)) // the control's property page
    return zvcom::pageFactory.QueryInterface(iid, out);
  if (!IsEqualCLSID(clsid, CLSID_PWM))
    return CLASS_E_CLASSNOTAVAILABLE;
  return zvcom::controlFactory.QueryInterface(iid, out);
}

extern "C" HRESULT STDAPICALLTYPE DllCanUnloadNow() {
  if (zvcom::objects != 0 || zvcom::locks != 0)
    return S_FALSE;
  zvcom::releaseTypeInfo();
  return S_OK;
}
