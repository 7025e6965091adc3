// verify: the current component's program built for its device and run on a
// simulated chip, its pins set beside the panel; vcd: the pins of the last
// verify as a Value Change Dump.
#include <unistd.h>

#include <filesystem>

#include "host/verify/vcd.h"
#include "runner.h"

namespace zvhost {

namespace {

Json channelJson(const ChannelCheck& c, const PinTrace& pin) {
  return {{"channel", c.channel},
          {"pin", pin.name},
          {"panel", {{"period", c.panelPeriod}, {"duty", c.panelDuty}}},
          {"chip",
           {{"period", c.chipPeriod},
            {"duty", c.chipDuty},
            {"periodUs", c.periodUs},
            {"highUs", c.highUs},
            {"dutyPercent", c.dutyPercent},
            {"edges", pin.changes.size()}}},
          {"same", c.same}};
}

} // namespace

Runner::Reply Runner::verify(LineScanner& scan) {
  Slot& slot = currentSlot();
  std::string dir = scan.atEnd() ? std::string() : scan.word();
  if (!scan.atEnd())
    throw ScriptError("unexpected argument: " + scan.rest());
  if (dir.empty())
    dir = (std::filesystem::temp_directory_path() /
           ("zelvor-verify-" + std::to_string(getpid()) + "-" + std::to_string(current_)))
              .string();
  Verification v;
  std::string error;
  if (!verifyOnChip(*slot.object, slot.recorder.simulation(), dir, v, error))
    throw ScriptError("verify: " + error);
  Json channels = Json::array();
  for (int i = 0; i < 2; ++i)
    channels.push_back(channelJson(v.channels[i], v.pins[i]));
  Reply r;
  r.result = Json{
      {"same", v.same},
      {"device", v.target.name},
      {"mmcu", v.target.mmcu},
      {"clock", v.hertz},
      {"cycles", v.cycles},
      {"from", v.from},
      {"files", {{"c", v.built.source}, {"elf", v.built.elf}, {"hex", v.built.hex}}},
      {"size", v.built.sizeReport},
      {"channels", std::move(channels)},
      {"ms", {{"generate", v.generateMs}, {"compile", v.compileMs}, {"simulate", v.simulateMs}}}};
  slot.verified = std::move(v);
  return r;
}

Runner::Reply Runner::vcd(LineScanner& scan) {
  Slot& slot = currentSlot();
  const std::string path = scan.word();
  if (!scan.atEnd())
    throw ScriptError("unexpected argument: " + scan.rest());
  if (!slot.verified)
    throw ScriptError("vcd: no verify has run for this component");
  std::string error;
  if (!writeVcd(*slot.verified, path, error))
    throw ScriptError("vcd: " + error);
  Reply r;
  r.result = Json{
      {"edges", slot.verified->pins[0].changes.size() + slot.verified->pins[1].changes.size()}};
  return r;
}

} // namespace zvhost
