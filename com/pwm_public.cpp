// _PWM early-bound: each member reaches the component's public interface by
// its name, with the same conversions a script's late-bound call gets there.
#include "platform/vbnum.h"
#include "pwm_object.h"

namespace zvcom {

namespace {

zv::Variant i2(SHORT v) {
  return zv::Variant::i2(v);
}
zv::Variant i4(LONG v) {
  return zv::Variant::i4(v);
}
zv::Variant flag(VARIANT_BOOL v) {
  return zv::Variant::boolean(v != VARIANT_FALSE);
}
VARIANT_BOOL toFlag(const zv::Variant& v) {
  return zv::toBool(v) ? VARIANT_TRUE : VARIANT_FALSE;
}
BSTR toText(const zv::Variant& v) {
  BSTR text = toBstr(zv::toStr(v));
  if (!text)
    throw std::bad_alloc();
  return text;
}
zv::Variant text(BSTR v) {
  return zv::Variant::str(fromBstr(v));
}

// An in/out BSTR gets what the member left in its argument.
void store(BSTR* target, const zv::Variant& v) {
  BSTR replaced = toText(v);
  SysFreeString(*target);
  *target = replaced;
}

} // namespace

HRESULT PwmObject::getProperty(const char* name, zv::Variant& value) {
  return call(IID__PWM, [&] { value = component_->publicInterface().getProperty(name); });
}

HRESULT PwmObject::putProperty(const char* name, zv::Variant value) {
  return call(IID__PWM, [&] { component_->publicInterface().putProperty(name, value); });
}

HRESULT PwmObject::callMethod(const char* name, std::vector<zv::Variant>& args,
                              zv::Variant* result) {
  return call(IID__PWM, [&] {
    zv::Variant answer = component_->publicInterface().callMethod(name, args);
    if (result)
      *result = std::move(answer);
  });
}

template <class T, class Convert>
HRESULT PwmObject::getAs(const char* name, T* out, Convert convert) {
  if (!out)
    return E_POINTER;
  zv::Variant value;
  HRESULT hr = getProperty(name, value);
  if (SUCCEEDED(hr))
    hr = call(IID__PWM, [&] { *out = convert(value); });
  return hr;
}

HRESULT PwmObject::get_iVersionMajor(SHORT* result) {
  return getAs("iVersionMajor", result, zv::toI2);
}
HRESULT PwmObject::put_iVersionMajor(SHORT RHS) {
  return putProperty("iVersionMajor", i2(RHS));
}
HRESULT PwmObject::get_iVersionMinor(SHORT* result) {
  return getAs("iVersionMinor", result, zv::toI2);
}
HRESULT PwmObject::put_iVersionMinor(SHORT RHS) {
  return putProperty("iVersionMinor", i2(RHS));
}

HRESULT PwmObject::GetIniKeyValue(BSTR* lpApplicationName, BSTR* lpKeyName, BSTR* lpDefault,
                                  BSTR* result) {
  if (!lpApplicationName || !lpKeyName || !lpDefault || !result)
    return E_POINTER;
  *result = nullptr;
  std::vector<zv::Variant> args{text(*lpApplicationName), text(*lpKeyName), text(*lpDefault)};
  zv::Variant answer;
  const HRESULT hr = callMethod("GetIniKeyValue", args, &answer);
  const HRESULT stored = call(IID__PWM, [&] {
    store(lpApplicationName, args[0]);
    store(lpKeyName, args[1]);
    store(lpDefault, args[2]);
    if (SUCCEEDED(hr))
      *result = toText(answer);
  });
  return FAILED(hr) ? hr : stored;
}

HRESULT PwmObject::GetCodeFromFile(BSTR* lpCodeName, BSTR* result) {
  if (!lpCodeName || !result)
    return E_POINTER;
  *result = nullptr;
  std::vector<zv::Variant> args{text(*lpCodeName)};
  zv::Variant answer;
  const HRESULT hr = callMethod("GetCodeFromFile", args, &answer);
  const HRESULT stored = call(IID__PWM, [&] {
    store(lpCodeName, args[0]);
    if (SUCCEEDED(hr))
      *result = toText(answer);
  });
  return FAILED(hr) ? hr : stored;
}

HRESULT PwmObject::Calc_Period_Freq() {
  std::vector<zv::Variant> none;
  return callMethod("Calc_Period_Freq", none, nullptr);
}

HRESULT PwmObject::get_IZelvorComponentV4_VNodeCount(LONG* result) {
  return getAs("IZelvorComponentV4_VNodeCount", result, zv::toI4);
}

HRESULT PwmObject::get_IZelvorComponentV4_VNodeProtocol(LONG lIdx, LONG* result) {
  if (!result)
    return E_POINTER;
  std::vector<zv::Variant> args{i4(lIdx)};
  zv::Variant answer;
  HRESULT hr = callMethod("IZelvorComponentV4_VNodeProtocol", args, &answer);
  return SUCCEEDED(hr) ? call(IID__PWM, [&] { *result = zv::toI4(answer); }) : hr;
}

HRESULT PwmObject::get_IZelvorComponentV4_VNodeName(LONG lIdx, BSTR* result) {
  if (!result)
    return E_POINTER;
  *result = nullptr;
  std::vector<zv::Variant> args{i4(lIdx)};
  zv::Variant answer;
  HRESULT hr = callMethod("IZelvorComponentV4_VNodeName", args, &answer);
  return SUCCEEDED(hr) ? call(IID__PWM, [&] { *result = toText(answer); }) : hr;
}

HRESULT PwmObject::get_IZelvorComponentV4_VNodeMsgRead(LONG lIdx, LONG* lSize, VARIANT* result) {
  if (!lSize || !result)
    return E_POINTER;
  VariantInit(result);
  std::vector<zv::Variant> args{i4(lIdx), i4(*lSize)};
  zv::Variant answer;
  HRESULT hr = callMethod("IZelvorComponentV4_VNodeMsgRead", args, &answer);
  HRESULT stored = call(IID__PWM, [&] { *lSize = zv::toI4(args[1]); });
  if (SUCCEEDED(hr))
    hr = FAILED(stored) ? stored : toVariant(answer, *result);
  return hr;
}

HRESULT PwmObject::put_IZelvorComponentV4_VNodeMsgWrite(LONG lIdx, LONG lSize, VARIANT* msg) {
  if (!msg)
    return E_POINTER;
  std::vector<zv::Variant> args{i4(lIdx), i4(lSize), {}};
  if (HRESULT hr = fromVariant(*msg, args[2]); FAILED(hr))
    return hr;
  HRESULT hr = callMethod("IZelvorComponentV4_VNodeMsgWrite", args, nullptr);
  VariantClear(msg);
  HRESULT stored = toVariant(args[2], *msg);
  return FAILED(hr) ? hr : stored;
}

HRESULT PwmObject::get_Pr2(SHORT* result) {
  return getAs("Pr2", result, zv::toI2);
}
HRESULT PwmObject::put_Pr2(SHORT RHS) {
  return putProperty("Pr2", i2(RHS));
}
HRESULT PwmObject::get_Prescaler(SHORT* result) {
  return getAs("Prescaler", result, zv::toI2);
}
HRESULT PwmObject::put_Prescaler(SHORT RHS) {
  return putProperty("Prescaler", i2(RHS));
}
HRESULT PwmObject::get_PWM_No(SHORT* result) {
  return getAs("PWM_No", result, zv::toI2);
}
HRESULT PwmObject::put_PWM_No(SHORT RHS) {
  return putProperty("PWM_No", i2(RHS));
}
HRESULT PwmObject::get_ClockSpeed(LONG* result) {
  return getAs("ClockSpeed", result, zv::toI4);
}
HRESULT PwmObject::put_ClockSpeed(LONG RHS) {
  return putProperty("ClockSpeed", i4(RHS));
}
HRESULT PwmObject::get_MaxPwm(LONG* result) {
  return getAs("MaxPwm", result, zv::toI4);
}
HRESULT PwmObject::put_MaxPwm(LONG RHS) {
  return putProperty("MaxPwm", i4(RHS));
}
HRESULT PwmObject::get_UseAltPin(VARIANT_BOOL* result) {
  return getAs("UseAltPin", result, toFlag);
}
HRESULT PwmObject::put_UseAltPin(VARIANT_BOOL RHS) {
  return putProperty("UseAltPin", flag(RHS));
}
HRESULT PwmObject::get_HasAltPin(SHORT* result) {
  return getAs("HasAltPin", result, zv::toI2);
}
HRESULT PwmObject::put_HasAltPin(SHORT RHS) {
  return putProperty("HasAltPin", i2(RHS));
}
HRESULT PwmObject::get_Label1(BSTR* result) {
  return getAs("Label1", result, toText);
}
HRESULT PwmObject::put_Label1(BSTR RHS) {
  return putProperty("Label1", text(RHS));
}
HRESULT PwmObject::get_Label2(BSTR* result) {
  return getAs("Label2", result, toText);
}
HRESULT PwmObject::put_Label2(BSTR RHS) {
  return putProperty("Label2", text(RHS));
}
HRESULT PwmObject::get_ShowSim(VARIANT_BOOL* result) {
  return getAs("ShowSim", result, toFlag);
}
HRESULT PwmObject::put_ShowSim(VARIANT_BOOL RHS) {
  return putProperty("ShowSim", flag(RHS));
}

HRESULT PwmObject::setupAPin(LONG* ArrayNumber, BSTR* PinName, LONG* PortAorB,
                             VARIANT_BOOL* MustUseThatPort, LONG* SamePortAsPinX, LONG* PinNum,
                             VARIANT_BOOL* MustUseThatPin, LONG* PinDirection,
                             VARIANT_BOOL* PinValue) {
  if (!ArrayNumber || !PinName || !PortAorB || !MustUseThatPort || !SamePortAsPinX || !PinNum ||
      !MustUseThatPin || !PinDirection || !PinValue)
    return E_POINTER;
  std::vector<zv::Variant> args{i4(*ArrayNumber),       text(*PinName),      i4(*PortAorB),
                                flag(*MustUseThatPort), i4(*SamePortAsPinX), i4(*PinNum),
                                flag(*MustUseThatPin),  i4(*PinDirection),   flag(*PinValue)};
  HRESULT hr = callMethod("setupAPin", args, nullptr);
  HRESULT stored = call(IID__PWM, [&] {
    *ArrayNumber = zv::toI4(args[0]);
    store(PinName, args[1]);
    *PortAorB = zv::toI4(args[2]);
    *MustUseThatPort = toFlag(args[3]);
    *SamePortAsPinX = zv::toI4(args[4]);
    *PinNum = zv::toI4(args[5]);
    *MustUseThatPin = toFlag(args[6]);
    *PinDirection = zv::toI4(args[7]);
    *PinValue = toFlag(args[8]);
  });
  return FAILED(hr) ? hr : stored;
}

} // namespace zvcom
