#include "json_in.h"

#include <cmath>
#include <memory>
#include <unordered_map>
#include <vector>

namespace zvhost {

namespace {

// Builds the document from the parser's events. An object's members are
// appended in order; a repeated name replaces the earlier value in its place
// (as a DOM parse does), found by a scan while the object is small and
// through an index once it is not, so that no input costs more than linear time.
class Builder {
public:
  Json root;
  std::string error;

  bool null() { return put(nullptr); }
  bool boolean(bool b) { return put(b); }
  bool number_integer(Json::number_integer_t n) { return put(n); }
  bool number_unsigned(Json::number_unsigned_t n) { return put(n); }
  bool number_float(Json::number_float_t d, const std::string&) { return put(d); }
  bool string(std::string& s) { return put(std::move(s)); }
  bool binary(Json::binary_t&) { return false; }
  bool start_object(std::size_t) { return open(Json::object()); }
  bool start_array(std::size_t) { return open(Json::array()); }
  bool end_object() { return close(); }
  bool end_array() { return close(); }

  bool key(std::string& name) {
    Frame& f = frames_.back();
    auto& members = membersOf(*f.node);
    constexpr size_t kScanned = 16;
    if (!f.index && members.size() >= kScanned) {
      f.index = std::make_unique<std::unordered_map<std::string, size_t>>();
      for (size_t i = 0; i < members.size(); ++i)
        f.index->emplace(members[i].first, i);
    }
    if (f.index) {
      const auto [it, added] = f.index->try_emplace(name, members.size());
      f.slot = it->second;
      if (!added)
        return true;
    } else {
      for (f.slot = 0; f.slot < members.size(); ++f.slot)
        if (members[f.slot].first == name)
          return true;
    }
    members.emplace_back(std::move(name), nullptr);
    return true;
  }

  bool parse_error(std::size_t at, const std::string&, const nlohmann::detail::exception& e) {
    if (error.empty())
      error =
          (e.id == 406 ? "number out of range in JSON at character " : "bad JSON at character ") +
          std::to_string(at);
    return false;
  }

private:
  struct Frame {
    Json* node;
    size_t slot = 0; // the member a value goes to, in an object
    std::unique_ptr<std::unordered_map<std::string, size_t>> index;
  };

  // The object's members as the vector they are, without its own lookups.
  static Json::object_t::Container& membersOf(Json& object) {
    return object.get_ref<Json::object_t&>();
  }
  Json* place(Json&& value) {
    if (frames_.empty()) {
      root = std::move(value);
      return &root;
    }
    Frame& f = frames_.back();
    if (f.node->is_array()) {
      auto& items = f.node->get_ref<Json::array_t&>();
      items.push_back(std::move(value));
      return &items.back();
    }
    Json& member = membersOf(*f.node)[f.slot].second;
    member = std::move(value);
    return &member;
  }
  bool put(Json&& value) {
    place(std::move(value));
    return true;
  }
  bool open(Json&& container) {
    if (frames_.size() >= static_cast<size_t>(kMaxJsonDepth)) {
      error = "JSON nested deeper than " + std::to_string(kMaxJsonDepth);
      return false;
    }
    Json* node = place(std::move(container));
    frames_.push_back({node, 0, nullptr});
    return true;
  }
  bool close() {
    frames_.pop_back();
    return true;
  }

  std::vector<Frame> frames_;
};

zv::VarType typeNamed(const std::string& name) {
  static const zv::VarType all[] = {zv::VarType::Empty, zv::VarType::I2,  zv::VarType::I4,
                                    zv::VarType::R4,    zv::VarType::R8,  zv::VarType::BSTR,
                                    zv::VarType::Bool,  zv::VarType::UI1, zv::VarType::Variant};
  for (zv::VarType t : all)
    if (name == zv::varTypeName(t))
      return t;
  throw ScriptError("unknown variant type: " + name);
}

zv::Variant variantAt(const Json& j, int depth);

zv::Variant scalarFromJson(zv::VarType t, const Json& v, int depth) {
  auto need = [&](bool ok) {
    if (!ok)
      throw ScriptError("bad value for " + std::string(zv::varTypeName(t)) + ": " + dumpJson(v));
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
    // A double past the float's range would become an infinity.
    need(v.is_number() && std::isfinite(static_cast<float>(v.get<double>())));
    return zv::Variant::r4(v.get<float>());
  case zv::VarType::R8:
    need(v.is_number());
    return zv::Variant::r8(v.get<double>());
  case zv::VarType::BSTR:
    need(v.is_string());
    return zv::Variant::str(ansiText(v.get_ref<const std::string&>()));
  case zv::VarType::Variant:
    return variantAt(v, depth);
  }
  return {};
}

zv::Variant variantAt(const Json& j, int depth) {
  if (!j.is_object() || !j.contains("vt") || !j["vt"].is_string())
    throw ScriptError("a variant needs {\"vt\": ...}: " + dumpJson(j));
  const std::string& vt = j["vt"].get_ref<const std::string&>();
  const bool isArray = vt.size() > 2 && vt.ends_with("[]");
  if (!isArray) {
    const zv::VarType t = typeNamed(vt);
    if (t == zv::VarType::Variant)
      throw ScriptError("VARIANT is an element type only");
    if (t != zv::VarType::Empty && !j.contains("v"))
      throw ScriptError("missing \"v\" in " + dumpJson(j));
    return scalarFromJson(t, t == zv::VarType::Empty ? Json() : j["v"], depth);
  }
  if (depth >= kMaxArrayNesting)
    throw ScriptError("arrays nested deeper than " + std::to_string(kMaxArrayNesting));
  const zv::VarType t = typeNamed(vt.substr(0, vt.size() - 2));
  static const Json none = Json::array();
  const Json& items = j.contains("v") ? j["v"] : none;
  if (!items.is_array())
    throw ScriptError("an array variant needs \"v\": [...]");
  const int64_t lb = j.contains("lb") && j["lb"].is_number_integer() ? j["lb"].get<int64_t>() : 0;
  if (lb < INT16_MIN || lb > INT16_MAX)
    throw ScriptError("array lower bound out of range");
  const auto lower = static_cast<int32_t>(lb);
  zv::SafeArray a(t, lower, lower + static_cast<int32_t>(items.size()) - 1);
  for (size_t i = 0; i < items.size(); ++i)
    a.set(lower + static_cast<int32_t>(i), scalarFromJson(t, items[i], depth + 1));
  return zv::Variant::array(std::move(a));
}

} // namespace

Json parseJson(std::string_view text) {
  Builder builder;
  bool ok = false;
  try {
    ok = Json::sax_parse(text.begin(), text.end(), &builder);
  } catch (const Json::exception&) {
    ok = false;
  }
  if (!ok)
    throw ScriptError(builder.error.empty() ? "bad JSON" : builder.error);
  return std::move(builder.root);
}

zv::Variant variantFromJson(const Json& j) {
  return variantAt(j, 0);
}

zv::PropertyBag bagFromJson(const Json& j) {
  if (!j.is_object())
    throw ScriptError("a bag is a JSON object");
  zv::PropertyBag bag;
  for (const auto& [name, value] : j.items())
    bag.WriteProperty(ansiText(name), variantAt(value, 0));
  return bag;
}

} // namespace zvhost
