#pragma once

/// The enumerated types, stamped from the rows of enumerated_types.def. A value is an object with a
/// test for each name:
///
///     const LineStyle style(LineStyle::kDashed);
///     if (style.isDashed() && !(style == LineStyle())) draw(style.getIntValue());
///
/// The rows
///
///     VGDT_ENUM_TYPE(AxesBox, AxesBoxStyle, Full)
///     VGDT_ENUM_NAME(AxesBox, Full, "full", 0)
///     VGDT_ENUM_NAME(AxesBox, Back, "back", 1)
///     VGDT_ENUM_END(AxesBox)
///
/// become
///
///     struct AxesBoxEnumerators {
///       enum value : int { kFull = 0, kBack = 1 };
///     };
///     class AxesBox final : public EnumeratedValue {  // a value
///      public:
///       using value = AxesBoxEnumerators::value;
///       using enum AxesBoxEnumerators::value;
///       AxesBox() noexcept;  // kFull
///       explicit AxesBox(value enumerator) noexcept;
///       bool isFull() const noexcept;
///       bool isBack() const noexcept;
///       friend bool operator==(const AxesBox& a, const AxesBox& b) noexcept;
///     };
///     class AxesBoxStyle : public EnumStringType {  // the table of names
///      public:
///       static AxesBoxStyle* getInstance();
///     };
///     class AxesBoxDataType final  // the data type, which is a table of names
///         : public AxesBoxStyle, public PropertyDataType<AxesBoxDataType, AxesBox> {
///      public:
///       static constexpr const char* kDottedName = "vortil.graphics.datatype.AxesBox";
///       bool isPossibleValuesFinite() const override;
///       vcos::Enumeration<vcos::COSValue> getPossibleValues() const override;
///     };
///     class AxesBoxSC final : public vcos::COSTypeConversion {  // the text conversion
///      public:
///       explicit AxesBoxSC(const AxesBoxDataType& dataType);
///     };
///     class AxesBoxVC final : public vcos::COSTypeConversion {  // the array conversion
///      public:
///       explicit AxesBoxVC(const AxesBoxDataType& dataType);
///     };
///
/// The text conversion takes a name, or an abbreviation of only one name, in any case, with white
/// space around it. Any other text raises "VORTIL:datatypes:InvalidEnumValue". It gives the name in
/// lower case, on the host's heap: null for null and for a value that has no name, and a
/// vcos::COSOutOfMemoryException where memory fails.
///
/// The array conversion takes a char array of any shape with such a text; null gives null. An array
/// of another class raises "VORTIL:datatypes:InvalidEnumValueFor", an empty one
/// "VORTIL:datatypes:InvalidValue", a failure to read its text "VORTIL:datatypes:OutOfMemory". It
/// gives the name as a char array of the caller's, which shares its data: empty for null and for a
/// value that has no name. The data type has to outlive both conversions.
///
/// `scripts/show-type LineStyle` shows those of a type.

#include <graphics/datatype/EnumCache.h>
#include <graphics/datatype/EnumStringType.h>
#include <graphics/datatype/EnumeratedValue.h>
#include <graphics/datatype/PropertyDataType.h>
#include <vcos/COSTypeConversion.h>

namespace graphics::datatype {

// clang-format off

/// The enumerations `value`.
#define VGDT_ENUM_TYPE(Type, Style, Default) \
  struct Type##Enumerators {                 \
    enum value : int {
#define VGDT_ENUM_NAME(Type, Label, Name, Value) \
      k##Label = (Value),
#define VGDT_ENUM_END(Type) \
    };                      \
  };
#include "enumerated_types.def"

