#include "com_backend.h"

#include <ocidl.h>

#include "com/convert.h"
#include "com/diagnostic_trees.h"
#include "com_site.h"
#include "diagnostics_idl.h"
#include "host/plugin/diagnostic_views.h"
#include "platform/errors.h"
#include "platform/win/wide_text.h"

namespace zvhost {

namespace {

constexpr wchar_t kProgId[] = L"Zelvor_AVR_PWM.PWM";

// An owned interface pointer: holds one reference or is null.
template <class T> class Ref {
public:
  Ref() = default;
  explicit Ref(T* p) : p_(p) {}
  Ref(Ref&& other) noexcept : p_(std::exchange(other.p_, nullptr)) {}
  Ref& operator=(Ref&& other) noexcept {
    std::swap(p_, other.p_);
    return *this;
  }
  ~Ref() {
    if (p_)
      p_->Release();
  }
  T* operator->() const { return p_; }
  T* get() const { return p_; }
  void** out() { return reinterpret_cast<void**>(&p_); }

private:
  T* p_ = nullptr;
};

zv::Status statusOfNumber(int number) {
  return {number, zv::errorDescription(number)};
}

// A failed HRESULT as the run-time error a script host shows for it.
zv::Status statusOf(HRESULT hr, EXCEPINFO* info) {
  if (hr == DISP_E_EXCEPTION && info) {
    if (info->pfnDeferredFillIn)
      info->pfnDeferredFillIn(info);
    const int number = info->scode ? HRESULT_CODE(info->scode) : info->wCode;
    std::string description = zvcom::fromBstr(info->bstrDescription);
    SysFreeString(info->bstrDescription);
    SysFreeString(info->bstrSource);
    SysFreeString(info->bstrHelpFile);
    return {number, description.empty() ? zv::errorDescription(number) : description};
  }
  if (HRESULT_FACILITY(hr) == FACILITY_CONTROL) {
    const int number = HRESULT_CODE(hr);
    IErrorInfo* error = nullptr;
    std::string description;
    if (GetErrorInfo(0, &error) == S_OK && error) {
      BSTR text = nullptr;
      if (SUCCEEDED(error->GetDescription(&text)))
        description = zvcom::fromBstr(text);
      SysFreeString(text);
      error->Release();
    }
    return {number, description.empty() ? zv::errorDescription(number) : description};
  }
  switch (hr) {
  case DISP_E_UNKNOWNNAME:
  case DISP_E_MEMBERNOTFOUND:
    return statusOfNumber(438);
  case DISP_E_BADPARAMCOUNT:
  case DISP_E_PARAMNOTOPTIONAL:
    return statusOfNumber(450);
  case DISP_E_TYPEMISMATCH:
    return statusOfNumber(zv::errTypeMismatch);
  case DISP_E_OVERFLOW:
    return statusOfNumber(zv::errOverflow);
  case E_OUTOFMEMORY:
    return statusOfNumber(7);
  default:
    return statusOfNumber(zv::errInvalidCall);
  }
}

// Raises the run-time error of a failed diagnostic call.
void check(HRESULT hr) {
  if (FAILED(hr)) {
    const zv::Status s = statusOf(hr, nullptr);
    throw zv::RuntimeError(s.number, s.description);
  }
}

void checkValue(HRESULT hr) {
  if (FAILED(hr))
    throw zv::RuntimeError(zv::errTypeMismatch, zv::errorDescription(zv::errTypeMismatch));
}

std::wstring wide(const std::string& text) {
  return zv::wideFrom1252(text);
}

struct Bstr {
  explicit Bstr(const std::string& text) : b(zvcom::toBstr(text)) {}
  ~Bstr() { SysFreeString(b); }
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;
  BSTR b;
};

zv::Variant variantOf(const VARIANT& v) {
  zv::Variant out;
  checkValue(zvcom::fromVariant(v, out));
  return out;
}

// A call by name through IDispatch::Invoke. In/out arguments travel as
// by-reference Variants, as script hosts pass their variables, and take back
// what the callee wrote, also after a failure.
zv::Status invokeByName(IDispatch* target, const std::string& name, WORD flags,
                        std::vector<zv::Variant>& args, const std::vector<bool>& inOut,
                        zv::Variant* result) {
  std::wstring member = wide(name);
  LPOLESTR names[] = {member.data()};
  DISPID id = 0;
  HRESULT hr = target->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(hr))
    return statusOf(hr, nullptr);
  const size_t n = args.size();
  std::vector<zvcom::ScopedVariant> values(n);
  std::vector<VARIANTARG> passed(n);
  for (size_t i = 0; i < n; ++i) {
    if (FAILED(zvcom::toVariant(args[i], values[i].v)))
      return statusOfNumber(zv::errTypeMismatch);
    VARIANTARG& arg = passed[n - 1 - i]; // Invoke takes them last first
    VariantInit(&arg);
    if (i < inOut.size() && inOut[i]) {
      arg.vt = VT_BYREF | VT_VARIANT;
      arg.pvarVal = &values[i].v;
    } else {
      arg = values[i].v; // a shallow view; values[i] owns it
    }
  }
  DISPID named = DISPID_PROPERTYPUT;
  DISPPARAMS params{passed.data(), nullptr, static_cast<UINT>(n), 0};
  if (flags == DISPATCH_PROPERTYPUT) {
    params.rgdispidNamedArgs = &named;
    params.cNamedArgs = 1;
  }
  zvcom::ScopedVariant answer;
  EXCEPINFO exception{};
  UINT argError = 0;
  hr = target->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &params,
                      result ? &answer.v : nullptr, &exception, &argError);
  for (size_t i = 0; i < n; ++i)
    if (i < inOut.size() && inOut[i])
      args[i] = variantOf(values[i].v);
  if (FAILED(hr))
    return statusOf(hr, &exception);
  if (result)
    *result = variantOf(answer.v);
  return {};
}

