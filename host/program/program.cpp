#include "program.h"

#include <algorithm>
#include <cctype>
#include <stdexcept>

#include "platform/errors.h"
#include "platform/vbnum.h"
#include "target.h"

namespace zvhost {
namespace {

// Ends generation with the message the caller reports.
struct Refused : std::runtime_error {
  using std::runtime_error::runtime_error;
};

void check(const zv::Status& status, const std::string& operation) {
  if (!status.ok())
    throw Refused(operation + " failed: " + std::to_string(status.number) + " " +
                  status.description);
}

std::vector<std::string> split(const std::string& text) {
  std::vector<std::string> fields;
  size_t start = 0;
  for (size_t bar = text.find('|'); bar != std::string::npos; bar = text.find('|', start)) {
    fields.push_back(text.substr(start, bar - start));
    start = bar + 1;
  }
  fields.push_back(text.substr(start));
  return fields;
}

// The strings of an array Variant; a string Variant holds no macros.
std::vector<std::string> strings(const zv::Variant& v, const std::string& what) {
  std::vector<std::string> out;
  if (!v.isArray())
    return out;
  const zv::SafeArray& a = v.arr();
  for (int32_t i = a.lbound(); i <= a.ubound(); ++i) {
    if (a.at(i).type() != zv::VarType::BSTR)
      throw Refused(what + " holds a value that is not a string");
    out.push_back(a.at(i).rawStr());
  }
  return out;
}

bool isIdentifier(const std::string& s) {
  auto word = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; };
  return !s.empty() && !std::isdigit(static_cast<unsigned char>(s[0])) &&
         std::all_of(s.begin(), s.end(), word);
}

// Text with the placeholders filled from settings, as the component fills
// them, each line indented by one level when asked.
std::string filled(const Settings& settings, std::string text, bool indent) {
  for (const auto& [mark, value] :
       {std::pair{"%a", &settings.pr2}, std::pair{"%b", &settings.clockSource},
        std::pair{"%d", &settings.altPin}})
    // Past what was put in: a value holding a mark is not filled again.
    for (size_t at = text.find(mark); at != std::string::npos;
         at = text.find(mark, at + value->size()))
      text.replace(at, 2, *value);
  if (!indent)
    return text;
  std::string out;
  size_t start = 0;
  while (start < text.size()) {
    size_t end = text.find('\n', start);
    std::string line = text.substr(start, end == std::string::npos ? end : end - start);
    out += (line.empty() ? "" : "    ") + line + "\n";
    start = end == std::string::npos ? text.size() : end + 1;
  }
  return out;
}

std::string ended(std::string text) {
  if (!text.empty() && text.back() != '\n')
    text += '\n';
  return text;
}

struct Macro {
  std::string name;
  std::string returns;
  std::vector<std::pair<std::string, std::string>> params; // type, name
};

Macro describe(zv::IZelvorComponentV4& c, const std::vector<std::string>& names, int32_t id) {
  if (id < 0 || static_cast<size_t>(id) >= names.size())
    throw Refused("no macro " + std::to_string(id) + " in the component's table");
  std::vector<std::string> fields = split(names[static_cast<size_t>(id)]);
  Macro m{fields.size() > 1 ? fields[1] : "", fields.size() > 2 ? fields[2] : "void", {}};
  if (!isIdentifier(m.name))
    throw Refused("macro " + std::to_string(id) + " has no usable name: \"" + m.name + "\"");
  zv::Variant params;
  check(c.get_MacroParameters(id, params), "MacroParameters");
  for (const std::string& p : strings(params, "MacroParameters")) {
    std::vector<std::string> pf = split(p);
    std::string pname = pf.size() > 1 ? pf[1] : "";
    if (!isIdentifier(pname))
      throw Refused("macro " + m.name + " has a parameter without a usable name");
    m.params.emplace_back(pf.size() > 2 ? pf[2] : "char", pname);
  }
  return m;
}

std::string function(zv::IZelvorComponentV4& c, const Settings& settings, const Macro& m,
                     int32_t id) {
  std::string body;
  check(c.get_MacroCode(id, body), "MacroCode");
  std::string text = m.returns + " " + m.name + "(";
  for (size_t i = 0; i < m.params.size(); ++i)
    text += (i ? ", " : "") + m.params[i].first + " " + m.params[i].second;
  text += m.params.empty() ? "void)\n{\n" : ")\n{\n";
  return text + filled(settings, body, true) + "}\n";
}

std::string at(const std::string& where) {
  return where.empty() ? "" : " (" + where + ")";
}

// A prescaler outside the table is filled in as clk / 1 while the panel
// divides by it: the chip would do something else.
void requireClockSource(const Settings& s, const std::string& where) {
  for (int32_t known : {-1, 1, 8, 64, 256, 1024, -2, -3})
    if (s.prescaler == known)
      return;
  throw Refused("the prescaler is " + std::to_string(s.prescaler) + at(where) +
                ", which is no clock source of Timer1");
}

// The macros called, in the order of first call, and the lines of main that call them.
class Calls {
public:
  explicit Calls(zv::IZelvorComponentV4& c) : c_(c) {
    zv::Variant names;
    check(c.get_MacroNames(names), "MacroNames");
    names_ = strings(names, "MacroNames");
  }

