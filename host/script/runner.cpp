#include "runner.h"

#include <charconv>
#include <iostream>

#include "file_io.h"
#include "json_in.h"
#include "platform/funnel.h"
#include "platform/vbnum.h"

namespace zvhost {

namespace {

std::string trimmed(const std::string& line) {
  const auto blank = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; };
  size_t from = 0, to = line.size();
  while (from < to && blank(line[from]))
    ++from;
  while (to > from && blank(line[to - 1]))
    --to;
  return line.substr(from, to - from);
}

const char* typeName(ParamType t) {
  switch (t) {
  case ParamType::Long:
    return "Long";
  case ParamType::String:
    return "String";
  case ParamType::Variant:
    return "Variant";
  }
  return "?";
}

// The usual conversion of a literal to a parameter's type; a failure is the
// script's fault, not the component's.
zv::Variant convertArgument(const zv::Variant& v, const ParamSpec& p) {
  try {
    switch (p.type) {
    case ParamType::Long:
      return zv::Variant::i4(zv::toI4(v));
    case ParamType::String:
      return zv::Variant::str(zv::toStr(v));
    case ParamType::Variant:
      return v;
    }
  } catch (const zv::RuntimeError& e) {
    throw ScriptError("cannot convert the value of " + p.name + " to " + typeName(p.type) + ": " +
                      e.description());
  }
  return v;
}

zv::Variant defaultArgument(ParamType t) {
  switch (t) {
  case ParamType::Long:
    return zv::Variant::i4(0);
  case ParamType::String:
    return zv::Variant::str("");
  case ParamType::Variant:
    break;
  }
  return {};
}

std::string readBagFile(const std::string& path) {
  std::string text, error;
  if (!readRegularFile(path, text, error))
    throw ScriptError(error);
  return text;
}

} // namespace

void RecordingMessageBoxes::show(const std::string& text, const std::string& title) {
  if (outside && !inCommand)
    outside->show(text, title);
  else
    texts.push_back(text);
}

int wordNumber(const std::string& word) {
  int n = 0;
  auto r = std::from_chars(word.data(), word.data() + word.size(), n);
  if (r.ec != std::errc() || r.ptr != word.data() + word.size())
    throw ScriptError("not a number: " + word);
  return n;
}

Runner::Runner(Backend& backend, zv::MessageBoxService* outside) : backend_(backend) {
  boxes_.outside = outside;
}

Runner::~Runner() {
  page_.reset();
  components_.clear();
}

int Runner::run(std::istream& in, std::ostream& out) {
  std::string line;
  int number = 0;
  while (std::getline(in, line)) {
    ++number;
    if (std::optional<Json> answer = execute(number, line))
      out << dumpJson(*answer) << std::endl; // flushed: a driver may be waiting on it
  }
  return scriptErrors_ ? 2 : 0;
}

std::optional<Json> Runner::execute(int lineNumber, const std::string& line) {
  const std::string cmd = trimmed(line);
  if (cmd.empty() || cmd[0] == '#')
    return std::nullopt;
  Json answer;
  answer["line"] = lineNumber;
  answer["cmd"] = cmd;
  boxes_.texts.clear();
  // The boxes of this command are answered here, whoever answers the others.
  boxes_.inCommand = true;
  struct EndCommand {
    bool& inCommand;
    ~EndCommand() { inCommand = false; }
  } endCommand{boxes_.inCommand};
  where_ = "line " + std::to_string(lineNumber);
  struct Observe {
    Runner& runner;
    ~Observe() {
      for (Slot& slot : runner.components_)
        slot.recorder.observe(slot.late->source(), runner.where_);
    }
  } observe{*this};
  Reply reply;
  try {
    LineScanner scan(cmd);
    const std::string command = scan.word();
    reply = dispatch(command, scan);
  } catch (const ScriptError& e) {
    scriptErrors_ = true;
    answer["ok"] = false;
    answer["script_error"] = e.what();
    return answer;
  } catch (...) {
    // A model call outside the host interface (a page's control, an
    // inspection) fails the same way a host operation does.
    reply = {};
    reply.status = zv::statusOfCurrentException();
  }
  answer["ok"] = reply.status.ok();
  if (reply.result)
    answer["result"] = std::move(*reply.result);
  if (reply.byref)
    answer["byref"] = std::move(*reply.byref);
  Json messages = Json::array();
  for (const std::string& text : boxes_.texts)
    messages.push_back(textJson(text));
  answer["messages"] = std::move(messages);
  if (!reply.status.ok())
    answer["error"] = {{"number", reply.status.number},
                       {"description", textJson(reply.status.description)}};
  return answer;
}