WORD flagsOf(OpKind kind) {
  switch (kind) {
  case OpKind::Get:
    return DISPATCH_PROPERTYGET;
  case OpKind::Put:
    return DISPATCH_PROPERTYPUT;
  case OpKind::Call:
    break;
  }
  return DISPATCH_METHOD;
}

class ComComponent : public ComponentHandle {
public:
  ComComponent(Ref<IUnknown> object, Ref<IDispatch> host, Ref<IDispatch> pwm,
               Ref<IZelvorDiagnostics> diagnostics)
      : object_(std::move(object)), host_(std::move(host)), pwm_(std::move(pwm)),
        diagnostics_(std::move(diagnostics)) {}

  IUnknown* object() const { return object_.get(); }
  IZelvorDiagnostics* diagnostics() const { return diagnostics_.get(); }

  zv::Status initProperties() override { return statusOfCall(diagnostics_->InitProperties()); }
  zv::Status paint() override { return statusOfCall(diagnostics_->Paint()); }
  zv::Status resize() override { return statusOfCall(diagnostics_->Resize()); }

  zv::Status readProperties(zv::PropertyBag& bag) override {
    const auto [names, values] = zvcom::bagArrays(bag);
    zvcom::ScopedVariant n, v;
    checkValue(zvcom::toVariant(names, n.v));
    checkValue(zvcom::toVariant(values, v.v));
    return statusOfCall(diagnostics_->ReadProperties(n.v, v.v));
  }

  zv::Status writeProperties(zv::PropertyBag& bag) override {
    zvcom::ScopedVariant n, v;
    const zv::Status status = statusOfCall(diagnostics_->WriteProperties(&n.v, &v.v));
    // What was written stands, also after a failure; no arrays, no bag.
    if (n.v.vt != VT_EMPTY || v.v.vt != VT_EMPTY)
      zvcom::fillBag(variantOf(n.v), variantOf(v.v), bag);
    return status;
  }

