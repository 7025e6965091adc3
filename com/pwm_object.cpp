#include "pwm_object.h"

#include "diagnostics.h"
#include "server.h"
#include "zelvor/plugin.h"

namespace zvcom {

void PwmObject::Destroy::operator()(zv::ComponentObject* c) const {
  zelvor_destroy_component(c);
}

PwmObject::PwmObject() {
  objectCreated();
}

PwmObject::~PwmObject() {
  objectDestroyed();
}

HRESULT PwmObject::create(REFIID iid, void** out) {
  if (!out)
    return E_POINTER;
  *out = nullptr;
  PwmObject* object = new (std::nothrow) PwmObject();
  if (!object)
    return E_OUTOFMEMORY;
  // The start-up's message boxes are the system's: no site is known yet. It
  // runs before there is a component to hand them to.
  HRESULT hr = object->call(IID__PWM, [&] {
    zv::Status status;
    {
      zv::ScopedDefaultMessageBoxes startUp(object->boxes_);
      object->component_.reset(zelvor_create_component(nullptr, nullptr, &status));
    }
    if (object->component_)
      object->component_->setMessageBoxes(&object->boxes_);
    return status;
  });
  if (SUCCEEDED(hr))
    hr = object->QueryInterface(iid, out);
  object->Release();
  return hr;
}

HRESULT PwmObject::restart(const std::string& folder, const std::string& baseName) {
  // An active control's window shows the current component's controls.
  HWND window = nullptr;
  if (SUCCEEDED(control_.GetWindow(&window)))
    return E_UNEXPECTED;
  std::unique_ptr<zv::ComponentObject, Destroy> made;
  const HRESULT hr = call(IID__PWM, [&] {
    zv::Status status;
    zv::ScopedDefaultMessageBoxes startUp(boxes_);
    made.reset(zelvor_create_component(folder.empty() ? nullptr : folder.c_str(),
                                       baseName.empty() ? nullptr : baseName.c_str(), &status));
    return status;
  });
  if (SUCCEEDED(hr) && made) {
    made->setMessageBoxes(&boxes_);
    std::swap(component_, made); // the old one goes with made, its boxes still ours
  }
  return hr;
}

HRESULT PwmObject::QueryInterface(REFIID iid, void** out) {
  if (!out)
    return E_POINTER;
  if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch) || IsEqualIID(iid, IID__PWM))
    *out = static_cast<_PWM*>(this);
  else if (IsEqualIID(iid, IID_IZelvorComponentV4))
    *out = static_cast<::IZelvorComponentV4*>(&v4_);
  else if (IsEqualIID(iid, IID_ISupportErrorInfo))
    *out = static_cast<ISupportErrorInfo*>(this);
  else if (IsEqualIID(iid, IID_IOleObject))
    *out = static_cast<IOleObject*>(this);
  else if (void* face = control_.face(iid)) // the OLE control's other faces
    *out = face;
  else
    return queryDiagnostics(*this, iid, out);
  AddRef();
  return S_OK;
}

ULONG PwmObject::AddRef() {
  return ++references_;
}

ULONG PwmObject::Release() {
  const ULONG left = --references_;
  if (left == 0) {
    control_.InPlaceDeactivate(); // its window shows the component's controls
    component_.reset();
    delete this;
  }
  return left;
}

HRESULT PwmObject::InterfaceSupportsErrorInfo(REFIID iid) {
  return IsEqualIID(iid, IID__PWM) || IsEqualIID(iid, IID_IZelvorComponentV4) ? S_OK : S_FALSE;
}

} // namespace zvcom