/// The value classes, with one test for each name.
#define VGDT_ENUM_TYPE(Type, Style, Default)                                  \
  class VGDT_API Type final : public EnumeratedValue {                        \
   public:                                                                    \
    using value = Type##Enumerators::value;                                   \
    using enum Type##Enumerators::value;                                      \
    Type() noexcept : EnumeratedValue(k##Default) {}                          \
    explicit Type(value enumerator) noexcept : EnumeratedValue(enumerator) {} \
    ~Type() override;                                                         \
    friend bool operator==(const Type& a, const Type& b) noexcept {           \
      return a.getIntValue() == b.getIntValue();                              \
    }
#define VGDT_ENUM_NAME(Type, Label, Name, Value) \
    bool is##Label() const noexcept { return getIntValue() == k##Label; }
#define VGDT_ENUM_END(Type) \
  };
#include "enumerated_types.def"

/// The tables of names. getInstance() makes a table at its first call, returns the same one from then
/// on, and is for the four tables without a type. The table of a type is its data type: a second
/// table of the same name finds no names, and if it is made first, the data type finds none.
#define VGDT_TABLE_CLASS(Style)                  \
  class VGDT_API Style : public EnumStringType { \
   public:                                       \
    Style();                                     \
    ~Style() override;                           \
    static Style* getInstance();
#define VGDT_ENUM_TYPE(Type, Style, Default) \
  VGDT_TABLE_CLASS(Style)                    \
  };
#define VGDT_ENUM_TABLE(Style) \
  VGDT_TABLE_CLASS(Style)      \
    enum value : int {
#define VGDT_TABLE_NAME(Style, Label, Name, Value) \
      k##Label = (Value),
#define VGDT_TABLE_END(Style) \
    };                        \
  };
#include "enumerated_types.def"
#undef VGDT_TABLE_CLASS

/// For a value class with getStyle(), whose style is one of the names of a table without a type: one
/// test for each name.
#define VGDT_ENUM_TABLE(Style) \
  template <class Owner>       \
  class Style##Tests {         \
   public:
#define VGDT_TABLE_NAME(Style, Label, Name, Value) \
    bool is##Label() const noexcept { return owner().getStyle() == Style::k##Label; }
#define VGDT_TABLE_END(Style)                                                            \
   private:                                                                              \
    const Owner& owner() const noexcept { return static_cast<const Owner&>(*this); }     \
  };
#include "enumerated_types.def"

/// The data types, which are tables of names; their conversions; and the functions that register
/// them: the first queues the second and runs at load, the second does nothing for a known type.
///
/// getPossibleValues() makes new values in the order of the rows. Each belongs to the caller from
/// nextElement() on; kept: those that are never asked for are not destroyed. A failed allocation is
/// a vcos::COSOutOfMemoryException.
#define VGDT_ENUM_TYPE(Type, Style, Default)                                                     \
  class VGDT_API Type##DataType final : public Style,                                            \
                                        public PropertyDataType<Type##DataType, Type> {          \
   public:                                                                                       \
    static constexpr const char* kDottedName = "vortil.graphics.datatype." #Type;                \
    Type##DataType();                                                                            \
    ~Type##DataType() override;                                                                  \
    bool isPossibleValuesFinite() const override;                                                \
    vcos::Enumeration<vcos::COSValue> getPossibleValues() const override;                        \
  };                                                                                             \
  class VGDT_API Type##SC final : public vcos::COSTypeConversion {                               \
   public:                                                                                       \
    explicit Type##SC(const Type##DataType& dataType) : dataType_(dataType) {}                   \
    ~Type##SC() override;                                                                        \
    vcos::COSValue to(vcos::COSValue value) const override;                                      \
    vcos::COSValue from(vcos::COSValue text) const override;                                     \
   private:                                                                                      \
    const Type##DataType& dataType_;                                                             \
  };                                                                                             \
  class VGDT_API Type##VC final : public vcos::COSTypeConversion {                               \
   public:                                                                                       \
    explicit Type##VC(const Type##DataType& dataType) : dataType_(dataType), cache_(dataType) {} \
    ~Type##VC() override;                                                                        \
    vcos::COSValue to(vcos::COSValue value) const override;                                      \
    vcos::COSValue from(vcos::COSValue array) const override;                                    \
   private:                                                                                      \
    const Type##DataType& dataType_;                                                             \
    mutable utils::EnumCache cache_;                                                             \
  };                                                                                             \
  VGDT_API bool init_GraphicsDatatype_##Type##DataType();                                        \
  VGDT_API void init_GraphicsDatatype_##Type##DataType_callback();
#include "enumerated_types.def"

// clang-format on

}  // namespace graphics::datatype