  void call(MacroCall call, const std::string& comment = {}) {
    auto found = std::find(used.begin(), used.end(), call.macroId);
    if (found == used.end()) {
      macros.push_back(describe(c_, names_, call.macroId));
      used.push_back(call.macroId);
      found = used.end() - 1;
    }
    const Macro& m = macros[static_cast<size_t>(found - used.begin())];
    if (call.args.size() < m.params.size())
      throw Refused(m.name + " takes " + std::to_string(m.params.size()) + " arguments, not " +
                    std::to_string(call.args.size()) + at(call.where));
    call.args.resize(m.params.size());
    text += "    " + m.name + "(";
    for (size_t i = 0; i < call.args.size(); ++i)
      text += (i ? ", " : "") + std::to_string(call.args[i]);
    text += ");" + (comment.empty() ? "" : " /* " + comment + " */") + "\n";
  }

  // A change of period or clock source made outside the macros, as the period macro.
  void change(const SettingsChange& s) {
    requireClockSource(s.after, s.where);
    if (s.after.altPin != s.before.altPin || s.after.hertz != s.before.hertz)
      throw Refused("the " +
                    std::string(s.after.altPin != s.before.altPin ? "alternative pin" : "clock") +
                    " changed while the simulation ran" + at(s.where) +
                    ": one program cannot change it while it runs");
    if (s.after.pr2 == s.before.pr2 && s.after.clockSource == s.before.clockSource)
      return;
    const long pr2 = std::stol(s.after.pr2), code = std::stol(s.after.clockSource);
    if (pr2 < 0 || pr2 > 255)
      throw Refused("the period register became " + s.after.pr2 + " while the simulation ran" +
                    at(s.where) + ": the period macro takes 0 to 255");
    call({kChangePeriod, {pr2, code}, s.where}, "settings changed" + at(s.where));
  }

