#include "remote_dispatch.h"

#include "convert.h"
#include "platform/errors.h"

namespace zvcom {

namespace {

[[noreturn]] void raiseFrom(HRESULT hr, const EXCEPINFO* exception) {
  if (hr == DISP_E_EXCEPTION && exception && FAILED(exception->scode))
    hr = exception->scode;
  // Run-time errors travel as HRESULTs of the control facility.
  const int number = HRESULT_FACILITY(hr) == FACILITY_CONTROL ? HRESULT_CODE(hr)
                     : hr == DISP_E_TYPEMISMATCH              ? zv::errTypeMismatch
                     : hr == DISP_E_OVERFLOW                  ? zv::errOverflow
                     : hr == DISP_E_UNKNOWNNAME               ? 438
                                                              : zv::errInvalidCall;
  std::string description = zv::errorDescription(number);
  if (exception && exception->bstrDescription)
    description = fromBstr(exception->bstrDescription);
  zv::raise(number, description);
}

struct ScopedException {
  EXCEPINFO info{};
  ~ScopedException() {
    SysFreeString(info.bstrSource);
    SysFreeString(info.bstrDescription);
    SysFreeString(info.bstrHelpFile);
  }
};

} // namespace

RemoteDispatch::RemoteDispatch(IDispatch* object) : object_(object) {
  object_->AddRef();
}

RemoteDispatch::~RemoteDispatch() {
  object_->Release();
}

DISPID RemoteDispatch::idOf(const std::string& name) {
  BSTR wide = toBstr(name);
  DISPID id = DISPID_UNKNOWN;
  const HRESULT hr = object_->GetIDsOfNames(IID_NULL, &wide, 1, LOCALE_USER_DEFAULT, &id);
  SysFreeString(wide);
  if (FAILED(hr))
    raiseFrom(hr, nullptr);
  return id;
}

zv::Variant RemoteDispatch::invoke(const std::string& name, WORD flags, DISPPARAMS& params) {
  const DISPID id = idOf(name);
  ScopedVariant result;
  ScopedException exception;
  const HRESULT hr = object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &params, &result.v,
                                     &exception.info, nullptr);
  if (FAILED(hr))
    raiseFrom(hr, &exception.info);
  zv::Variant value;
  if (FAILED(fromVariant(result.v, value)))
    zv::raise(zv::errTypeMismatch);
  return value;
}

zv::Variant RemoteDispatch::getProperty(const std::string& name) {
  DISPPARAMS none{nullptr, nullptr, 0, 0};
  return invoke(name, DISPATCH_PROPERTYGET, none);
}

void RemoteDispatch::putProperty(const std::string& name, const zv::Variant& value) {
  ScopedVariant arg;
  if (FAILED(toVariant(value, arg.v)))
    zv::raise(zv::errTypeMismatch);
  DISPID named = DISPID_PROPERTYPUT;
  DISPPARAMS params{&arg.v, &named, 1, 1};
  invoke(name, DISPATCH_PROPERTYPUT, params);
}

zv::Variant RemoteDispatch::callMethod(const std::string& name, std::vector<zv::Variant>& args) {
  std::vector<ScopedVariant> held(args.size());
  std::vector<VARIANTARG> reversed(args.size());
  for (size_t i = 0; i < args.size(); ++i) {
    if (FAILED(toVariant(args[i], held[i].v)))
      zv::raise(zv::errTypeMismatch);
    reversed[args.size() - 1 - i] = held[i].v;
  }
  DISPPARAMS params{reversed.data(), nullptr, static_cast<UINT>(args.size()), 0};
  return invoke(name, DISPATCH_METHOD, params);
}

} // namespace zvcom
