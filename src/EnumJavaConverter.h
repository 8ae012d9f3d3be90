#pragma once

#include <graphics/datatype/AbstractJavaConverter.h>
#include <graphics/datatype/VGTypedEnumStringType.h>
#include <vcos/COSTypeConversion.h>

#include <atomic>
#include <string>

namespace graphics::datatype {

/// Between the words of an enumerated type and a com.lindgrove.util.CategoricalVariable, which has
/// all names of the type, their numbers and their labels. What comes back counts by its label.
///
/// Errors: as AbstractJavaConverter; what the text conversion of the type raises.
class EnumJavaConverter final : public vcos::JavaTypeConversion, public JavaEnvironment {
 public:
  /// The table, which is the data type as well, has to outlive the conversion. `typeName` is the
  /// dotted name of the type.
  EnumJavaConverter(const VGTypedEnumStringType* table, const char* typeName);

  /// Null for null.
  vcos::COSValue to(vcos::COSValue value) const override;
  vcos::COSValue from(vcos::COSValue object) const override;
  const char* getJavaDeclarationName() override;
  const char* getNativeTypeName() const { return nativeTypeName_.c_str(); }

 private:
  const VGTypedEnumStringType* table_;
  std::string nativeTypeName_;
  std::string typeName_;
  mutable std::atomic<const vcos::COSTypeConversion*> stringConversion_ = nullptr;
};

}  // namespace graphics::datatype
