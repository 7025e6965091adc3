// Variant and SafeArray: the Automation tagged value that crosses the host
// interface. A Variant owns its array; copying a Variant copies the array.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace zv {

enum class VarType : uint16_t {
  Empty = 0,
  I2 = 2,
  I4 = 3,
  R4 = 4,
  R8 = 5,
  BSTR = 8,
  Bool = 11,
  Variant = 12,
  UI1 = 17,
};
constexpr uint16_t kVtArray = 0x2000;

// Short names used in scripts and JSON: "I2", "BSTR", "VARIANT", ...
const char* varTypeName(VarType t);

class SafeArray;

class Variant {
public:
  Variant() = default; // empty
  Variant(const Variant& other);
  Variant& operator=(const Variant& other);
  Variant(Variant&&) noexcept = default;
  Variant& operator=(Variant&&) noexcept = default;
  ~Variant();

  static Variant i2(int16_t v);
  static Variant i4(int32_t v);
  static Variant ui1(uint8_t v);
  static Variant boolean(bool v); // stored as -1 or 0
  static Variant r4(float v);
  static Variant r8(double v);
  static Variant str(std::string v);
  static Variant array(SafeArray a);

  VarType type() const { return type_; } // element type for an array
  bool isArray() const { return array_ != nullptr; }
  bool isEmpty() const { return type_ == VarType::Empty && !array_; }
  uint16_t vt() const; // the tag, with kVtArray for an array

  // Raw payloads: the caller has checked type(). Conversions live in vbnum.h.
  int16_t rawI2() const { return static_cast<int16_t>(int_); }
  int32_t rawI4() const { return static_cast<int32_t>(int_); }
  uint8_t rawUI1() const { return static_cast<uint8_t>(int_); }
  int16_t rawBool() const { return static_cast<int16_t>(int_); }
  float rawR4() const { return static_cast<float>(real_); }
  double rawR8() const { return real_; }
  const std::string& rawStr() const { return str_; }
  const SafeArray& arr() const;
  SafeArray& arr();

  bool operator==(const Variant& other) const;

private:
  VarType type_ = VarType::Empty;
  int64_t int_ = 0;
  double real_ = 0.0;
  std::string str_;
  std::unique_ptr<SafeArray> array_;
};

// A one-dimensional array with bounds. Elements are Variants of the element
// type (any type for an array of Variant). No elements: lower 0, upper -1.
class SafeArray {
public:
  SafeArray(VarType elementType, int32_t lower, int32_t upper);
  static SafeArray none(VarType elementType) { return SafeArray(elementType, 0, -1); }

  VarType elementType() const { return elementType_; }
  int32_t lbound() const { return lower_; }
  int32_t ubound() const { return lower_ + static_cast<int32_t>(items_.size()) - 1; }
  size_t size() const { return items_.size(); }

  // Out of bounds raises error 9.
  const Variant& at(int32_t index) const;
  // Stores v converted to the element type (an array of Variant keeps v as it is).
  void set(int32_t index, const Variant& v);
  // The same, taking over v's payload: nested arrays are moved, not copied.
  void set(int32_t index, Variant&& v);

  bool operator==(const SafeArray& other) const;

private:
  VarType elementType_;
  int32_t lower_;
  std::vector<Variant> items_;
};

} // namespace zv
