#pragma once

#include <graphics/datatype/AbstractJavaConverter.h>
#include <graphics/datatype/HostAllocated.h>
#include <graphics/datatype/PropertyDataType.h>
#include <vcos/COSClass.h>
#include <vcos/COSTypeConversion.h>
#include <vx/array.h>

namespace graphics::datatype {

/// A reference to one object, or to none, held as a host array in the form of the host's type
/// "any".
///
///     HandleOrEmpty parent(vcos::COSInterfacePtr(figure));
///     parent.getCOSReference();   // the figure
///     parent.setHandle(nullptr);  // refers to nothing
///
/// Errors: "VORTIL:datatypes:handleoremptydatatype:InvalidVGHandle" for an array that is not empty
/// and holds neither objects nor doubles, and for a number that names no living object; those of
/// failed memory. A failure leaves the old array in place.
class VGDT_API HandleOrEmpty : public HostAllocated {
 public:
  explicit HandleOrEmpty(const vxArray* array);
  explicit HandleOrEmpty(const vcos::COSInterfacePtr& object);
  HandleOrEmpty(const HandleOrEmpty& other);
  /// Nothing if both are equal.
  HandleOrEmpty& operator=(const HandleOrEmpty& other);
  virtual ~HandleOrEmpty();

  /// Takes an object array, which it shares; an array of class double, of which only the first
  /// number counts; and null or an empty array of any class, which refers to nothing.
  virtual void setHandle(const vxArray* array);
  void copy(const HandleOrEmpty& other);
  /// Gives the array up, until the next setHandle().
  void cleanup() noexcept;

  /// The array, which stays the value's; null only after cleanup().
  vxArray* getHandle() const noexcept { return handle_; }
  /// The first object; null if there is none.
  vcos::COSInterfacePtr getCOSReference() const;
  /// The array in the form that users see; null if there is none. It is the caller's.
  vxArray* getSharedObjectCopy() const;

  /// Whether both refer to the same object, or both to none.
  bool operator==(const HandleOrEmpty& other) const;

  /// A new 0-by-0 array of class "handle".
  vxArray* createEmptyObject() const;
  /// A new 1-by-1 array of the object that the first number of an array of class double stands for.
  vxArray* convertDoubleToHandle(const vxArray* numbers) const;
  /// False for null.
  bool isArrayEmpty(const vxArray* array) const noexcept;
  /// The object behind a word of whatever type a property has, if that converts to an object array;
  /// null if the array is null or empty.
  vcos::COSInterfacePtr convertValue(const vcos::COSPropInfo* property, vcos::COSValue value) const;

 private:
  vxArray* handle_ = nullptr;
};

/// Raises "VORTIL:datatypes:handleoremptydatatype:InvalidVGHandle".
[[noreturn]] VGDT_API void throwInvalidPropertyException();

/// The type "HandleOrEmpty": refers to nothing by default.
class VGDT_API HandleOrEmptyDataType final
    : public PropertyDataType<HandleOrEmptyDataType, HandleOrEmpty> {
 public:
  static constexpr const char* kDottedName = "vortil.graphics.datatype.HandleOrEmpty";
};

/// The type has no text form.
class VGDT_API HandleOrEmptySC final : public vcos::COSTypeConversion {
 public:
  /// Always raises "VORTIL:datatypes:handleoremptydatatype:DataTypeToString".
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Always raises "VORTIL:datatypes:handleoremptydatatype:StringToDataType".
  vcos::COSValue from(vcos::COSValue text) const override;
};

/// Between a host array and a word.
class VGDT_API HandleOrEmptyVC final : public vcos::COSTypeConversion {
 public:
  /// The array in the form that users see; the empty array of class "handle" for null. It is the
  /// caller's.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes what setHandle() takes, and raises what it does.
  vcos::COSValue from(vcos::COSValue array) const override;
};

/// Between a Java object of class com.lindgrove.jvi.bean.UDDObject and a word.
class VGDT_API HandleOrEmptyJC final : public AbstractJavaConverter {
 public:
  /// By the host's conversion "handle scalar"; null for null and where there is no object.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Null gives a value that refers to nothing.
  vcos::COSValue from(vcos::COSValue object) const override;
  const char* getJavaDeclarationName() override;
};

/// Queues the registration of the type; runs at load.
VGDT_API bool init_VortilGraphicsDatatype_HandleOrEmptyDataType();
/// Registers the type; does nothing if it is known.
VGDT_API void init_VortilGraphicsDatatype_HandleOrEmptyDataType_callback();

}  // namespace graphics::datatype