ComponentHandle* Runner::current() {
  return current_ == 0 ? nullptr : components_[current_ - 1].object.get();
}

Runner::Slot& Runner::currentSlot() {
  if (current_ == 0)
    throw ScriptError("no component: create one first");
  return components_[current_ - 1];
}

Runner::Reply Runner::dispatch(const std::string& command, LineScanner& scan) {
  auto noMore = [&] {
    if (!scan.atEnd())
      throw ScriptError("unexpected argument: " + scan.rest());
  };
  Reply r;
  if (command == "create")
    return create(scan);
  if (command == "use")
    return use(scan);
  if (command == "init" || command == "paint" || command == "resize") {
    noMore();
    ComponentHandle& c = component();
    r.status = command == "init" ? c.initProperties() : command == "paint" ? c.paint() : c.resize();
    return r;
  }
  if (command == "readprops")
    return readProps(scan);
  if (command == "writeprops")
    return writeProps(scan);
  if (command == "get")
    return hostOperation(OpKind::Get, scan);
  if (command == "put")
    return hostOperation(OpKind::Put, scan);
  if (command == "call")
    return hostOperation(OpKind::Call, scan);
  if (command == "pwm")
    return publicInterface(scan);
  if (command == "page")
    return pageCommand(scan);
  if (command == "state") {
    noMore();
    return state();
  }
  if (command == "panel") {
    noMore();
    return panel();
  }
  if (command == "canvas")
    return canvas(scan);
  if (command == "render")
    return render(scan);
  if (command == "program")
    return program(scan);
  if (command == "verify")
    return verify(scan);
  if (command == "vcd")
    return vcd(scan);
  throw ScriptError("unknown command: " + command);
}

Runner::Reply Runner::create(LineScanner& scan) {
  std::string folder, baseName;
  if (!scan.atEnd())
    folder = scan.word();
  if (!scan.atEnd())
    baseName = scan.word();
  if (!scan.atEnd())
    throw ScriptError("unexpected argument: " + scan.rest());
  Reply r;
  std::unique_ptr<ComponentHandle> made =
      backend_.createComponent(folder, baseName, r.status, &boxes_);
  if (!made) {
    if (r.status.ok())
      r.status = {zv::errInvalidCall, zv::errorDescription(zv::errInvalidCall)};
    return r;
  }
  auto late = std::make_unique<LateBoundComponent>(*made);
  components_.push_back({std::move(made), std::move(late), {}, {}});
  current_ = components_.size();
  r.result = Json{{"component", current_}};
  return r;
}

Runner::Reply Runner::use(LineScanner& scan) {
  const int n = wordNumber(scan.word());
  if (!scan.atEnd())
    throw ScriptError("unexpected argument: " + scan.rest());
  if (n < 1 || static_cast<size_t>(n) > components_.size())
    throw ScriptError("no component " + std::to_string(n));
  current_ = static_cast<size_t>(n);
  return {};
}

Runner::Reply Runner::readProps(LineScanner& scan) {
  ComponentHandle& c = component();
  const Json source = scan.peek() == '{' ? parseJson(scan.rest()) : [&] {
    const std::string path = scan.word();
    if (!scan.atEnd())
      throw ScriptError("unexpected argument: " + scan.rest());
    return parseJson(readBagFile(path));
  }();
  zv::PropertyBag bag = bagFromJson(source);
  Reply r;
  r.status = c.readProperties(bag);
  return r;
}

