#include "stream_format.h"

#include <cstdint>
#include <cstring>

namespace zvcom {

namespace {

constexpr char kMagic[8] = {'Z', 'V', 'P', 'W', 'M', 'B', 'A', 'G'};
constexpr uint16_t kVersion = 1;
// Far above any name or label the component holds; a corrupt length must not
// allocate gigabytes before the read fails.
constexpr uint32_t kMaxText = 1u << 20;

template <class T> void put(std::string& bytes, T value) {
  for (size_t i = 0; i < sizeof(T); ++i)
    bytes += static_cast<char>((static_cast<uint64_t>(value) >> (8 * i)) & 0xff);
}

template <class T> bool get(const ReadBytes& read, T& value) {
  unsigned char raw[sizeof(T)];
  if (!read(raw, sizeof raw))
    return false;
  uint64_t v = 0;
  for (size_t i = 0; i < sizeof(T); ++i)
    v |= static_cast<uint64_t>(raw[i]) << (8 * i);
  value = static_cast<T>(v);
  return true;
}

bool getText(const ReadBytes& read, uint32_t length, std::string& text) {
  if (length > kMaxText)
    return false;
  text.assign(length, '\0');
  return length == 0 || read(text.data(), length);
}

} // namespace

bool encodeBag(const zv::PropertyBag& bag, std::string& bytes) {
  bytes.assign(kMagic, sizeof kMagic);
  put<uint16_t>(bytes, kVersion);
  put<uint16_t>(bytes, static_cast<uint16_t>(bag.entries().size()));
  for (const auto& [name, value] : bag.entries()) {
    put<uint16_t>(bytes, static_cast<uint16_t>(name.size()));
    bytes += name;
    put<uint16_t>(bytes, static_cast<uint16_t>(value.type()));
    if (value.isArray())
      return false;
    switch (value.type()) {
    case zv::VarType::I2:
      put<int16_t>(bytes, value.rawI2());
      break;
    case zv::VarType::Bool:
      put<int16_t>(bytes, value.rawBool());
      break;
    case zv::VarType::I4:
      put<int32_t>(bytes, value.rawI4());
      break;
    case zv::VarType::BSTR:
      put<uint32_t>(bytes, static_cast<uint32_t>(value.rawStr().size()));
      bytes += value.rawStr();
      break;
    default:
      return false;
    }
  }
  return true;
}

bool decodeBag(const ReadBytes& read, zv::PropertyBag& out) {
  char magic[sizeof kMagic];
  uint16_t version = 0, count = 0;
  if (!read(magic, sizeof magic) || std::memcmp(magic, kMagic, sizeof magic) != 0 ||
      !get(read, version) || version != kVersion || !get(read, count))
    return false;
  for (uint16_t i = 0; i < count; ++i) {
    uint16_t nameLength = 0, type = 0;
    std::string name;
    if (!get(read, nameLength) || !getText(read, nameLength, name) || !get(read, type))
      return false;
    zv::Variant value;
    switch (static_cast<zv::VarType>(type)) {
    case zv::VarType::I2: {
      int16_t v;
      if (!get(read, v))
        return false;
      value = zv::Variant::i2(v);
      break;
    }
    case zv::VarType::Bool: {
      int16_t v;
      if (!get(read, v))
        return false;
      value = zv::Variant::boolean(v != 0);
      break;
    }
    case zv::VarType::I4: {
      int32_t v;
      if (!get(read, v))
        return false;
      value = zv::Variant::i4(v);
      break;
    }
    case zv::VarType::BSTR: {
      uint32_t length;
      std::string text;
      if (!get(read, length) || !getText(read, length, text))
        return false;
      value = zv::Variant::str(std::move(text));
      break;
    }
    default:
      return false;
    }
    out.WriteProperty(name, value);
  }
  return true;
}

} // namespace zvcom
