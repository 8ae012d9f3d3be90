#pragma once

#include <graphics/datatype/export.h>
#include <vcos/COSDataType.h>

#include <cstddef>
#include <vector>

namespace graphics::datatype {

/// Has what the types leave as the class system's own base has it: each operation calls that of the
/// base. The tables of virtual operations of some hundred types then refer to functions of this
/// library, instead of to symbols that are looked up for each of them when the library is loaded.
class VGDT_API InheritedOperations : public vcos::COSDataType {
 public:
  const char* getDescription() const override;
  const char* getDetailedDescription() const override;
  const char* getPossibleValuesDescription() const override;
  bool isPossibleValuesFinite() const override;
  vcos::Enumeration<vcos::COSValue> getPossibleValues() const override;
  void checkValue(vcos::COSValue value, bool allowNull) const override;
  vcos::COSValue copyInternal(vcos::COSValue value) const override;
  void destroyInternal(vcos::COSValue value) const override;
  std::size_t getHashCode(const vcos::COSValue& value) override;
  bool canContainInterfaces() override;
  void getReference() override;
  void releaseReference() override;
  std::vector<vcos::COSInterfacePtr> getInterfaces(vcos::COSValue value) override;
  int getVatFormat() override;
  bool isVORTILArrayType() const override;
};

/// What all data types have in common whatever their words are: names, sizes, the one instance. A
/// type whose words are no pointers to value objects derives from this class, and says itself what
/// its default is and how its words are compared, copied and destroyed:
///
///     class VGDT_API SecretDataType final : public NamedDataType<SecretDataType> {
///      public:
///       static constexpr const char* kDottedName = "vortil.graphics.datatype.Secret";
///       vcos::COSValue getDefaultValue() const override;
///       bool isEqual(vcos::COSValue a, vcos::COSValue b) const override;
///       vcos::COSValue copy(vcos::COSValue value) const override;
///       void destroy(vcos::COSValue value) const override;
///     };
///
/// The bodies are in src/PropertyDataType.ipp, for the one unit that defines the type.
template <class Type>
class VGDT_API NamedDataType : public InheritedOperations {
 public:
  /// The one instance, made at the first call and never destroyed.
  static vcos::COSDataType* getType();
  static const char* getDataTypeName();  ///< the dotted name

  const char* getDeclarationName() const override;  ///< as getName()
  const char* getName() const override;             ///< the last part of the dotted name
  const char* getCategoryName() const override;     ///< "Fundamental"
  int getStorageType() const override;              ///< 7
  /// What the type reports of the size of its values; not always the size of a value object.
  std::size_t getSizeInBits() const override;
  std::size_t getValueSizeInBytes(vcos::COSValue value) const override;
  /// 0 if isEqual(), otherwise 2: values have no order.
  int compare(vcos::COSValue a, vcos::COSValue b) const override;
};

/// The common shape of a data type whose words are pointers to value objects, or null. `Type` is
/// the data type's own class, which derives from this one and holds what departs from it:
///
///     class VGDT_API Rectangle2DataType final
///         : public PropertyDataType<Rectangle2DataType, gui_objects::Rectangle2d> {
///      public:
///       static constexpr const char* kDottedName = "vortil.graphics.datatype.Rectangle2";
///     };
///
/// `Value` can be copied and compared with ==. If it does not derive from HostAllocated, its
/// objects are the ordinary ones of new and delete. Whoever holds a word owns the object and
/// destroys it with destroy(); only the default word belongs to the data type. A failed allocation
/// is a vcos::COSOutOfMemoryException for a HostAllocated value.
///
/// The bodies are in src/PropertyDataType.ipp, for the one unit that defines the type.
template <class Type, class Value>
class VGDT_API PropertyDataType : public NamedDataType<Type> {
 public:
  using ValueClass = Value;

  /// Made at the first call; every later call returns the same word, which is nobody's to destroy.
  vcos::COSValue getDefaultValue() const override;
  /// Two nulls are equal, and a null equals no value.
  bool isEqual(vcos::COSValue a, vcos::COSValue b) const override;
  vcos::COSValue copy(vcos::COSValue value) const override;  ///< null for null
  void destroy(vcos::COSValue value) const override;         ///< nothing for null
};

}  // namespace graphics::datatype
