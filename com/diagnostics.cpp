#include "diagnostics.h"

#include <memory>

#include "convert.h"
#include "diagnostic_trees.h"
#include "diagnostics_idl.h"
#include "platform/vbnum.h"
#include "pwm_object.h"
#include "zelvor/plugin.h"

namespace zvcom {

namespace {

// A reference count for one face; the PWM object stays alive while it lives.
template <class Face, const IID& kIid> class Counted : public Face {
public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    if (!out)
      return E_POINTER;
    if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, kIid)) {
      *out = static_cast<Face*>(this);
      AddRef();
      return S_OK;
    }
    *out = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0)
      delete this;
    return left;
  }

protected:
  virtual ~Counted() = default;

private:
  ULONG references_ = 1;
};

// Holds a reference to the PWM object for as long as a face needs it.
struct ObjectRef {
  explicit ObjectRef(PwmObject& o) : object(o) { object.AddRef(); }
  ~ObjectRef() { object.Release(); }
  ObjectRef(const ObjectRef&) = delete;
  ObjectRef& operator=(const ObjectRef&) = delete;
  PwmObject& object;
};

HRESULT answer(const zv::Variant& tree, VARIANT* out) {
  if (!out)
    return E_POINTER;
  return toVariant(tree, *out);
}

std::string textOf(BSTR text) {
  return fromBstr(text);
}

struct Destroy {
  void operator()(zv::PageObject* page) const { zelvor_destroy_page(page); }
};

class PageFace final : public Counted<IZelvorPageDiagnostics, IID_IZelvorPageDiagnostics> {
public:
  explicit PageFace(PwmObject& object) : ref_(object) {}
  HRESULT make() {
    return run([&] {
      zv::Status status;
      zv::ScopedDefaultMessageBoxes initialisation(ref_.object.messageBoxes());
      page_.reset(zelvor_create_page(&status));
      if (page_)
        page_->setMessageBoxes(&ref_.object.messageBoxes());
      return status;
    });
  }

  HRESULT STDMETHODCALLTYPE Select(VARIANT components) override;
  HRESULT STDMETHODCALLTYPE Apply() override {
    return run([&] {
      zv::Status status = page_->PropertyPage_ApplyChanges();
      if (status.ok())
        page_->site().setChanged(false);
      return status;
    });
  }
  HRESULT STDMETHODCALLTYPE ControlKind(BSTR name, LONG* kind) override {
    if (!kind)
      return E_POINTER;
    *kind = static_cast<LONG>(editableKind(page_->control(textOf(name))));
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Text(BSTR name, BSTR* text) override {
    if (!text)
      return E_POINTER;
    *text = toBstr(zvcom::textOf(page_->control(textOf(name))));
    return *text ? S_OK : E_OUTOFMEMORY;
  }
  HRESULT STDMETHODCALLTYPE SetText(BSTR name, BSTR text) override {
    return run([&] { setTextOf(page_->control(textOf(name)), textOf(text)); });
  }
  HRESULT STDMETHODCALLTYPE SetValue(BSTR name, LONG value) override {
    return run([&] { setEditableValue(page_->control(textOf(name)), value); });
  }
  HRESULT STDMETHODCALLTYPE Arrow(BSTR name, LONG up) override {
    return run([&] { arrowOn(page_->control(textOf(name)), up != 0); });
  }
  HRESULT STDMETHODCALLTYPE State(VARIANT* state) override {
    zv::Variant tree;
    HRESULT hr = run([&] { tree = pageTree(*page_); });
    return SUCCEEDED(hr) ? answer(tree, state) : hr;
  }

private:
  template <class Body> HRESULT run(Body&& body) {
    return ref_.object.call(IID_IZelvorPageDiagnostics, std::forward<Body>(body));
  }
  ObjectRef ref_;
  std::unique_ptr<zv::PageObject, Destroy> page_;
};

// The PWM object behind an interface pointer of this library, or nullptr.
PwmObject* pwmBehind(const VARIANT& item);

HRESULT PageFace::Select(VARIANT components) {
  const VARIANT& list = dereferenced(components);
  if (list.vt != (VT_ARRAY | VT_VARIANT) || !list.parray)
    return DISP_E_TYPEMISMATCH;
  LONG lower = 0, upper = -1;
  SafeArrayGetLBound(list.parray, 1, &lower);
  SafeArrayGetUBound(list.parray, 1, &upper);
  std::vector<zv::Dispatch*> selected;
  for (LONG i = lower; i <= upper; ++i) {
    ScopedVariant item;
    if (FAILED(SafeArrayGetElement(list.parray, &i, &item.v)))
      return DISP_E_TYPEMISMATCH;
    PwmObject* object = pwmBehind(item.v);
    if (!object)
      return DISP_E_TYPEMISMATCH;
    selected.push_back(&object->component().publicInterface());
  }
  return run([&] {
    page_->site().SelectedControls = selected;
    return page_->PropertyPage_SelectionChanged();
  });
}

class ObjectFace final : public Counted<IZelvorDiagnostics, IID_IZelvorDiagnostics> {
public:
  explicit ObjectFace(PwmObject& object) : ref_(object) {}

  PwmObject& object() { return ref_.object; }

