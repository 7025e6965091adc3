// Saved properties: the component's InitProperties, ReadProperties and
// WriteProperties through the container's property bag or a stream. A load
// gathers everything first; what the container can't give leaves the control
// as it was.
#include <string>
#include <vector>

#include "avr_pwm.h"
#include "convert.h"
#include "ole_control.h"
#include "pwm_object.h"
#include "stream_format.h"

namespace zvcom {

namespace {

// The keys the component reads, in its order: the same that it writes.
HRESULT keysOf(PwmObject& object, std::vector<std::string>& names) {
  return object.call(IID_IPersistPropertyBag, [&] {
    zv::PropertyBag scratch;
    zv::Status status = object.component().WriteProperties(scratch);
    for (const auto& entry : scratch.entries())
      names.push_back(entry.first);
    return status;
  });
}

HRESULT readInto(PwmObject& object, const zv::PropertyBag& bag) {
  return object.call(IID_IPersistPropertyBag, [&] {
    zv::Status status = object.component().Resize();
    return status.ok() ? object.component().ReadProperties(const_cast<zv::PropertyBag&>(bag))
                       : status;
  });
}

HRESULT writeOut(PwmObject& object, zv::PropertyBag& bag) {
  return object.call(IID_IPersistPropertyBag,
                     [&] { return object.component().WriteProperties(bag); });
}

// What a save to a stream writes.
HRESULT streamBytes(PwmObject& object, std::string& bytes) {
  zv::PropertyBag saved;
  const HRESULT hr = writeOut(object, saved);
  return FAILED(hr) ? hr : encodeBag(saved, bytes) ? S_OK : E_UNEXPECTED;
}

} // namespace

HRESULT OleControl::GetClassID(CLSID* clsid) {
  if (!clsid)
    return E_POINTER;
  *clsid = CLSID_PWM;
  return S_OK;
}

HRESULT OleControl::InitNew() {
  return object_.call(IID_IPersistPropertyBag, [&] {
    zv::Status status = object_.component().Resize();
    return status.ok() ? object_.component().InitProperties() : status;
  });
}

HRESULT OleControl::Load(IPropertyBag* bag, IErrorLog* log) {
  if (!bag)
    return E_POINTER;
  std::vector<std::string> names;
  HRESULT hr = keysOf(object_, names);
  if (FAILED(hr))
    return hr;
  zv::PropertyBag loaded;
  for (const std::string& name : names) {
    ScopedVariant value;
    BSTR wide = toBstr(name);
    if (!wide)
      return E_OUTOFMEMORY;
    hr = bag->Read(wide, &value.v, log);
    SysFreeString(wide);
    if (hr == E_INVALIDARG)
      continue; // not in the bag: the component's default applies
    if (FAILED(hr))
      return hr;
    zv::Variant held;
    if (FAILED(hr = fromVariant(value.v, held)))
      return hr;
    loaded.WriteProperty(name, held);
  }
  hr = readInto(object_, loaded);
  painted_ = painted_ || SUCCEEDED(hr);
  viewChanged();
  return hr;
}

HRESULT OleControl::Save(IPropertyBag* bag, BOOL, BOOL) {
  if (!bag)
    return E_POINTER;
  zv::PropertyBag saved;
  HRESULT hr = writeOut(object_, saved);
  if (FAILED(hr))
    return hr;
  for (const auto& [name, value] : saved.entries()) {
    ScopedVariant v;
    if (FAILED(hr = toVariant(value, v.v)))
      return hr;
    BSTR wide = toBstr(name);
    if (!wide)
      return E_OUTOFMEMORY;
    hr = bag->Write(wide, &v.v);
    SysFreeString(wide);
    if (FAILED(hr))
      return hr;
  }
  return S_OK;
}

HRESULT OleControl::IsDirty() {
  // The component never says when a property changed: always worth saving.
  return S_OK;
}

HRESULT OleControl::Load(IStream* stream) {
  if (!stream)
    return E_POINTER;
  zv::PropertyBag loaded;
  const bool whole = decodeBag(
      [&](void* buffer, size_t n) {
        ULONG got = 0;
        return SUCCEEDED(stream->Read(buffer, static_cast<ULONG>(n), &got)) && got == n;
      },
      loaded);
  if (!whole)
    return STG_E_READFAULT;
  HRESULT hr = readInto(object_, loaded);
  painted_ = painted_ || SUCCEEDED(hr);
  viewChanged();
  return hr;
}

HRESULT OleControl::Save(IStream* stream, BOOL) {
  if (!stream)
    return E_POINTER;
  std::string bytes;
  HRESULT hr = streamBytes(object_, bytes);
  if (FAILED(hr))
    return hr;
  ULONG written = 0;
  hr = stream->Write(bytes.data(), static_cast<ULONG>(bytes.size()), &written);
  return FAILED(hr) ? hr : written == bytes.size() ? S_OK : STG_E_WRITEFAULT;
}

HRESULT OleControl::GetSizeMax(ULARGE_INTEGER* size) {
  if (!size)
    return E_POINTER;
  std::string bytes;
  const HRESULT hr = streamBytes(object_, bytes);
  if (SUCCEEDED(hr))
    size->QuadPart = bytes.size();
  return hr;
}

} // namespace zvcom
