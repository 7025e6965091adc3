#include "failure.h"

#include "convert.h"

namespace zvcom {

HRESULT hresultOf(int errorNumber) {
  return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, errorNumber & 0xFFFF);
}

HRESULT report(const zv::Status& status, REFIID iid) {
  if (status.ok())
    return S_OK;
  ICreateErrorInfo* create = nullptr;
  if (SUCCEEDED(CreateErrorInfo(&create))) {
    BSTR description = toBstr(status.description);
    create->SetDescription(description);
    create->SetSource(const_cast<LPOLESTR>(kErrorSource));
    create->SetGUID(iid);
    SysFreeString(description);
    IErrorInfo* info = nullptr;
    if (SUCCEEDED(create->QueryInterface(IID_IErrorInfo, reinterpret_cast<void**>(&info)))) {
      SetErrorInfo(0, info);
      info->Release();
    }
    create->Release();
  }
  return hresultOf(status.number);
}

void fillException(HRESULT hr, EXCEPINFO* info) {
  IErrorInfo* error = nullptr;
  if (GetErrorInfo(0, &error) != S_OK)
    error = nullptr;
  if (!info) {
    if (error)
      error->Release();
    return;
  }
  *info = EXCEPINFO{};
  info->scode = hr;
  if (error) {
    error->GetDescription(&info->bstrDescription);
    error->GetSource(&info->bstrSource);
    error->Release();
  }
  if (!info->bstrSource)
    info->bstrSource = SysAllocString(kErrorSource);
}

} // namespace zvcom