Runner::Reply Runner::writeProps(LineScanner& scan) {
  ComponentHandle& c = component();
  std::string path;
  if (!scan.atEnd())
    path = scan.word();
  if (!scan.atEnd())
    throw ScriptError("unexpected argument: " + scan.rest());
  zv::PropertyBag bag;
  Reply r;
  r.status = c.writeProperties(bag);
  r.result = bagJson(bag);
  std::string error;
  if (!path.empty() && !replaceFile(path, dumpJson(*r.result) + '\n', error))
    throw ScriptError(error);
  return r;
}

Runner::Reply Runner::hostOperation(OpKind kind, LineScanner& scan) {
  const std::string name = scan.word();
  const Operation* op = findOperation(kind, name);
  if (!op)
    throw ScriptError("unknown operation: " + name);
  ComponentHandle& c = component();
  std::vector<zv::Variant> args;
  while (!scan.atEnd()) {
    if (args.size() == op->params.size())
      throw ScriptError("too many arguments for " + name);
    args.push_back(convertArgument(scan.value(), op->params[args.size()]));
  }
  // Missing trailing in/out arguments enter as their type's zero.
  for (size_t i = args.size(); i < op->params.size(); ++i) {
    if (!op->params[i].inOut || kind == OpKind::Put)
      throw ScriptError("missing argument " + op->params[i].name + " of " + name);
    args.push_back(defaultArgument(op->params[i].type));
  }
  Reply r;
  zv::Variant result;
  r.status = c.hostOperation(*op, args, result);
  if (op->result && r.status.ok())
    r.result = variantJson(result);
  Json byref = Json::object();
  for (size_t i = 0; i < op->params.size(); ++i)
    if (op->params[i].inOut)
      byref[op->params[i].name] = variantJson(args[i]);
  r.byref = std::move(byref);
  if (r.status.ok())
    record(name, args);
  return r;
}

void Runner::record(const std::string& op, const std::vector<zv::Variant>& args) {
  Slot& slot = currentSlot();
  if (op == "StartSimulation")
    slot.recorder.started(slot.late->source());
  else if (op == "SimMacroCall")
    slot.recorder.called(slot.late->source(), args[0].rawI4(), args[1], where_);
  else if (op == "ZvdFilename")
    slot.recorder.deviceFile(zv::toStr(args[0]), where_);
}

SimulationRecorder* Runner::recorderOf(const zv::ComponentObject* component) {
  for (Slot& slot : components_)
    if (component && slot.object->inProcess() == component)
      return &slot.recorder;
  return nullptr;
}

Runner::Reply Runner::publicInterface(LineScanner& scan) {
  const std::string verb = scan.word();
  const std::string name = scan.word();
  ComponentHandle& pwm = component();
  Reply r;
  if (verb == "get") {
    if (!scan.atEnd())
      throw ScriptError("unexpected argument: " + scan.rest());
    zv::Variant v;
    r.status = pwm.publicGet(name, v);
    if (r.status.ok())
      r.result = variantJson(v);
    return r;
  }
  if (verb == "put") {
    zv::Variant value = scan.value();
    if (!scan.atEnd())
      throw ScriptError("unexpected argument: " + scan.rest());
    r.status = pwm.publicPut(name, value);
    return r;
  }
  if (verb != "call")
    throw ScriptError("pwm takes get, put or call, not " + verb);
  std::vector<zv::Variant> args;
  while (!scan.atEnd())
    args.push_back(scan.value());
  zv::Variant v;
  r.status = pwm.publicCall(name, args, v);
  if (r.status.ok())
    r.result = variantJson(v);
  const std::vector<std::string> names = publicMethodParams(name);
  Json byref = Json::object();
  for (size_t i = 0; i < args.size(); ++i)
    byref[i < names.size() ? names[i] : std::to_string(i)] = variantJson(args[i]);
  r.byref = std::move(byref);
  return r;
}

} // namespace zvhost
