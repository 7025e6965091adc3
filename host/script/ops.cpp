#include "ops.h"

#include <tuple>
#include <type_traits>
#include <utility>

namespace zvhost {

namespace {

using I = zv::IZelvorComponentV4;

template <class T> struct Slot;
template <> struct Slot<int32_t> {
  static constexpr ParamType type = ParamType::Long;
  static int32_t in(const zv::Variant& v) { return v.rawI4(); }
  static zv::Variant out(int32_t v) { return zv::Variant::i4(v); }
};
template <> struct Slot<std::string> {
  static constexpr ParamType type = ParamType::String;
  static std::string in(const zv::Variant& v) { return v.rawStr(); }
  static zv::Variant out(const std::string& v) { return zv::Variant::str(v); }
};
template <> struct Slot<zv::Variant> {
  static constexpr ParamType type = ParamType::Variant;
  static zv::Variant in(const zv::Variant& v) { return v; }
  static zv::Variant out(const zv::Variant& v) { return v; }
};

template <class P> constexpr bool isInOut() {
  return std::is_lvalue_reference_v<P> && !std::is_const_v<std::remove_reference_t<P>>;
}

// Builds the entry of one operation from its member function: the types and
// directions come from the signature, the names from the list. A get's last
// parameter is its result.
template <class... P>
Operation op(OpKind kind, const char* name, zv::Status (I::*fn)(P...),
             std::vector<const char*> names) {
  using Storage = std::tuple<std::decay_t<P>...>;
  constexpr size_t total = sizeof...(P);
  const size_t nArgs = kind == OpKind::Get ? total - 1 : total;
  Operation entry{kind, name, {}, std::nullopt, {}};
  constexpr ParamType types[] = {Slot<std::decay_t<P>>::type..., ParamType::Variant};
  constexpr bool inOut[] = {isInOut<P>()..., false};
  for (size_t i = 0; i < nArgs; ++i)
    entry.params.push_back({i < names.size() ? names[i] : "?", types[i], inOut[i]});
  if constexpr (total > 0) // a get has its result at least
    if (kind == OpKind::Get)
      entry.result = types[total - 1];
  entry.invoke = [fn, nArgs](I& component, std::vector<zv::Variant>& args, zv::Variant& result) {
    Storage s;
    [&]<size_t... K>(std::index_sequence<K...>) {
      ((K < nArgs ? void(std::get<K>(s) = Slot<std::decay_t<P>>::in(args[K])) : void()), ...);
    }
    (std::index_sequence_for<P...>{});
    zv::Status status = std::apply([&](auto&... a) { return (component.*fn)(a...); }, s);
    [&]<size_t... K>(std::index_sequence<K...>) {
      ((K < nArgs && isInOut<P>() ? void(args[K] = Slot<std::decay_t<P>>::out(std::get<K>(s)))
                                  : void()),
       ...);
      ((K == nArgs && nArgs < total ? void(result = Slot<std::decay_t<P>>::out(std::get<K>(s)))
                                    : void()),
       ...);
    }
    (std::index_sequence_for<P...>{});
    return status;
  };
  return entry;
}

constexpr OpKind G = OpKind::Get;
constexpr OpKind P = OpKind::Put;
constexpr OpKind C = OpKind::Call;

std::vector<Operation> buildTable() {
  return {
      op(G, "MultipleAllowed", &I::get_MultipleAllowed, {}),
      op(G, "MacroNames", &I::get_MacroNames, {}),
      op(G, "MacroIsFunction", &I::get_MacroIsFunction, {"lMacroID"}),
      op(G, "MacroParameters", &I::get_MacroParameters, {"lMacroID"}),
      op(G, "MacroCode", &I::get_MacroCode, {"lMacroID"}),
      op(G, "IsSimulating", &I::get_IsSimulating, {}),
      op(G, "PinCount", &I::get_PinCount, {}),
      op(G, "HasInitialisation", &I::get_HasInitialisation, {}),
      op(G, "HasInterrupts", &I::get_HasInterrupts, {}),
      op(G, "HasExclusiveInts", &I::get_HasExclusiveInts, {}),
      op(G, "InitialisationCode", &I::get_InitialisationCode, {}),
      op(G, "InterruptCode", &I::get_InterruptCode, {}),
      op(G, "ExclusiveInterrupts", &I::get_ExclusiveInterrupts, {}),
      op(G, "PinName", &I::get_PinName, {"PinID"}),
      op(G, "DesiredPort", &I::get_DesiredPort, {"PinID"}),
      op(G, "Direction", &I::get_Direction, {"PinID"}),
      op(G, "PortMandatory", &I::get_PortMandatory, {"PinID"}),
      op(G, "SamePortAsID", &I::get_SamePortAsID, {"PinID"}),
      op(G, "Description", &I::get_Description, {}),
      op(G, "DesiredBit", &I::get_DesiredBit, {"PinID"}),
      op(G, "BitMandatory", &I::get_BitMandatory, {"PinID"}),
      op(G, "Port", &I::get_Port, {"PinID"}),
      op(P, "Port", &I::put_Port, {"PinID", "RHS"}),
      op(G, "Bit", &I::get_Bit, {"PinID"}),
      op(P, "Bit", &I::put_Bit, {"PinID", "RHS"}),
      op(G, "ConnectedOK", &I::get_ConnectedOK, {}),
      op(C, "StartSimulation", &I::StartSimulation, {}),
      op(C, "StopSimulation", &I::StopSimulation, {}),
      op(G, "SimIODirection", &I::get_SimIODirection, {"PinID"}),
      op(C, "SimReadPins", &I::SimReadPins, {"pVal"}),
      op(C, "SimWritePins", &I::SimWritePins, {"newVal"}),
      op(C, "SimMacroCall", &I::SimMacroCall,
         {"lMacroID", "vParams", "pRetVal", "pvAffected", "pCycles"}),
      op(C, "KeyDown", &I::KeyDown, {"lElementID"}),
      op(C, "KeyUp", &I::KeyUp, {"lElementID"}),
      op(G, "SupportsKeys", &I::get_SupportsKeys, {}),
      op(G, "IsAnalogue", &I::get_IsAnalogue, {}),
      op(G, "MacroIsPrivate", &I::get_MacroIsPrivate, {"lMacroID"}),
      op(P, "ClockSpeed", &I::put_ClockSpeed, {"RHS"}),
      op(P, "PICAnalogueBits", &I::put_PICAnalogueBits, {"RHS"}),
      op(P, "ADCCaptureCode", &I::put_ADCCaptureCode, {"RHS"}),
      op(P, "ADCReadHighCode", &I::put_ADCReadHighCode, {"RHS"}),
      op(P, "ADCReadLowCode", &I::put_ADCReadLowCode, {"RHS"}),
      op(P, "TargetController", &I::put_TargetController, {"RHS"}),
      op(P, "ADCReadIntCode", &I::put_ADCReadIntCode, {"RHS"}),
      op(P, "ZelvorVersion", &I::put_ZelvorVersion, {"RHS"}),
      op(G, "ComponentVersion", &I::get_ComponentVersion, {}),
      op(C, "GeneralMethod", &I::GeneralMethod, {"lID", "pVal"}),
      op(P, "GeneralPut", &I::put_GeneralPut, {"lID", "RHS"}),
      op(G, "GeneralGet", &I::get_GeneralGet, {"lID"}),
      op(P, "ZvdFilename", &I::put_ZvdFilename, {"RHS"}),
      op(G, "VNodeCount", &I::get_VNodeCount, {}),
      op(G, "VNodeProtocol", &I::get_VNodeProtocol, {"lIdx"}),
      op(G, "VNodeName", &I::get_VNodeName, {"lIdx"}),
      op(G, "VNodeMsgRead", &I::get_VNodeMsgRead, {"lIdx", "lSize"}),
      op(P, "VNodeMsgWrite", &I::put_VNodeMsgWrite, {"lIdx", "lSize", "msg"}),
      op(C, "MacroCodeOverride", &I::MacroCodeOverride, {"pVal"}),
      op(G, "CodeFilename", &I::get_CodeFilename, {}),
      op(G, "DefinesCode", &I::get_DefinesCode, {}),
      op(G, "ReadCustomImages", &I::get_ReadCustomImages, {"lID"}),
      op(P, "WriteCustomImages", &I::put_WriteCustomImages, {"lID", "RHS"}),
      op(C, "SimMacroCall2", &I::SimMacroCall2,
         {"lMacroID", "vParams", "pRetVal", "pvAffected", "pCycles"}),
      op(C, "Refresh", &I::Refresh, {}),
  };
}

} // namespace

const std::vector<Operation>& hostOperations() {
  static const std::vector<Operation> table = buildTable();
  return table;
}

const Operation* findOperation(OpKind kind, std::string_view name) {
  for (const Operation& op : hostOperations())
    if (op.kind == kind && op.name == name)
      return &op;
  return nullptr;
}

std::vector<std::string> publicMethodParams(std::string_view name) {
  if (name == "GetIniKeyValue")
    return {"lpApplicationName", "lpKeyName", "lpDefault"};
  if (name == "GetCodeFromFile")
    return {"lpCodeName"};
  if (name == "setupAPin")
    return {"ArrayNumber", "PinName",        "PortAorB",     "MustUseThatPort", "SamePortAsPinX",
            "PinNum",      "MustUseThatPin", "PinDirection", "PinValue"};
  if (name == "IZelvorComponentV4_VNodeProtocol" || name == "IZelvorComponentV4_VNodeName")
    return {"lIdx"};
  if (name == "IZelvorComponentV4_VNodeMsgRead")
    return {"lIdx", "lSize"};
  if (name == "IZelvorComponentV4_VNodeMsgWrite")
    return {"lIdx", "lSize", "msg"};
  return {};
}

} // namespace zvhost
