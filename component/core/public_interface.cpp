// The class's own public interface, reached by member name, and the object's
// fields by their names for inspection.
#include <utility>

#include "../../platform/vbnum.h"
#include "../core/pwm.h"

namespace zv {

namespace {

void expectArgs(const std::vector<Variant>& args, size_t n) {
  if (args.size() != n)
    raise(errWrongArguments);
}

constexpr const char* kProperties[] = {"iVersionMajor", "iVersionMinor", "Pr2",    "Prescaler",
                                       "PWM_No",        "ClockSpeed",    "MaxPwm", "UseAltPin",
                                       "HasAltPin",     "Label1",        "Label2", "ShowSim"};

} // namespace

Variant PWM::getProperty(const std::string& name) {
  if (name == "iVersionMajor")
    return Variant::i2(iVersionMajor);
  if (name == "iVersionMinor")
    return Variant::i2(iVersionMinor);
  if (name == "Pr2")
    return Variant::i2(Pr2());
  if (name == "Prescaler")
    return Variant::i2(Prescaler());
  if (name == "PWM_No")
    return Variant::i2(PWM_No());
  if (name == "ClockSpeed")
    return Variant::i4(ClockSpeed());
  if (name == "MaxPwm")
    return Variant::i4(MaxPwm());
  if (name == "UseAltPin")
    return Variant::boolean(UseAltPin() != 0);
  if (name == "HasAltPin")
    return Variant::i2(HasAltPin());
  if (name == "Label1")
    return Variant::str(Label1());
  if (name == "Label2")
    return Variant::str(Label2());
  if (name == "ShowSim")
    return Variant::boolean(ShowSim() != 0);
  // A member without a property of that name is invoked with no arguments.
  std::vector<Variant> none;
  return callMethod(name, none);
}

void PWM::putProperty(const std::string& name, const Variant& value) {
  if (name == "iVersionMajor")
    iVersionMajor = toI2(value);
  else if (name == "iVersionMinor")
    iVersionMinor = toI2(value);
  else if (name == "Pr2")
    setPr2(toI2(value));
  else if (name == "Prescaler")
    setPrescaler(toI2(value));
  else if (name == "PWM_No")
    setPWM_No(toI2(value));
  else if (name == "ClockSpeed")
    setClockSpeed(toI4(value));
  else if (name == "MaxPwm")
    setMaxPwm(toI4(value));
  else if (name == "UseAltPin")
    setUseAltPin(vbBool(toBool(value)));
  else if (name == "HasAltPin")
    setHasAltPin(toI2(value));
  else if (name == "Label1")
    setLabel1(toStr(value));
  else if (name == "Label2")
    setLabel2(toStr(value));
  else if (name == "ShowSim")
    setShowSim(vbBool(toBool(value)));
  else if (name == "GetIniKeyValue" || name == "GetCodeFromFile" || name == "Calc_Period_Freq" ||
           name == "setupAPin" || name.starts_with("IZelvorComponentV4_VNode"))
    raise(errWrongArguments);
  else
    raise(errNoSuchMember);
}

Variant PWM::callMethod(const std::string& name, std::vector<Variant>& args) {
  if (name == "GetIniKeyValue") {
    expectArgs(args, 3);
    std::string section = toStr(args[0]), key = toStr(args[1]), fallback = toStr(args[2]);
    Variant answer = Variant::str(GetIniKeyValue(section, key, fallback));
    args[0] = Variant::str(std::move(section));
    args[1] = Variant::str(std::move(key));
    args[2] = Variant::str(std::move(fallback));
    return answer;
  }
  if (name == "GetCodeFromFile") {
    expectArgs(args, 1);
    std::string codeName = toStr(args[0]);
    Variant answer = Variant::str(GetCodeFromFile(codeName));
    args[0] = Variant::str(std::move(codeName));
    return answer;
  }
  if (name == "Calc_Period_Freq") {
    expectArgs(args, 0);
    Calc_Period_Freq();
    return {};
  }
  if (name == "IZelvorComponentV4_VNodeCount") {
    expectArgs(args, 0);
    return Variant::i4(VNodeCount());
  }
  if (name == "IZelvorComponentV4_VNodeProtocol") {
    expectArgs(args, 1);
    return Variant::i4(VNodeProtocol(toI4(args[0])));
  }
  if (name == "IZelvorComponentV4_VNodeName") {
    expectArgs(args, 1);
    return Variant::str(VNodeName(toI4(args[0])));
  }
  if (name == "IZelvorComponentV4_VNodeMsgRead") {
    expectArgs(args, 2);
    int32_t size = toI4(args[1]);
    Variant answer = VNodeMsgRead(toI4(args[0]), size);
    args[1] = Variant::i4(size);
    return answer;
  }
  if (name == "IZelvorComponentV4_VNodeMsgWrite") {
    expectArgs(args, 3);
    VNodeMsgWrite(toI4(args[0]), toI4(args[1]), args[2]);
    return {};
  }
  if (name == "setupAPin") {
    expectArgs(args, 9);
    int32_t slot = toI4(args[0]);
    std::string pinName = toStr(args[1]);
    int32_t port = toI4(args[2]);
    int16_t portMandatory = vbBool(toBool(args[3]));
    int32_t samePortAs = toI4(args[4]);
    int32_t bit = toI4(args[5]);
    int16_t bitMandatory = vbBool(toBool(args[6]));
    int32_t direction = toI4(args[7]);
    int16_t value = vbBool(toBool(args[8]));
    setupAPin(slot, pinName, port, portMandatory, samePortAs, bit, bitMandatory, direction, value);
    args = {Variant::i4(slot),
            Variant::str(pinName),
            Variant::i4(port),
            Variant::boolean(portMandatory != 0),
            Variant::i4(samePortAs),
            Variant::i4(bit),
            Variant::boolean(bitMandatory != 0),
            Variant::i4(direction),
            Variant::boolean(value != 0)};
    return {};
  }
  // A property may be read as a method with no arguments.
  for (const char* property : kProperties)
    if (name == property) {
      expectArgs(args, 0);
      return getProperty(name);
    }
  raise(errNoSuchMember);
}

namespace {

Inspected value(Variant v) {
  return Inspected::of(std::move(v));
}
Inspected flag(int16_t b) {
  return value(Variant::boolean(b != 0));
}
Inspected text(const std::string& s) {
  return value(Variant::str(s));
}

template <class T, class Each> Inspected listOf(const VbArray<T>& a, Each each) {
  if (!a.allocated())
    return Inspected::null();
  Inspected list = Inspected::list();
  for (int32_t i = a.lbound(); i <= a.ubound(); ++i)
    list.items.push_back(each(a[i]));
  return list;
}

Inspected pinRecord(const std::unique_ptr<ZVPin>& pin) {
  if (!pin)
    return Inspected::null();
  Inspected r = Inspected::record();
  r.add("PinName", text(pin->PinName));
  r.add("Direction", value(Variant::i4(pin->Direction)));
  r.add("DesiredPort", value(Variant::i4(pin->DesiredPort)));
  r.add("PortMandatory", flag(pin->PortMandatory));
  r.add("SamePortAsID", value(Variant::i4(pin->SamePortAsID)));
  r.add("DesiredBit", value(Variant::i4(pin->DesiredBit)));
  r.add("BitMandatory", flag(pin->BitMandatory));
  r.add("SimValue", flag(pin->SimValue));
  r.add("AnalogueSim", value(Variant::r8(pin->AnalogueSim)));
  r.add("Port", value(Variant::i4(pin->Port)));
  r.add("Bit", value(Variant::i4(pin->Bit)));
  return r;
}

Inspected macroRecord(const std::unique_ptr<ZVMacro>& macro) {
  if (!macro)
    return Inspected::null();
  Inspected r = Inspected::record();
  r.add("MacroName", text(macro->MacroName));
  r.add("IsFunction", flag(macro->IsFunction));
  r.add("IsPrivate", flag(macro->IsPrivate));
  r.add("MacroParams", value(macro->MacroParams));
  return r;
}

} // namespace

Inspected PWM::inspect() const {
  auto i2 = [](int16_t v) { return value(Variant::i2(v)); };
  auto i4 = [](int32_t v) { return value(Variant::i4(v)); };
  auto r4 = [](float v) { return value(Variant::r4(v)); };
  Inspected s = Inspected::record();
  s.add("iVersionMajor", i2(iVersionMajor));
  s.add("iVersionMinor", i2(iVersionMinor));
  s.add("bSimulating", flag(bSimulating));
  s.add("bHasExclusiveInts", flag(bHasExclusiveInts));
  s.add("aExclusiveInts", listOf(aExclusiveInts, i4));
  s.add("bMultipleAllowed", flag(bMultipleAllowed));
  s.add("bIsAnalogue", flag(bIsAnalogue));
  s.add("sDescription", text(sDescription));
  s.add("bSupportsKeys", i4(bSupportsKeys));
  s.add("sInitialisationCode", text(sInitialisationCode));
  s.add("sInterruptCode", text(sInterruptCode));
  s.add("sTargetController", text(sTargetController));
  s.add("lClockSpeed", i4(lClockSpeed));
  s.add("sAdcCaptureCode", text(sAdcCaptureCode));
  s.add("sAdcReadHighCode", text(sAdcReadHighCode));
  s.add("sAdcReadLowCode", text(sAdcReadLowCode));
  s.add("lAnalogueBits", i4(lAnalogueBits));
  s.add("bShowSim", flag(bShowSim));
  s.add("aPins", listOf(aPins, pinRecord));
  s.add("lPinCount", i4(lPinCount));
  s.add("lMacroCount", i4(lMacroCount));
  s.add("aMacros", listOf(aMacros, macroRecord));
  s.add("iPwmNo", i2(iPwmNo));
  s.add("iPr2", i2(iPr2));
  s.add("iPrescaler", i2(iPrescaler));
  s.add("bUseAltPin", flag(bUseAltPin));
  s.add("sLabel1", text(sLabel1));
  s.add("sLabel2", text(sLabel2));
  s.add("iPwmCount", i2(iPwmCount));
  s.add("iHasAltPin", i2(iHasAltPin));
  s.add("iClockDivider", i2(iClockDivider));
  s.add("fPeriod", r4(fPeriod));
  s.add("fTickPeriod", r4(fTickPeriod));
  s.add("aChannelOn", listOf(aChannelOn, flag));
  s.add("aDuty", listOf(aDuty, i2));
  s.add("sCodeFilename", text(sCodeFilename));
  return s;
}

} // namespace zv