  std::vector<int32_t> used;
  std::vector<Macro> macros;
  std::string text;

private:
  static constexpr int32_t kChangePeriod = 3;
  zv::IZelvorComponentV4& c_;
  std::vector<std::string> names_;
};

// The comment that opens the program: what it was made from.
std::string header(zv::IZelvorComponentV4& c, const Simulation& sim, const Settings& start,
                   size_t calls) {
  std::string description;
  check(c.get_Description(description), "Description");
  std::string out = " * " + description + ": generated by zelvor-host from " +
                    std::to_string(calls) + " simulated macro calls.\n";
  std::string error;
  if (const std::optional<Target> t =
          sim.deviceFile.empty() ? std::nullopt : readTarget(sim.deviceFile, error))
    out += " * Device: " + t->name + " (avr-gcc -mmcu=" + t->mmcu + "), from " + t->file + ".\n";
  out += " * Clock: " + std::to_string(start.hertz) + " Hz. Settings: period register " +
         start.pr2 + ", clock source " + start.clockSource + ", alternative pin " + start.altPin +
         ".\n";
  for (size_t end = out.find("*/"); end != std::string::npos; end = out.find("*/", end))
    out.insert(end + 1, " "); // keep the comment closed
  out = "/*\n" + out + " */\n\n";
  if (start.hertz > 0)
    out += "#ifndef F_CPU\n#define F_CPU " + std::to_string(start.hertz) + "UL\n#endif\n\n";
  return out;
}

std::string program(const ProgramSource& source, const Simulation& sim) {
  if (!sim.refusal.empty())
    throw Refused(sim.refusal);
  zv::IZelvorComponentV4& c = source.host;
  const std::optional<Settings> now = sim.start ? sim.start : settingsOf(source);
  if (!now)
    throw Refused("MacroCodeOverride failed");
  const Settings& start = *now;
  requireClockSource(start, "");
  Calls calls(c);
  size_t count = 0;
  for (const SimulationStep& step : sim.steps) {
    if (const MacroCall* call = std::get_if<MacroCall>(&step)) {
      calls.call(*call);
      ++count;
    } else {
      calls.change(std::get<SettingsChange>(step));
    }
  }

  std::string defines, initialisation, interrupts;
  int32_t has = 0;
  check(c.get_DefinesCode(defines), "DefinesCode");
  check(c.get_HasInitialisation(has), "HasInitialisation");
  if (has)
    check(c.get_InitialisationCode(initialisation), "InitialisationCode");
  check(c.get_HasInterrupts(has), "HasInterrupts");
  if (has)
    check(c.get_InterruptCode(interrupts), "InterruptCode");

  std::string out = header(c, sim, start, count);
  out += ended(filled(start, defines, false)) + "\n";
  for (size_t i = 0; i < calls.macros.size(); ++i)
    out += function(c, start, calls.macros[i], calls.used[i]) + "\n";
  if (!interrupts.empty())
    out += ended(filled(start, interrupts, false)) + "\n";
  out += "int main(void)\n{\n" + filled(start, initialisation, true) + calls.text +
         "    for (;;) {}\n}\n";
  return out;
}

} // namespace

ProgramSource::ProgramSource(zv::ComponentObject& object)
    : host(object), property([&object](const std::string& name) {
        return object.publicInterface().getProperty(name);
      }) {}

ProgramSource::ProgramSource(zv::IZelvorComponentV4& h,
                             std::function<zv::Variant(const std::string&)> p)
    : host(h), property(std::move(p)) {}

std::optional<Settings> settingsOf(const ProgramSource& component) {
  std::string text = "%a|%b|%d";
  if (!component.host.MacroCodeOverride(text).ok())
    return std::nullopt;
  const std::vector<std::string> fields = split(text);
  if (fields.size() != 3)
    return std::nullopt;
  Settings s{fields[0], fields[1], fields[2]};
  try {
    s.hertz = zv::toI4(component.property("ClockSpeed"));
    s.prescaler = zv::toI4(component.property("Prescaler"));
  } catch (const zv::RuntimeError&) {
    // a component without these properties: the program names no clock
  }
  return s;
}

bool generateProgram(const ProgramSource& component, const Simulation& simulation,
                     std::string& text, std::string& error) {
  try {
    text = program(component, simulation);
    error.clear();
    return true;
  } catch (const Refused& e) {
    error = e.what();
  } catch (const zv::RuntimeError& e) {
    error = e.description();
  }
  return false;
}

bool generateProgram(const ProgramSource& component, const std::vector<MacroCall>& calls,
                     std::string& text, std::string& error) {
  Simulation simulation;
  simulation.steps.assign(calls.begin(), calls.end());
  return generateProgram(component, simulation, text, error);
}

} // namespace zvhost
