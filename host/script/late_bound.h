// The host interface over a component handle: each operation goes by its
// name through the handle, as a late-bound host calls it. Lets code written
// against IZelvorComponentV4 (the program generator) drive any backend.
#pragma once

#include "backend.h"
#include "host/program/program.h"
#include "zelvor/izelvor.h"

namespace zvhost {

class LateBoundComponent : public zv::IZelvorComponentV4 {
public:
  explicit LateBoundComponent(ComponentHandle& handle) : handle_(handle) {}

  // The component as programs are made from it; its public properties are
  // read by name through the handle.
  ProgramSource source();

  zv::Status get_MultipleAllowed(int32_t& r) override { return get("MultipleAllowed", {}, r); }
  zv::Status get_MacroNames(zv::Variant& r) override { return get("MacroNames", {}, r); }
  zv::Status get_MacroIsFunction(int32_t id, int32_t& r) override {
    return get("MacroIsFunction", {l(id)}, r);
  }
  zv::Status get_MacroParameters(int32_t id, zv::Variant& r) override {
    return get("MacroParameters", {l(id)}, r);
  }
  zv::Status get_MacroCode(int32_t id, std::string& r) override {
    return get("MacroCode", {l(id)}, r);
  }
  zv::Status get_IsSimulating(int32_t& r) override { return get("IsSimulating", {}, r); }
  zv::Status get_PinCount(int32_t& r) override { return get("PinCount", {}, r); }
  zv::Status get_HasInitialisation(int32_t& r) override { return get("HasInitialisation", {}, r); }
  zv::Status get_HasInterrupts(int32_t& r) override { return get("HasInterrupts", {}, r); }
  zv::Status get_HasExclusiveInts(int32_t& r) override { return get("HasExclusiveInts", {}, r); }
  zv::Status get_InitialisationCode(std::string& r) override {
    return get("InitialisationCode", {}, r);
  }
  zv::Status get_InterruptCode(std::string& r) override { return get("InterruptCode", {}, r); }
  zv::Status get_ExclusiveInterrupts(zv::Variant& r) override {
    return get("ExclusiveInterrupts", {}, r);
  }
  zv::Status get_PinName(int32_t id, std::string& r) override { return get("PinName", {l(id)}, r); }
  zv::Status get_DesiredPort(int32_t id, int32_t& r) override {
    return get("DesiredPort", {l(id)}, r);
  }
  zv::Status get_Direction(int32_t id, int32_t& r) override { return get("Direction", {l(id)}, r); }
  zv::Status get_PortMandatory(int32_t id, int32_t& r) override {
    return get("PortMandatory", {l(id)}, r);
  }
  zv::Status get_SamePortAsID(int32_t id, int32_t& r) override {
    return get("SamePortAsID", {l(id)}, r);
  }
  zv::Status get_Description(std::string& r) override { return get("Description", {}, r); }
  zv::Status get_DesiredBit(int32_t id, int32_t& r) override {
    return get("DesiredBit", {l(id)}, r);
  }
  zv::Status get_BitMandatory(int32_t id, int32_t& r) override {
    return get("BitMandatory", {l(id)}, r);
  }
  zv::Status get_Port(int32_t id, int32_t& r) override { return get("Port", {l(id)}, r); }
  zv::Status put_Port(int32_t id, int32_t v) override { return put("Port", {l(id), l(v)}); }
  zv::Status get_Bit(int32_t id, int32_t& r) override { return get("Bit", {l(id)}, r); }
  zv::Status put_Bit(int32_t id, int32_t v) override { return put("Bit", {l(id), l(v)}); }
  zv::Status get_ConnectedOK(int32_t& r) override { return get("ConnectedOK", {}, r); }
  zv::Status StartSimulation() override { return call("StartSimulation", {}); }
  zv::Status StopSimulation() override { return call("StopSimulation", {}); }
  zv::Status get_SimIODirection(int32_t id, int32_t& r) override {
    return get("SimIODirection", {l(id)}, r);
  }
  zv::Status SimReadPins(zv::Variant& pVal) override;
  zv::Status SimWritePins(const zv::Variant& v) override { return call("SimWritePins", {v}); }
  zv::Status SimMacroCall(int32_t id, const zv::Variant& params, int32_t& retVal,
                          zv::Variant& affected, int32_t& cycles) override;
  zv::Status KeyDown(int32_t id) override { return call("KeyDown", {l(id)}); }
  zv::Status KeyUp(int32_t id) override { return call("KeyUp", {l(id)}); }
  zv::Status get_SupportsKeys(int32_t& r) override { return get("SupportsKeys", {}, r); }
  zv::Status get_IsAnalogue(int32_t& r) override { return get("IsAnalogue", {}, r); }
  zv::Status get_MacroIsPrivate(int32_t id, int32_t& r) override {
    return get("MacroIsPrivate", {l(id)}, r);
  }
  zv::Status put_ClockSpeed(int32_t v) override { return put("ClockSpeed", {l(v)}); }
  zv::Status put_PICAnalogueBits(int32_t v) override { return put("PICAnalogueBits", {l(v)}); }
  zv::Status put_ADCCaptureCode(const std::string& v) override {
    return put("ADCCaptureCode", {s(v)});
  }
  zv::Status put_ADCReadHighCode(const std::string& v) override {
    return put("ADCReadHighCode", {s(v)});
  }
  zv::Status put_ADCReadLowCode(const std::string& v) override {
    return put("ADCReadLowCode", {s(v)});
  }
  zv::Status put_TargetController(const std::string& v) override {
    return put("TargetController", {s(v)});
  }
  zv::Status put_ADCReadIntCode(const std::string& v) override {
    return put("ADCReadIntCode", {s(v)});
  }
  zv::Status put_ZelvorVersion(int32_t v) override { return put("ZelvorVersion", {l(v)}); }
  zv::Status get_ComponentVersion(int32_t& r) override { return get("ComponentVersion", {}, r); }
  zv::Status GeneralMethod(int32_t id, zv::Variant& pVal) override;
  zv::Status put_GeneralPut(int32_t id, zv::Variant& v) override;
  zv::Status get_GeneralGet(int32_t id, zv::Variant& r) override {
    return get("GeneralGet", {l(id)}, r);
  }
  zv::Status put_ZvdFilename(const std::string& v) override { return put("ZvdFilename", {s(v)}); }
  zv::Status get_VNodeCount(int32_t& r) override { return get("VNodeCount", {}, r); }
  zv::Status get_VNodeProtocol(int32_t i, int32_t& r) override {
    return get("VNodeProtocol", {l(i)}, r);
  }
  zv::Status get_VNodeName(int32_t i, std::string& r) override {
    return get("VNodeName", {l(i)}, r);
  }
  zv::Status get_VNodeMsgRead(int32_t i, int32_t& size, zv::Variant& r) override;
  zv::Status put_VNodeMsgWrite(int32_t i, int32_t size, zv::Variant& msg) override;
  zv::Status MacroCodeOverride(std::string& pVal) override;
  zv::Status get_CodeFilename(std::string& r) override { return get("CodeFilename", {}, r); }
  zv::Status get_DefinesCode(std::string& r) override { return get("DefinesCode", {}, r); }
  zv::Status get_ReadCustomImages(int32_t id, std::string& r) override {
    return get("ReadCustomImages", {l(id)}, r);
  }
  zv::Status put_WriteCustomImages(int32_t id, const std::string& v) override {
    return put("WriteCustomImages", {l(id), s(v)});
  }
  zv::Status SimMacroCall2(int32_t id, const zv::Variant& params, zv::Variant& retVal,
                           zv::Variant& affected, int32_t& cycles) override;
  zv::Status Refresh() override { return call("Refresh", {}); }

private:
  using Args = std::vector<zv::Variant>;
  static zv::Variant l(int32_t v) { return zv::Variant::i4(v); }
  static zv::Variant s(const std::string& v) { return zv::Variant::str(v); }

  zv::Status run(OpKind kind, const char* name, Args& args, zv::Variant& result);
  zv::Status get(const char* name, Args args, int32_t& result);
  zv::Status get(const char* name, Args args, std::string& result);
  zv::Status get(const char* name, Args args, zv::Variant& result);
  zv::Status put(const char* name, Args args);
  zv::Status call(const char* name, Args args);

  ComponentHandle& handle_;
};

} // namespace zvhost
