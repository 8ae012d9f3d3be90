#pragma once

#include <gui_objects/AutoPtr.h>
#include <ut/export.h>
#include <vcos/COSDataType.h>
#include <vcos/COSNameID.h>
#include <vcos/COSTypeConversion.h>

#include <optional>
#include <string>
#include <utility>

namespace vcos {

using ArrayOwner = gui_objects::AutoPtr<vxArray, gui_objects::VxArrayDtor>;

/// Whether a type has nothing to hold: its values have 0 bytes.
VGHOST_API bool holdsNothing(const COSDataType& type, COSValue value);
/// A copy of a word as the class system makes it: by the data type's copy(). A type whose values
/// have 0 bytes has nothing to hold: its words are never copied or destroyed, and the copy is null.
VGHOST_API COSValue copyValue(const COSDataType& type, COSValue value);
/// Ends a word as the class system does: by destroy(), or not at all if its type has 0 bytes.
VGHOST_API void destroyValue(const COSDataType& type, COSValue value);

/// Owner of a value word, which it ends with destroyValue().
class VGHOST_API OwnedValue {
 public:
  OwnedValue(const COSDataType& type, COSValue value) noexcept : type_(&type), value_(value) {}
  ~OwnedValue() { destroyValue(*type_, value_); }
  OwnedValue(const OwnedValue&) = delete;
  OwnedValue& operator=(const OwnedValue&) = delete;

  COSValue get() const noexcept { return value_; }
  /// The word is the caller's from now on.
  COSValue release() noexcept { return std::exchange(value_, COSValue()); }

 private:
  const COSDataType* type_;
  COSValue value_;
};

/// How the class system moves values into and out of a type: the type and its conversions, looked
/// up once.
class VGHOST_API TypeAccess {
 public:
  /// By the full name ("vortil.graphics.datatype.on_off", "bool"); none if there is no such type.
  static std::optional<TypeAccess> find(COSNameID name);

  COSNameID name() const noexcept { return name_; }
  COSDataType& dataType() const noexcept { return *dataType_; }
  /// Null where the type has no such conversion.
  const COSTypeConversion* textConversion() const noexcept { return text_; }
  const COSTypeConversion* arrayConversion() const noexcept { return array_; }

  // Each of the following needs the conversion that it goes through.

  /// A new value from a text. The conversion is handed a copy on the host's heap, which is freed
  /// afterwards unless the value is that very copy: some types take the text over.
  COSValue fromText(const char* text) const;
  /// A new value from a host array, which stays the caller's; whether it may be null is for the
  /// type to say. A type of references to objects gets the object that a number stands for.
  COSValue fromArray(const vxArray* array) const;
  /// The text of a value, whether the conversion returns a constant, the word itself or a string to
  /// be freed; none where the type has no text form for it.
  std::optional<std::string> toText(COSValue value) const;
  /// The host array of a value; null where the type has none.
  ArrayOwner toArray(COSValue value) const;

 private:
  TypeAccess(COSNameID name, COSDataType& dataType);

  COSNameID name_;
  COSDataType* dataType_;
  const COSTypeConversion* text_;
  const COSTypeConversion* array_;
  bool isTextFromArray_;  ///< the text conversion is handed the array of a value
  bool isReference_;      ///< its conversion would count no reference for a number
};

}  // namespace vcos
