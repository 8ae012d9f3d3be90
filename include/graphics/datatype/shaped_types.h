#pragma once

/// The shaped array types, stamped from the rows of shaped_types.def. A value holds an array that
/// has passed the tests of its type:
///
///     const ColorMap map(array);  // raises the message of the last test that failed
///     if (map.isUINT8ColorMap()) useBytes(vxGetData(map.getPtr()));
///
/// The rows
///
///     VGDT_SHAPED_TYPE(Tick, kTakesEmpty, "[]", vxDOUBLE_CLASS, kAsGiven)
///     VGDT_SHAPED_PREDICATE(Tick, isHorizontalVector, kFullReal, matrix(1, kAny), kFloat, ...)
///     VGDT_SHAPED_RULE(Tick, isHorizontalIncreasing, FloatElement, kTicks)
///     VGDT_SHAPED_END(Tick)
///
/// become
///
///     class Tick final : public ShapedValue {  // a value
///      public:
///       Tick() noexcept = default;           // no array, which stands for the empty value
///       explicit Tick(const vxArray* array); // raises unless isValid(array)
///       bool isValid(const vxArray* array,
///                    boost::shared_ptr<resource_core::BaseMsgID>& message) override;
///       static bool isHorizontalVector(const vxArray* array,
///                                      boost::shared_ptr<resource_core::BaseMsgID>& message);
///       bool isHorizontalVector() const;     // the same of the value's own array
///       template <shaped::FloatElement T>
///       static bool isHorizontalIncreasing(const T* elements, std::size_t count);
///     };
///     class TickDataType final : public PropertyDataType<TickDataType, Tick> {  // the data type
///      public:
///       static constexpr const char* kDottedName = "vortil.graphics.datatype.Tick";
///       bool areNonStringValuesAllowed() const;  // true
///     };
///     class TickSC final : public vcos::COSTypeConversion {};  // the text conversion
///     class TickVC final : public vcos::COSTypeConversion {};  // the array conversion
///
/// A test sets `message` to that of the last rule that was broken, and leaves it alone if it holds.
///
/// The text conversion reads what <gui_objects/convert_from_string_utils.h> tells, into the storage
/// class of the type, and gives the empty value for a text without numbers, whatever the type says
/// of empty arrays. Other texts raise "datatypes:<type>:ParseException"; those that are read and
/// are no value raise what the constructor does. It prints as ArrayBase::convert_to_string().
///
/// The array conversion gives a shared data copy, which belongs to the caller, and for an empty
/// value a 0 by 0 array of the storage class.
///
/// `scripts/show-type ColorMap` shows what the rows of a type become.

#include <graphics/datatype/PropertyDataType.h>
#include <graphics/datatype/ShapedValue.h>
#include <graphics/datatype/shaped_rules.h>
#include <vcos/COSTypeConversion.h>

namespace graphics::datatype {

// clang-format off

/// The value classes.
#define VGDT_SHAPED_TYPE(Type, Empty, Default, Storage, Stored)                \
  class VGDT_API Type final : public ShapedValue {                             \
   public:                                                                     \
    Type() noexcept = default;                                                 \
    explicit Type(const vxArray* array);                                       \
    Type(const Type&) = default;                                               \
    Type& operator=(const Type&) = default;                                    \
    ~Type() override;                                                          \
    bool isValid(const vxArray* array,                                         \
                 boost::shared_ptr<resource_core::BaseMsgID>& message) override;
#define VGDT_SHAPED_PREDICATE(Type, Name, Form, Size, Classes, Elements)                             \
    static bool Name(const vxArray* array, boost::shared_ptr<resource_core::BaseMsgID>& message);    \
    bool Name() const;
#define VGDT_SHAPED_RULE(Type, Name, Element, Rule)                              \
    template <shaped::Element T>                                                 \
    static bool Name(const T* elements, std::size_t count) {                     \
      return !shaped::findBreach(shaped::WholeArrayRule::Rule, elements, count); \
    }
#define VGDT_SHAPED_END(Type) \
  };
#include "shaped_types.def"

/// The data types; their conversions; and the functions that register them: the first queues the
/// second and runs at load, the second does nothing for a known type.
#define VGDT_SHAPED_TYPE(Type, Empty, Default, Storage, Stored)                               \
  class VGDT_API Type##DataType final : public PropertyDataType<Type##DataType, Type> {       \
   public:                                                                                    \
    static constexpr const char* kDottedName = "vortil.graphics.datatype." #Type;             \
    ~Type##DataType() override;                                                               \
    bool areNonStringValuesAllowed() const;                                                   \
  };                                                                                          \
  class VGDT_API Type##SC final : public vcos::COSTypeConversion {                            \
   public:                                                                                    \
    ~Type##SC() override;                                                                     \
    vcos::COSValue to(vcos::COSValue value) const override;                                   \
    vcos::COSValue from(vcos::COSValue text) const override;                                  \
  };                                                                                          \
  class VGDT_API Type##VC final : public vcos::COSTypeConversion {                            \
   public:                                                                                    \
    ~Type##VC() override;                                                                     \
    vcos::COSValue to(vcos::COSValue value) const override;                                   \
    vcos::COSValue from(vcos::COSValue array) const override;                                 \
  };                                                                                          \
  VGDT_API bool init_GraphicsDatatype_##Type##DataType();                                     \
  VGDT_API void init_GraphicsDatatype_##Type##_callback();
#include "shaped_types.def"

// clang-format on

}  // namespace graphics::datatype
