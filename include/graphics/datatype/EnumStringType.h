#pragma once

#include <graphics/datatype/VGTypedEnumStringType.h>

namespace graphics::datatype {

/// A table of names whose values are enumerators.
///
///     EnumStringType table("FillStyle");
///     table.addEnumValue("none", -1);
///     table.addEnumValue("hatched", 0);
///     bool isName = table.isValidEnumName(" Hat");  // true: it begins only one name
class VGDT_API EnumStringType : public VGTypedEnumStringType {
 public:
  explicit EnumStringType(const char* name);
  EnumStringType(const char* name, NameRows rows);

  /// As addElement(); a value may be negative.
  void addEnumValue(const char* name, int value);
};

}  // namespace graphics::datatype
