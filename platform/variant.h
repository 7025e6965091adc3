/// @file
/// Variant and SafeArray: the Automation tagged value that crosses the host
/// interface. A Variant owns its array; copying a Variant copies the array.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace zv {

/// The type tag of a Variant, or the element type of an array.
enum class VarType : uint16_t {
  Empty = 0,    ///< no value
  I2 = 2,       ///< 16-bit signed integer
  I4 = 3,       ///< 32-bit signed integer (Long)
  R4 = 4,       ///< 32-bit float
  R8 = 5,       ///< 64-bit float
  BSTR = 8,     ///< string
  Bool = 11,    ///< 16-bit Boolean: -1 true, 0 false
  Variant = 12, ///< any type (array elements only)
  UI1 = 17,     ///< 8-bit unsigned integer (Byte)
};
/// The flag that the tag of an array carries beside its element type.
constexpr uint16_t kVtArray = 0x2000;

/// Short names used in scripts and JSON: "I2", "BSTR", "VARIANT", ...
const char* varTypeName(VarType t);

class SafeArray;

/// A tagged value: empty, a number, a string or an array (SafeArray).
class Variant {
public:
  Variant() = default;                              ///< An empty Variant.
  Variant(const Variant& other);                    ///< Copies other, its array included.
  Variant& operator=(const Variant& other);         ///< Copies other, its array included.
  Variant(Variant&&) noexcept = default;            ///< Takes other's value and array.
  Variant& operator=(Variant&&) noexcept = default; ///< Takes other's value and array.
  ~Variant();                                       ///< Frees the array it owns.

  static Variant i2(int16_t v);      ///< A 16-bit integer.
  static Variant i4(int32_t v);      ///< A 32-bit integer.
  static Variant ui1(uint8_t v);     ///< A Byte.
  static Variant boolean(bool v);    ///< A Boolean, stored as -1 or 0.
  static Variant r4(float v);        ///< A 32-bit float.
  static Variant r8(double v);       ///< A 64-bit float.
  static Variant str(std::string v); ///< A string.
  static Variant array(SafeArray a); ///< An array; the Variant owns it.

  /// The type tag; for an array, its element type.
  VarType type() const { return type_; }
  /// Whether it holds an array.
  bool isArray() const { return array_ != nullptr; }
  /// Whether it holds no value at all.
  bool isEmpty() const { return type_ == VarType::Empty && !array_; }
  /// The full tag, with kVtArray for an array.
  uint16_t vt() const;

  /// @name Raw payloads
  /// The caller has checked type(); the conversions live in vbnum.h.
  ///@{
  int16_t rawI2() const { return static_cast<int16_t>(int_); }   ///< as I2
  int32_t rawI4() const { return static_cast<int32_t>(int_); }   ///< as I4
  uint8_t rawUI1() const { return static_cast<uint8_t>(int_); }  ///< as UI1
  int16_t rawBool() const { return static_cast<int16_t>(int_); } ///< as Bool: -1 or 0
  float rawR4() const { return static_cast<float>(real_); }      ///< as R4
  double rawR8() const { return real_; }                         ///< as R8
  const std::string& rawStr() const { return str_; }             ///< as BSTR
  const SafeArray& arr() const;                                  ///< the array, if isArray()
  SafeArray& arr();                                              ///< the array, if isArray()
  ///@}

  /// Same tag and same value (arrays element by element).
  bool operator==(const Variant& other) const;

private:
  VarType type_ = VarType::Empty;
  int64_t int_ = 0;
  double real_ = 0.0;
  std::string str_;
  std::unique_ptr<SafeArray> array_;
};

/// A one-dimensional array with bounds. Elements are Variants of the element
/// type (any type for an array of Variant). No elements: lower 0, upper -1.
class SafeArray {
public:
  /// An array with bounds lower to upper, its elements empty.
  SafeArray(VarType elementType, int32_t lower, int32_t upper);
  /// An array without elements.
  static SafeArray none(VarType elementType) { return SafeArray(elementType, 0, -1); }

  VarType elementType() const { return elementType_; } ///< the type of every element
  int32_t lbound() const { return lower_; }            ///< the lower bound
  /// The upper bound; lbound() - 1 without elements.
  int32_t ubound() const { return lower_ + static_cast<int32_t>(items_.size()) - 1; }
  size_t size() const { return items_.size(); } ///< the number of elements

  /// The element at index; out of bounds raises errSubscript.
  const Variant& at(int32_t index) const;
  /// Stores v converted to the element type (an array of Variant keeps v as
  /// it is); out of bounds raises errSubscript, a failed conversion its error.
  void set(int32_t index, const Variant& v);
  /// The same, taking over v's payload: nested arrays are moved, not copied.
  void set(int32_t index, Variant&& v);

  /// Same element type, same bounds, equal elements.
  bool operator==(const SafeArray& other) const;

private:
  VarType elementType_;
  int32_t lower_;
  std::vector<Variant> items_;
};

} // namespace zv
