#include "variant.h"

#include "errors.h"
#include "vbnum.h"

namespace zv {

const char* varTypeName(VarType t) {
  switch (t) {
  case VarType::Empty:
    return "EMPTY";
  case VarType::I2:
    return "I2";
  case VarType::I4:
    return "I4";
  case VarType::R4:
    return "R4";
  case VarType::R8:
    return "R8";
  case VarType::BSTR:
    return "BSTR";
  case VarType::Bool:
    return "BOOL";
  case VarType::Variant:
    return "VARIANT";
  case VarType::UI1:
    return "UI1";
  }
  return "?";
}

Variant::Variant(const Variant& other)
    : type_(other.type_), int_(other.int_), real_(other.real_), str_(other.str_),
      array_(other.array_ ? std::make_unique<SafeArray>(*other.array_) : nullptr) {}

Variant& Variant::operator=(const Variant& other) {
  if (this != &other) {
    Variant copy(other);
    *this = std::move(copy);
  }
  return *this;
}

Variant::~Variant() = default;

Variant Variant::i2(int16_t v) {
  Variant r;
  r.type_ = VarType::I2;
  r.int_ = v;
  return r;
}
Variant Variant::i4(int32_t v) {
  Variant r;
  r.type_ = VarType::I4;
  r.int_ = v;
  return r;
}
Variant Variant::ui1(uint8_t v) {
  Variant r;
  r.type_ = VarType::UI1;
  r.int_ = v;
  return r;
}
Variant Variant::boolean(bool v) {
  Variant r;
  r.type_ = VarType::Bool;
  r.int_ = v ? -1 : 0;
  return r;
}
Variant Variant::r4(float v) {
  Variant r;
  r.type_ = VarType::R4;
  r.real_ = v;
  return r;
}
Variant Variant::r8(double v) {
  Variant r;
  r.type_ = VarType::R8;
  r.real_ = v;
  return r;
}
Variant Variant::str(std::string v) {
  Variant r;
  r.type_ = VarType::BSTR;
  r.str_ = std::move(v);
  return r;
}
Variant Variant::array(SafeArray a) {
  Variant r;
  r.type_ = a.elementType();
  r.array_ = std::make_unique<SafeArray>(std::move(a));
  return r;
}

uint16_t Variant::vt() const {
  return static_cast<uint16_t>(static_cast<uint16_t>(type_) | (array_ ? kVtArray : 0));
}

const SafeArray& Variant::arr() const {
  if (!array_)
    raise(errTypeMismatch);
  return *array_;
}

SafeArray& Variant::arr() {
  if (!array_)
    raise(errTypeMismatch);
  return *array_;
}

bool Variant::operator==(const Variant& other) const {
  if (type_ != other.type_ || isArray() != other.isArray())
    return false;
  if (array_)
    return *array_ == *other.array_;
  switch (type_) {
  case VarType::R4:
  case VarType::R8:
    return real_ == other.real_;
  case VarType::BSTR:
    return str_ == other.str_;
  default:
    return int_ == other.int_;
  }
}

SafeArray::SafeArray(VarType elementType, int32_t lower, int32_t upper)
    : elementType_(elementType), lower_(lower) {
  if (upper >= lower) {
    Variant init = elementType == VarType::Variant ? Variant() : convertTo(Variant(), elementType);
    items_.assign(static_cast<size_t>(static_cast<int64_t>(upper) - lower + 1), init);
  }
}

const Variant& SafeArray::at(int32_t index) const {
  if (index < lower_ || index > ubound())
    raise(errSubscript);
  return items_[static_cast<size_t>(index - lower_)];
}

void SafeArray::set(int32_t index, const Variant& v) {
  if (index < lower_ || index > ubound())
    raise(errSubscript);
  items_[static_cast<size_t>(index - lower_)] =
      elementType_ == VarType::Variant ? v : convertTo(v, elementType_);
}

void SafeArray::set(int32_t index, Variant&& v) {
  if (elementType_ != VarType::Variant)
    return set(index, static_cast<const Variant&>(v));
  if (index < lower_ || index > ubound())
    raise(errSubscript);
  items_[static_cast<size_t>(index - lower_)] = std::move(v);
}

bool SafeArray::operator==(const SafeArray& other) const {
  return elementType_ == other.elementType_ && lower_ == other.lower_ && items_ == other.items_;
}

} // namespace zv
