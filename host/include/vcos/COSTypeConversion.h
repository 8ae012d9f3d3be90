#pragma once

#include <ut/export.h>
#include <vcos/COSNameID.h>
#include <vcos/COSValue.h>

namespace vcos {

/// A conversion between an outside representation and an inner type, registered under the pair of
/// their names. The outside name "any" stands for a host array (a vxArray* in the word), "string"
/// for a C string, "double" for the bits of a double.
///
/// A result is new and belongs to the caller; an argument stays the caller's.
class VGHOST_API COSTypeConversion {
 public:
  virtual ~COSTypeConversion();
  /// From the inner type to the outside representation.
  virtual COSValue to(COSValue value) const = 0;
  /// From the outside representation to the inner type.
  virtual COSValue from(COSValue value) const = 0;
};

/// A conversion between an inner type and a Java object (a jobject in the word).
class VGHOST_API JavaTypeConversion {
 public:
  virtual ~JavaTypeConversion();
  virtual COSValue to(COSValue value) const = 0;
  virtual COSValue from(COSValue object) const = 0;
  /// The dotted name of the Java class.
  virtual const char* getJavaDeclarationName() = 0;

  /// Takes the conversion over for the life of the process, also when it throws. One that is static
  /// is never destroyed: its address says whether it is part of a loaded program or library. A
  /// COSException if the name has a conversion already; the host has those of "any" (VLArrayRef)
  /// and "handle scalar" (UDDObject) itself.
  static void addConversion(COSNameID inner, JavaTypeConversion* conversion);
  /// Null if there is none.
  static JavaTypeConversion* getConversion(COSNameID inner);
};

}  // namespace vcos