  zv::Status hostOperation(const Operation& op, std::vector<zv::Variant>& args,
                           zv::Variant& result) override {
    std::vector<bool> inOut;
    for (const ParamSpec& p : op.params)
      inOut.push_back(p.inOut);
    return invokeByName(host_.get(), op.name, flagsOf(op.kind), args, inOut,
                        op.result ? &result : nullptr);
  }

  zv::Status publicGet(const std::string& name, zv::Variant& result) override {
    std::vector<zv::Variant> none;
    return invokeByName(pwm_.get(), name, DISPATCH_PROPERTYGET, none, {}, &result);
  }

  zv::Status publicPut(const std::string& name, const zv::Variant& value) override {
    std::vector<zv::Variant> args{value};
    return invokeByName(pwm_.get(), name, DISPATCH_PROPERTYPUT, args, {}, nullptr);
  }

  zv::Status publicCall(const std::string& name, std::vector<zv::Variant>& args,
                        zv::Variant& result) override {
    return invokeByName(pwm_.get(), name, DISPATCH_METHOD, args,
                        std::vector<bool>(args.size(), true), &result);
  }

  zv::Inspected fields() override {
    zvcom::ScopedVariant tree;
    check(diagnostics_->Fields(&tree.v));
    return fieldsFrom(variantOf(tree.v));
  }

  PanelView panel() override {
    zvcom::ScopedVariant tree;
    check(diagnostics_->Panel(&tree.v));
    return panelFrom(variantOf(tree.v));
  }

  std::optional<CanvasView> canvas(int index,
                                   const std::optional<std::pair<float, float>>& size) override {
    zvcom::ScopedVariant wanted, tree;
    if (size) {
      zv::SafeArray a(zv::VarType::R4, 0, 1);
      a.set(0, zv::Variant::r4(size->first));
      a.set(1, zv::Variant::r4(size->second));
      checkValue(zvcom::toVariant(zv::Variant::array(std::move(a)), wanted.v));
    }
    check(diagnostics_->Canvas(index, wanted.v, &tree.v));
    return canvasFrom(variantOf(tree.v));
  }

private:
  static zv::Status statusOfCall(HRESULT hr) {
    return FAILED(hr) ? statusOf(hr, nullptr) : zv::Status{};
  }

  Ref<IUnknown> object_;
  Ref<IDispatch> host_;
  Ref<IDispatch> pwm_;
  Ref<IZelvorDiagnostics> diagnostics_;
};

class ComPage : public PageHandle {
public:
  explicit ComPage(Ref<IZelvorPageDiagnostics> page) : page_(std::move(page)) {}

  zv::Status select(const std::vector<ComponentHandle*>& components) override {
    zvcom::ScopedVariant list;
    SAFEARRAYBOUND bound{static_cast<ULONG>(components.size()), 0};
    list.v.vt = VT_ARRAY | VT_VARIANT;
    list.v.parray = SafeArrayCreate(VT_VARIANT, 1, &bound);
    if (!list.v.parray)
      return statusOfNumber(7);
    for (LONG i = 0; i < static_cast<LONG>(components.size()); ++i) {
      VARIANT item;
      VariantInit(&item);
      item.vt = VT_UNKNOWN;
      item.punkVal = static_cast<ComComponent*>(components[static_cast<size_t>(i)])->object();
      SafeArrayPutElement(list.v.parray, &i, &item); // copies, with its own reference
    }
    const HRESULT hr = page_->Select(list.v);
    return FAILED(hr) ? statusOf(hr, nullptr) : zv::Status{};
  }

  zv::Status apply() override {
    const HRESULT hr = page_->Apply();
    return FAILED(hr) ? statusOf(hr, nullptr) : zv::Status{};
  }

