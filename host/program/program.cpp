#include "program.h"

#include <algorithm>
#include <cctype>
#include <stdexcept>

#include "platform/errors.h"

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

// Block text with its placeholders filled, each line indented by one level.
std::string filled(zv::IZelvorComponentV4& c, std::string text, bool indent) {
  check(c.MacroCodeOverride(text), "MacroCodeOverride");
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

std::string function(zv::IZelvorComponentV4& c, const Macro& m, int32_t id) {
  std::string body;
  check(c.get_MacroCode(id, body), "MacroCode");
  std::string text = m.returns + " " + m.name + "(";
  for (size_t i = 0; i < m.params.size(); ++i)
    text += (i ? ", " : "") + m.params[i].first + " " + m.params[i].second;
  text += m.params.empty() ? "void)\n{\n" : ")\n{\n";
  return text + filled(c, body, true) + "}\n";
}

std::string program(zv::IZelvorComponentV4& c, const std::vector<MacroCall>& calls) {
  std::string description;
  check(c.get_Description(description), "Description");
  for (size_t end = description.find("*/"); end != std::string::npos;
       end = description.find("*/", end))
    description.insert(end + 1, " "); // keep the header comment closed
  zv::Variant namesVariant;
  check(c.get_MacroNames(namesVariant), "MacroNames");
  const std::vector<std::string> names = strings(namesVariant, "MacroNames");

  std::vector<int32_t> used; // in the order of first call
  std::vector<Macro> macros;
  std::string calling;
  for (const MacroCall& call : calls) {
    auto at = std::find(used.begin(), used.end(), call.macroId);
    if (at == used.end()) {
      macros.push_back(describe(c, names, call.macroId));
      used.push_back(call.macroId);
      at = used.end() - 1;
    }
    const Macro& m = macros[static_cast<size_t>(at - used.begin())];
    if (call.args.size() != m.params.size())
      throw Refused(m.name + " takes " + std::to_string(m.params.size()) + " arguments, not " +
                    std::to_string(call.args.size()));
    calling += "    " + m.name + "(";
    for (size_t i = 0; i < call.args.size(); ++i)
      calling += (i ? ", " : "") + std::to_string(call.args[i]);
    calling += ");\n";
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

  std::string out = "/*\n * " + description + ": generated by zelvor-host from " +
                    std::to_string(calls.size()) + " simulated macro calls.\n */\n\n";
  out += ended(filled(c, defines, false)) + "\n";
  for (size_t i = 0; i < macros.size(); ++i)
    out += function(c, macros[i], used[i]) + "\n";
  if (!interrupts.empty())
    out += ended(filled(c, interrupts, false)) + "\n";
  out += "int main(void)\n{\n" + filled(c, initialisation, true) + calling + "    for (;;) {}\n}\n";
  return out;
}

} // namespace

bool generateProgram(zv::IZelvorComponentV4& component, const std::vector<MacroCall>& calls,
                     std::string& text, std::string& error) {
  try {
    text = program(component, calls);
    error.clear();
    return true;
  } catch (const Refused& e) {
    error = e.what();
  } catch (const zv::RuntimeError& e) {
    error = e.description();
  }
  return false;
}

} // namespace zvhost
