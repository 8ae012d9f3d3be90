#pragma once

#include <ut/export.h>
#include <vcos/COSDataType.h>
#include <vcos/COSInterface.h>
#include <vcos/COSNameID.h>
#include <vcos/COSTypeConversion.h>

namespace vcos {

/// Digs the data type out of a pointer that stands for one.
struct VGHOST_API COSDataTypePtrHelper {
  /// Null for a null pointer and for an object that stands for no data type.
  COSDataType* getObject(const COSInterfacePtr& type) const noexcept;
};

/// A data type as the class system hands it around.
class VGHOST_API COSDataTypePtr
    : public COSSpecializedInterfacePtr<COSDataType*, COSDataTypePtrHelper> {
 public:
  using COSSpecializedInterfacePtr::COSSpecializedInterfacePtr;
  /// The full name of the type; "" for a null pointer.
  COSNameID getID() const;
};

/// All types and conversions, by name. The host's own types are there from the start: "any" (a
/// host array), "string", "bool", "handle", and the scalars ("int32 scalar", "double", ...).
class VGHOST_API COSTypeRepository {
 public:
  /// A null pointer if there is no such type and the package of that name cannot load it.
  static COSDataTypePtr getType(COSNameID name);
  /// The same without asking the package.
  static COSDataTypePtr findType(COSNameID name);
  /// Makes a type known. The repository does not own it. A COSException if the name is taken.
  static void addType(COSNameID name, COSDataType* type);
  /// Forgets a type. Pointers to it that are still around return null from now on.
  static void removeType(COSNameID name);

  /// Takes the conversion over for the life of the process, also when it throws. A COSException if
  /// the pair has a conversion already.
  static void addConversion(COSNameID outside, COSNameID inner, COSTypeConversion* conversion);
  /// One hash lookup. Null if there is none.
  static COSTypeConversion* getConversion(COSNameID outside, COSNameID inner);
};

}  // namespace vcos
