#include "BuiltInTypes.h"

#include "ValueListEnumeration.h"

#include <ut/memory.h>
#include <vcos/exceptions.h>
#include <vx/array.h>
#include <vx/protected_array.h>

#include <cstring>

namespace vcos {
namespace {

/// What the host's own types have in common: a name, and the equality of words.
class BuiltInType : public COSDataType {
 public:
  BuiltInType(const char* name, std::size_t bytes) : name_(name), bytes_(bytes) {}

  const char* getDeclarationName() const override { return name_; }
  const char* getName() const override { return name_; }
  const char* getCategoryName() const override { return "Fundamental"; }
  COSValue getDefaultValue() const override { return {}; }
  std::size_t getSizeInBits() const override { return 8 * bytes_; }
  std::size_t getValueSizeInBytes(COSValue) const override { return bytes_; }
  int compare(COSValue a, COSValue b) const override { return isEqual(a, b) ? 0 : 2; }

 private:
  const char* name_;
  std::size_t bytes_;
};

enum class Reading { Integer, Floating, Logical };

/// A scalar, which the word holds itself.
class ScalarType final : public BuiltInType {
 public:
  ScalarType(const char* name, std::size_t bytes, Reading reading)
      : BuiltInType(name, bytes),
        reading_(reading) {}

  int getStorageType() const override { return 0; }
  bool isPossibleValuesFinite() const override { return reading_ == Reading::Logical; }
  Enumeration<COSValue> getPossibleValues() const override {
    if (reading_ != Reading::Logical) return {};
    return Enumeration<COSValue>(
        new ValueListEnumeration({COSValue::fromLogical(true), COSValue::fromLogical(false)}));
  }
  bool isEqual(COSValue a, COSValue b) const override {
    switch (reading_) {
      case Reading::Floating:
        return a.asDouble() == b.asDouble();
      case Reading::Logical:
        return a.asLogical() == b.asLogical();
      case Reading::Integer:
        break;
    }
    const auto unused = static_cast<unsigned>(64 - getSizeInBits());
    return a.bits() << unused == b.bits() << unused;
  }
  COSValue copy(COSValue value) const override { return value; }
  void destroy(COSValue) const override {}

 private:
  Reading reading_;
};

/// A C string on the host's heap, or null.
class StringType final : public BuiltInType {
 public:
  StringType() : BuiltInType("string", sizeof(char*)) {}

  int getStorageType() const override { return 7; }
  bool isEqual(COSValue a, COSValue b) const override {
    if (a.isNull() || b.isNull()) return a == b;
    return std::strcmp(a.asPointer<char>(), b.asPointer<char>()) == 0;
  }
  COSValue copy(COSValue value) const override {
    if (value.isNull()) return value;
    char* text = utStrdup(value.asPointer<char>());
    if (!text) throw COSOutOfMemoryException();
    return COSValue::fromPointer(text);
  }
  void destroy(COSValue value) const override { utFree(value.asPointer<char>()); }
};

/// A host array, or null. Values share their data and stand on no array list.
class AnyType final : public BuiltInType {
 public:
  AnyType() : BuiltInType("any", sizeof(vxArray*)) {}

  int getStorageType() const override { return 7; }
  bool isVORTILArrayType() const override { return true; }
  bool isEqual(COSValue a, COSValue b) const override { return a == b; }
  COSValue copy(COSValue value) const override {
    return COSValue::fromPointer(Vprotected_vxArray_helper::copy(value.asPointer<vxArray>()));
  }
  void destroy(COSValue value) const override { vxDestroyArray(value.asPointer<vxArray>()); }
};

/// A counted object, or null.
class HandleType final : public BuiltInType {
 public:
  HandleType() : BuiltInType("handle", sizeof(COSInterface*)) {}

  int getStorageType() const override { return 7; }
  bool canContainInterfaces() override { return true; }
  std::vector<COSInterfacePtr> getInterfaces(COSValue value) override {
    if (value.isNull()) return {};
    return {COSInterfacePtr(value.asPointer<COSInterface>())};
  }
  bool isEqual(COSValue a, COSValue b) const override { return a == b; }
  COSValue copy(COSValue value) const override {
    if (auto* object = value.asPointer<COSInterface>()) object->addRef();
    return value;
  }
  void destroy(COSValue value) const override {
    if (auto* object = value.asPointer<COSInterface>()) object->release();
  }
};

/// ("any", "string"): only char arrays have text.
class ArrayStringConversion final : public COSTypeConversion {
 public:
  COSValue to(COSValue text) const override {
    return COSValue::fromPointer(vxCreateString(text.asPointer<char>()));
  }
  COSValue from(COSValue array) const override {
    char* text = vxArrayToString(array.asPointer<vxArray>());
    if (!text) throw COSOutOfMemoryException();
    return COSValue::fromPointer(text);
  }
};

struct ScalarRow {
  const char* name;
  std::size_t bytes;
  Reading reading;
};

constexpr ScalarRow kScalars[] = {
    {"int8 scalar", 1, Reading::Integer},    {"int16 scalar", 2, Reading::Integer},
    {"int32 scalar", 4, Reading::Integer},   {"int64 scalar", 8, Reading::Integer},
    {"uint8 scalar", 1, Reading::Integer},   {"uint16 scalar", 2, Reading::Integer},
    {"uint32 scalar", 4, Reading::Integer},  {"uint64 scalar", 8, Reading::Integer},
    {"single scalar", 4, Reading::Floating}, {"double scalar", 8, Reading::Floating},
    {"logical scalar", 1, Reading::Logical}, {"int", 4, Reading::Integer},
    {"uint64_T", 8, Reading::Integer},       {"single", 4, Reading::Floating},
    {"float", 4, Reading::Floating},         {"double", 8, Reading::Floating},
    {"logical", 1, Reading::Logical},        {"bool", 1, Reading::Logical},
};

}  // namespace

std::vector<std::unique_ptr<COSDataType>> makeBuiltInTypes() {
  std::vector<std::unique_ptr<COSDataType>> types;
  for (const ScalarRow& row : kScalars)
    types.push_back(std::make_unique<ScalarType>(row.name, row.bytes, row.reading));
  types.push_back(std::make_unique<StringType>());
  types.push_back(std::make_unique<AnyType>());
  types.push_back(std::make_unique<HandleType>());
  return types;
}

std::unique_ptr<COSTypeConversion> makeArrayStringConversion() {
  return std::make_unique<ArrayStringConversion>();
}

}  // namespace vcos
