#pragma once

#include <ut/export.h>
#include <vcos/COSInterface.h>
#include <vcos/COSValue.h>
#include <vcos/Enumeration.h>

#include <cstddef>
#include <vector>

namespace vcos {

/// What the class system knows of one type: how a value is held, compared, copied, destroyed. The
/// order of the virtual operations is part of the interface.
class VGHOST_API COSDataType {
 public:
  virtual ~COSDataType();

  virtual const char* getDeclarationName() const = 0;
  /// For a type of a package, the last component of its dotted name.
  virtual const char* getName() const = 0;
  virtual const char* getDescription() const;                ///< null unless overridden
  virtual const char* getDetailedDescription() const;        ///< null unless overridden
  virtual const char* getPossibleValuesDescription() const;  ///< null unless overridden
  virtual bool isPossibleValuesFinite() const;               ///< false unless overridden
  /// Empty unless overridden. The elements belong to the caller, who destroys them with destroy().
  virtual Enumeration<COSValue> getPossibleValues() const;
  /// The type's own default word, which nobody else may destroy.
  virtual COSValue getDefaultValue() const = 0;
  /// 7: the word is a pointer to a value object, or null. 0: the word is the value.
  virtual int getStorageType() const = 0;
  virtual const char* getCategoryName() const = 0;
  virtual std::size_t getSizeInBits() const = 0;
  /// Throws a COSException for a null word where `allowNull` is false and words are pointers.
  virtual void checkValue(COSValue value, bool allowNull) const;
  virtual bool isEqual(COSValue a, COSValue b) const = 0;
  virtual int compare(COSValue a, COSValue b) const = 0;
  virtual std::size_t getValueSizeInBytes(COSValue value) const = 0;
  /// A separately owned copy.
  virtual COSValue copy(COSValue value) const = 0;
  virtual COSValue copyInternal(COSValue value) const;  ///< copy() unless overridden
  /// Destroys a value. Null is accepted.
  virtual void destroy(COSValue value) const = 0;
  virtual void destroyInternal(COSValue value) const;  ///< destroy() unless overridden
  virtual std::size_t getHashCode(const COSValue& value);
  virtual bool canContainInterfaces();  ///< false unless overridden
  virtual void getReference();          ///< nothing unless overridden
  virtual void releaseReference();      ///< nothing unless overridden
  /// The objects that a value refers to; none unless overridden.
  virtual std::vector<COSInterfacePtr> getInterfaces(COSValue value);
  virtual int getVatFormat();              ///< 0 unless overridden
  virtual bool isVORTILArrayType() const;  ///< false unless overridden
};

}  // namespace vcos