  ControlKind kind(const std::string& control) override {
    Bstr name(control);
    LONG number = 0;
    check(page_->ControlKind(name.b, &number));
    return controlKindFrom(number);
  }

  std::string text(const std::string& control) override {
    Bstr name(control);
    BSTR text = nullptr;
    check(page_->Text(name.b, &text));
    std::string out = zvcom::fromBstr(text);
    SysFreeString(text);
    return out;
  }

  void setText(const std::string& control, const std::string& text) override {
    Bstr name(control), value(text);
    check(page_->SetText(name.b, value.b));
  }

  void setValue(const std::string& control, int value) override {
    Bstr name(control);
    check(page_->SetValue(name.b, value));
  }

  void arrow(const std::string& control, bool up) override {
    Bstr name(control);
    check(page_->Arrow(name.b, up ? 1 : 0));
  }

  PageView state() override {
    zvcom::ScopedVariant tree;
    check(page_->State(&tree.v));
    return pageFrom(variantOf(tree.v));
  }

private:
  Ref<IZelvorPageDiagnostics> page_;
};

} // namespace

ComBackend::~ComBackend() {
  pageMaker_.reset();
}

std::unique_ptr<ComponentHandle> ComBackend::createComponent(const std::string& folder,
                                                             const std::string& baseName,
                                                             zv::Status& status,
                                                             zv::MessageBoxService* boxes) {
  CLSID clsid;
  HRESULT hr = CLSIDFromProgID(kProgId, &clsid);
  Ref<IUnknown> object;
  if (SUCCEEDED(hr))
    hr = CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, object.out());
  // The object keeps its own reference to its site.
  Ref<ComSite> site(new ComSite(boxes));
  Ref<IOleObject> control;
  if (SUCCEEDED(hr))
    hr = object->QueryInterface(IID_IOleObject, control.out());
  if (SUCCEEDED(hr))
    hr = control->SetClientSite(static_cast<IOleClientSite*>(site.get()));
  Ref<IDispatch> host, pwm;
  Ref<IZelvorDiagnostics> diagnostics;
  // The host interface's own IDispatch: the IZelvorComponentV4 pointer is one.
  if (SUCCEEDED(hr))
    hr = object->QueryInterface(IID_IZelvorComponentV4, host.out());
  if (SUCCEEDED(hr))
    hr = object->QueryInterface(IID_IDispatch, pwm.out());
  if (SUCCEEDED(hr))
    hr = object->QueryInterface(IID_IZelvorDiagnostics, diagnostics.out());
  // The start-up again, now that the site shows its message boxes.
  if (SUCCEEDED(hr)) {
    Bstr f(folder), b(baseName);
    hr = diagnostics->Restart(f.b, b.b);
  }
  if (FAILED(hr)) {
    status = statusOf(hr, nullptr);
    if (control.get())
      control->SetClientSite(nullptr);
    return nullptr;
  }
  return std::make_unique<ComComponent>(std::move(object), std::move(host), std::move(pwm),
                                        std::move(diagnostics));
}

std::unique_ptr<PageHandle> ComBackend::createPage(zv::Status& status,
                                                   zv::MessageBoxService* boxes) {
  // The page shows its boxes through those of the object that made it.
  if (!pageMaker_ && !(pageMaker_ = createComponent({}, {}, status, boxes)))
    return nullptr;
  Ref<IZelvorPageDiagnostics> page;
  const HRESULT hr = static_cast<ComComponent&>(*pageMaker_)
                         .diagnostics()
                         ->CreatePage(reinterpret_cast<IZelvorPageDiagnostics**>(page.out()));
  if (FAILED(hr)) {
    status = statusOf(hr, nullptr);
    return nullptr;
  }
  return std::make_unique<ComPage>(std::move(page));
}

bool ComBackend::render(ComponentHandle&, const std::string&, double, std::string& error) {
  error = "this host draws no pictures";
  return false;
}

} // namespace zvhost
