#include "json_out.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "lexer.h"

namespace zvhost {

namespace {

std::string shortestDouble(double d) {
  char buf[64];
  auto r = std::to_chars(buf, buf + sizeof buf, d);
  return std::string(buf, r.ptr);
}

Json scalarValue(const zv::Variant& v) {
  switch (v.type()) {
  case zv::VarType::Empty:
    return nullptr;
  case zv::VarType::I2:
    return v.rawI2();
  case zv::VarType::I4:
    return v.rawI4();
  case zv::VarType::UI1:
    return v.rawUI1();
  case zv::VarType::Bool:
    return v.rawBool();
  case zv::VarType::R4:
    return floatJson(v.rawR4());
  case zv::VarType::R8:
    return v.rawR8();
  case zv::VarType::BSTR:
    return v.rawStr();
  case zv::VarType::Variant:
    break;
  }
  return nullptr;
}

zv::VarType typeNamed(const std::string& name) {
  static const zv::VarType all[] = {zv::VarType::Empty, zv::VarType::I2,  zv::VarType::I4,
                                    zv::VarType::R4,    zv::VarType::R8,  zv::VarType::BSTR,
                                    zv::VarType::Bool,  zv::VarType::UI1, zv::VarType::Variant};
  for (zv::VarType t : all)
    if (name == zv::varTypeName(t))
      return t;
  throw ScriptError("unknown variant type: " + name);
}

zv::Variant scalarFromJson(zv::VarType t, const Json& v) {
  auto need = [&](bool ok) {
    if (!ok)
      throw ScriptError("bad value for " + std::string(zv::varTypeName(t)) + ": " + v.dump());
  };
  auto integer = [&](int64_t lo, int64_t hi) {
    need(v.is_number_integer() && v.get<int64_t>() >= lo && v.get<int64_t>() <= hi);
    return v.get<int64_t>();
  };
  switch (t) {
  case zv::VarType::Empty:
    return {};
  case zv::VarType::I2:
    return zv::Variant::i2(static_cast<int16_t>(integer(INT16_MIN, INT16_MAX)));
  case zv::VarType::I4:
    return zv::Variant::i4(static_cast<int32_t>(integer(INT32_MIN, INT32_MAX)));
  case zv::VarType::UI1:
    return zv::Variant::ui1(static_cast<uint8_t>(integer(0, 255)));
  case zv::VarType::Bool:
    if (v.is_boolean())
      return zv::Variant::boolean(v.get<bool>());
    return zv::Variant::boolean(integer(-1, 1) != 0);
  case zv::VarType::R4:
    need(v.is_number());
    return zv::Variant::r4(v.get<float>());
  case zv::VarType::R8:
    need(v.is_number());
    return zv::Variant::r8(v.get<double>());
  case zv::VarType::BSTR:
    need(v.is_string());
    return zv::Variant::str(v.get<std::string>());
  case zv::VarType::Variant:
    return variantFromJson(v);
  }
  return {};
}

void appendString(std::string& out, const std::string& s) {
  out += '"';
  for (size_t i = 0; i < s.size(); ++i) {
    const auto c = static_cast<unsigned char>(s[i]);
    switch (c) {
    case '"':
      out += "\\\"";
      continue;
    case '\\':
      out += "\\\\";
      continue;
    case '\n':
      out += "\\n";
      continue;
    case '\r':
      out += "\\r";
      continue;
    case '\t':
      out += "\\t";
      continue;
    default:
      break;
    }
    // Well-formed UTF-8 passes; any other byte is taken as Latin-1.
    size_t len = c < 0x80 ? 1 : (c >> 5) == 6 ? 2 : (c >> 4) == 14 ? 3 : (c >> 3) == 30 ? 4 : 0;
    bool valid = len > 0 && i + len <= s.size();
    for (size_t k = 1; valid && k < len; ++k)
      valid = (static_cast<unsigned char>(s[i + k]) >> 6) == 2;
    if (c < 0x20 || !valid) {
      char buf[8];
      std::snprintf(buf, sizeof buf, "\\u%04x", c);
      out += buf;
      continue;
    }
    out.append(s, i, len);
    i += len - 1;
  }
  out += '"';
}

void dumpTo(std::string& out, const Json& j) {
  switch (j.type()) {
  case Json::value_t::object: {
    out += '{';
    bool first = true;
    for (const auto& [key, value] : j.items()) {
      if (!first)
        out += ", ";
      first = false;
      appendString(out, key);
      out += ": ";
      dumpTo(out, value);
    }
    out += '}';
    return;
  }
  case Json::value_t::array: {
    out += '[';
    for (size_t i = 0; i < j.size(); ++i) {
      if (i)
        out += ", ";
      dumpTo(out, j[i]);
    }
    out += ']';
    return;
  }
  case Json::value_t::string:
    appendString(out, j.get_ref<const std::string&>());
    return;
  case Json::value_t::number_float: {
    const double d = j.get<double>();
    out += std::isfinite(d) ? shortestDouble(d) : "null";
    return;
  }
  default:
    out += j.dump();
  }
}

} // namespace

Json floatJson(float f) {
  if (!std::isfinite(f))
    return nullptr;
  char buf[64];
  auto r = std::to_chars(buf, buf + sizeof buf, f);
  // The double nearest the float's shortest text writes back as that text.
  return std::strtod(std::string(buf, r.ptr).c_str(), nullptr);
}

Json variantJson(const zv::Variant& v) {
  Json j;
  const std::string name = zv::varTypeName(v.type());
  if (!v.isArray()) {
    j["vt"] = name;
    if (v.type() != zv::VarType::Empty)
      j["v"] = scalarValue(v);
    return j;
  }
  const zv::SafeArray& a = v.arr();
  j["vt"] = name + "[]";
  j["lb"] = a.lbound();
  Json items = Json::array();
  for (int32_t i = a.lbound(); i <= a.ubound(); ++i)
    items.push_back(a.elementType() == zv::VarType::Variant ? variantJson(a.at(i))
                                                            : scalarValue(a.at(i)));
  j["v"] = std::move(items);
  return j;
}

Json plainJson(const zv::Variant& v) {
  if (!v.isArray())
    return scalarValue(v);
  const zv::SafeArray& a = v.arr();
  Json items = Json::array();
  for (int32_t i = a.lbound(); i <= a.ubound(); ++i)
    items.push_back(plainJson(a.at(i)));
  return items;
}

Json inspectedJson(const zv::Inspected& i) {
  switch (i.kind) {
  case zv::Inspected::Kind::Null:
    return nullptr;
  case zv::Inspected::Kind::Value:
    return plainJson(i.value);
  case zv::Inspected::Kind::List: {
    Json items = Json::array();
    for (const auto& item : i.items)
      items.push_back(inspectedJson(item));
    return items;
  }
  case zv::Inspected::Kind::Record: {
    Json obj = Json::object();
    for (const auto& [name, member] : i.members)
      obj[name] = inspectedJson(member);
    return obj;
  }
  }
  return nullptr;
}

Json bagJson(const zv::PropertyBag& bag) {
  Json obj = Json::object();
  for (const auto& [name, value] : bag.entries())
    obj[name] = variantJson(value);
  return obj;
}

std::string colorText(zv::Color c) {
  char buf[8];
  std::snprintf(buf, sizeof buf, "#%06X", static_cast<unsigned>(c & 0xFFFFFF));
  return buf;
}

Json drawOpJson(const zv::DrawOp& op) {
  Json j;
  switch (op.kind) {
  case zv::DrawOp::Kind::Cls:
    j["op"] = "cls";
    return j;
  case zv::DrawOp::Kind::Line:
  case zv::DrawOp::Kind::Box:
    j["op"] = op.kind == zv::DrawOp::Kind::Line ? "line" : "box";
    j["x1"] = floatJson(op.x1);
    j["y1"] = floatJson(op.y1);
    j["x2"] = floatJson(op.x2);
    j["y2"] = floatJson(op.y2);
    j["color"] = colorText(op.color);
    j["style"] = op.style;
    return j;
  case zv::DrawOp::Kind::Print:
    j["op"] = "print";
    j["x"] = floatJson(op.x1);
    j["y"] = floatJson(op.y1);
    j["text"] = op.text;
    j["color"] = colorText(op.color);
    return j;
  }
  return j;
}

zv::Variant variantFromJson(const Json& j) {
  if (!j.is_object() || !j.contains("vt") || !j["vt"].is_string())
    throw ScriptError("a variant needs {\"vt\": ...}: " + j.dump());
  std::string vt = j["vt"].get<std::string>();
  const bool isArray = vt.size() > 2 && vt.ends_with("[]");
  if (!isArray) {
    const zv::VarType t = typeNamed(vt);
    if (t == zv::VarType::Variant)
      throw ScriptError("VARIANT is an element type only");
    if (t != zv::VarType::Empty && !j.contains("v"))
      throw ScriptError("missing \"v\" in " + j.dump());
    return scalarFromJson(t, t == zv::VarType::Empty ? Json() : j["v"]);
  }
  const zv::VarType t = typeNamed(vt.substr(0, vt.size() - 2));
  const Json& items = j.contains("v") ? j["v"] : Json::array();
  if (!items.is_array())
    throw ScriptError("an array variant needs \"v\": [...]");
  const int64_t lb = j.contains("lb") && j["lb"].is_number_integer() ? j["lb"].get<int64_t>() : 0;
  if (lb < INT16_MIN || lb > INT16_MAX)
    throw ScriptError("array lower bound out of range");
  const auto lower = static_cast<int32_t>(lb);
  zv::SafeArray a(t, lower, lower + static_cast<int32_t>(items.size()) - 1);
  for (size_t i = 0; i < items.size(); ++i)
    a.set(lower + static_cast<int32_t>(i), scalarFromJson(t, items[i]));
  return zv::Variant::array(std::move(a));
}

zv::PropertyBag bagFromJson(const Json& j) {
  if (!j.is_object())
    throw ScriptError("a bag is a JSON object");
  zv::PropertyBag bag;
  for (const auto& [name, value] : j.items())
    bag.WriteProperty(name, variantFromJson(value));
  return bag;
}

std::string dumpJson(const Json& j) {
  std::string out;
  dumpTo(out, j);
  return out;
}

} // namespace zvhost
