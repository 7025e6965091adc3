#include "json_out.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "platform/ansi_text.h"

namespace zvhost {

namespace {

std::string shortestDouble(double d) {
  if (d == 0 && std::signbit(d))
    return "-0.0"; // "-0" would read back as the integer 0
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
    return textJson(v.rawStr());
  case zv::VarType::Variant:
    break;
  }
  return nullptr;
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
    if (c < 0x20) {
      char buf[8];
      std::snprintf(buf, sizeof buf, "\\u%04x", c);
      out += buf;
      continue;
    }
    // Well-formed UTF-8 passes; any other byte (script text that is not
    // UTF-8) is shown as its Windows-1252 character, so the line stays JSON.
    char32_t character = 0;
    const size_t len = zv::decodeUtf8(std::string_view(s).substr(i), character);
    if (len == 0) {
      zv::appendUtf8FromAnsi(out, s.substr(i, 1));
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

Json textJson(std::string_view ansi) {
  return zv::utf8FromAnsi(ansi);
}

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
  // The bag's names are distinct already: appended without a search each.
  auto& members = obj.get_ref<Json::object_t&>();
  members.reserve(bag.entries().size());
  for (const auto& [name, value] : bag.entries())
    members.emplace_back(zv::utf8FromAnsi(name), variantJson(value));
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
    j["text"] = textJson(op.text);
    j["color"] = colorText(op.color);
    return j;
  }
  return j;
}

std::string dumpJson(const Json& j) {
  std::string out;
  dumpTo(out, j);
  return out;
}

} // namespace zvhost