  // The object's identity and its other interfaces are the object's own.
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    if (!IsEqualIID(iid, IID_IZelvorDiagnostics))
      return object().QueryInterface(iid, out);
    return Counted::QueryInterface(iid, out);
  }

  HRESULT STDMETHODCALLTYPE Restart(BSTR folder, BSTR baseName) override {
    return object().restart(textOf(folder), textOf(baseName));
  }
  HRESULT STDMETHODCALLTYPE InitProperties() override {
    return run([&] { return component().InitProperties(); });
  }
  HRESULT STDMETHODCALLTYPE ReadProperties(VARIANT names, VARIANT values) override;
  HRESULT STDMETHODCALLTYPE WriteProperties(VARIANT* names, VARIANT* values) override;
  HRESULT STDMETHODCALLTYPE Paint() override {
    return run([&] { return component().Paint(); });
  }
  HRESULT STDMETHODCALLTYPE Resize() override {
    return run([&] { return component().Resize(); });
  }
  HRESULT STDMETHODCALLTYPE Fields(VARIANT* tree) override {
    zv::Variant fields;
    HRESULT hr = run([&] { fields = fieldsTree(component().inspect()); });
    return SUCCEEDED(hr) ? answer(fields, tree) : hr;
  }
  HRESULT STDMETHODCALLTYPE Panel(VARIANT* tree) override {
    zv::Variant panel;
    HRESULT hr = run([&] { panel = panelTree(component()); });
    return SUCCEEDED(hr) ? answer(panel, tree) : hr;
  }
  HRESULT STDMETHODCALLTYPE Canvas(LONG index, VARIANT size, VARIANT* tree) override;
  HRESULT STDMETHODCALLTYPE CreatePage(IZelvorPageDiagnostics** page) override {
    if (!page)
      return E_POINTER;
    *page = nullptr;
    auto* made = new (std::nothrow) PageFace(object());
    if (!made)
      return E_OUTOFMEMORY;
    HRESULT hr = made->make();
    if (FAILED(hr)) {
      made->Release();
      return hr;
    }
    *page = made;
    return S_OK;
  }

private:
  zv::ComponentObject& component() { return object().component(); }
  template <class Body> HRESULT run(Body&& body) {
    return object().call(IID_IZelvorDiagnostics, std::forward<Body>(body));
  }
  ObjectRef ref_;
};

PwmObject* pwmBehind(const VARIANT& item) {
  const VARIANT& v = dereferenced(item);
  IUnknown* unknown = v.vt == VT_UNKNOWN ? v.punkVal : v.vt == VT_DISPATCH ? v.pdispVal : nullptr;
  IZelvorDiagnostics* face = nullptr;
  if (!unknown ||
      FAILED(unknown->QueryInterface(IID_IZelvorDiagnostics, reinterpret_cast<void**>(&face))))
    return nullptr;
  // Only this library hands out the interface, so the face is one of ours.
  PwmObject& object = static_cast<ObjectFace*>(face)->object();
  face->Release();
  return &object;
}

HRESULT ObjectFace::ReadProperties(VARIANT names, VARIANT values) {
  zv::Variant n, v;
  HRESULT hr = fromVariant(names, n);
  if (SUCCEEDED(hr))
    hr = fromVariant(values, v);
  if (FAILED(hr))
    return hr;
  zv::PropertyBag bag;
  return run([&] {
    fillBag(n, v, bag);
    return component().ReadProperties(bag);
  });
}

HRESULT ObjectFace::WriteProperties(VARIANT* names, VARIANT* values) {
  if (!names || !values)
    return E_POINTER;
  zv::PropertyBag bag;
  // The bag as it stands is the answer, also after a failure.
  const HRESULT status = run([&] { return component().WriteProperties(bag); });
  const auto [n, v] = bagArrays(bag);
  HRESULT hr = toVariant(n, *names);
  if (SUCCEEDED(hr))
    hr = toVariant(v, *values);
  return FAILED(hr) ? hr : status;
}

HRESULT ObjectFace::Canvas(LONG index, VARIANT size, VARIANT* tree) {
  zv::Variant wanted;
  HRESULT hr = fromVariant(size, wanted);
  if (FAILED(hr))
    return hr;
  zv::Variant canvas;
  hr = run([&] {
    zv::Canvas* found = canvasOf(component(), index);
    if (!found)
      return;
    if (wanted.isArray() && wanted.arr().size() == 2)
      sizeCanvas(*found, zv::toR4(wanted.arr().at(wanted.arr().lbound())),
                 zv::toR4(wanted.arr().at(wanted.arr().lbound() + 1)));
    canvas = canvasTree(*found);
  });
  return SUCCEEDED(hr) ? answer(canvas, tree) : hr;
}

} // namespace

HRESULT queryDiagnostics(PwmObject& object, REFIID iid, void** out) {
  *out = nullptr;
  if (!IsEqualIID(iid, IID_IZelvorDiagnostics))
    return E_NOINTERFACE;
  auto* face = new (std::nothrow) ObjectFace(object);
  if (!face)
    return E_OUTOFMEMORY;
  *out = static_cast<IZelvorDiagnostics*>(face);
  return S_OK;
}

} // namespace zvcom
