#include "late_bound.h"

#include "platform/errors.h"

namespace zvhost {

zv::Status LateBoundComponent::run(OpKind kind, const char* name, Args& args, zv::Variant& result) {
  const Operation* op = findOperation(kind, name);
  if (!op)
    return {zv::errInvalidCall, zv::errorDescription(zv::errInvalidCall)};
  return handle_.hostOperation(*op, args, result);
}

zv::Status LateBoundComponent::get(const char* name, Args args, int32_t& result) {
  zv::Variant v;
  zv::Status status = run(OpKind::Get, name, args, v);
  if (status.ok())
    result = v.rawI4();
  return status;
}

zv::Status LateBoundComponent::get(const char* name, Args args, std::string& result) {
  zv::Variant v;
  zv::Status status = run(OpKind::Get, name, args, v);
  if (status.ok())
    result = v.rawStr();
  return status;
}

zv::Status LateBoundComponent::get(const char* name, Args args, zv::Variant& result) {
  return run(OpKind::Get, name, args, result);
}

zv::Status LateBoundComponent::put(const char* name, Args args) {
  zv::Variant none;
  return run(OpKind::Put, name, args, none);
}

zv::Status LateBoundComponent::call(const char* name, Args args) {
  zv::Variant none;
  return run(OpKind::Call, name, args, none);
}

zv::Status LateBoundComponent::SimReadPins(zv::Variant& pVal) {
  Args a{pVal};
  zv::Variant none;
  zv::Status status = run(OpKind::Call, "SimReadPins", a, none);
  pVal = a[0];
  return status;
}

zv::Status LateBoundComponent::SimMacroCall(int32_t id, const zv::Variant& params, int32_t& retVal,
                                            zv::Variant& affected, int32_t& cycles) {
  Args a{l(id), params, l(retVal), affected, l(cycles)};
  zv::Variant none;
  zv::Status status = run(OpKind::Call, "SimMacroCall", a, none);
  retVal = a[2].rawI4();
  affected = a[3];
  cycles = a[4].rawI4();
  return status;
}

zv::Status LateBoundComponent::SimMacroCall2(int32_t id, const zv::Variant& params,
                                             zv::Variant& retVal, zv::Variant& affected,
                                             int32_t& cycles) {
  Args a{l(id), params, retVal, affected, l(cycles)};
  zv::Variant none;
  zv::Status status = run(OpKind::Call, "SimMacroCall2", a, none);
  retVal = a[2];
  affected = a[3];
  cycles = a[4].rawI4();
  return status;
}

zv::Status LateBoundComponent::GeneralMethod(int32_t id, zv::Variant& pVal) {
  Args a{l(id), pVal};
  zv::Variant none;
  zv::Status status = run(OpKind::Call, "GeneralMethod", a, none);
  pVal = a[1];
  return status;
}

zv::Status LateBoundComponent::put_GeneralPut(int32_t id, zv::Variant& v) {
  Args a{l(id), v};
  zv::Variant none;
  zv::Status status = run(OpKind::Put, "GeneralPut", a, none);
  v = a[1];
  return status;
}

zv::Status LateBoundComponent::get_VNodeMsgRead(int32_t i, int32_t& size, zv::Variant& r) {
  Args a{l(i), l(size)};
  zv::Status status = run(OpKind::Get, "VNodeMsgRead", a, r);
  size = a[1].rawI4();
  return status;
}

zv::Status LateBoundComponent::put_VNodeMsgWrite(int32_t i, int32_t size, zv::Variant& msg) {
  Args a{l(i), l(size), msg};
  zv::Variant none;
  zv::Status status = run(OpKind::Put, "VNodeMsgWrite", a, none);
  msg = a[2];
  return status;
}

zv::Status LateBoundComponent::MacroCodeOverride(std::string& pVal) {
  Args a{s(pVal)};
  zv::Variant none;
  zv::Status status = run(OpKind::Call, "MacroCodeOverride", a, none);
  pVal = a[0].rawStr();
  return status;
}

ProgramSource LateBoundComponent::source() {
  return {*this, [this](const std::string& name) {
            zv::Variant value;
            const zv::Status status = handle_.publicGet(name, value);
            if (!status.ok())
              throw zv::RuntimeError(status.number, status.description);
            return value;
          }};
}

} // namespace zvhost
