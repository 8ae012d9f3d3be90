#pragma once

/// Which host arrays the shaped array types take, as data. The rows of shaped_types.def become one
/// ShapedType each; the library checks arrays by them, and whoever wants to tell a user what a type
/// takes can read them.

#include <graphics/datatype/export.h>
#include <vg/MatrixTraits.h>
#include <vx/array.h>

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace resource_core {
class BaseMsgID;
}

namespace graphics::datatype::shaped {

/// What was found wrong with an array. Each stands for a message of the catalogue, under
/// "VORTIL:vg:shaped_arrays:".
enum class Failure : std::uint8_t {
  kNone,
  kSparse,     ///< Sparse, with the type's name
  kComplex,    ///< Complex, with the type's name
  kSize,       ///< <type>Size
  kType,       ///< <type>Type: the class, or a number that has to be whole and is not
  kRange,      ///< <type>Range: an element is too small or too large
  kNaN,        ///< NaN, with the type's name
  kInf,        ///< Inf, with the type's name
  kPredicate,  ///< <type>Predicate: the rule for all elements together
};

/// Makes a new message.
using NewMessage = resource_core::BaseMsgID* (*)();

/// A set of array classes.
class ClassSet {
 public:
  constexpr ClassSet() = default;
  template <std::same_as<vxClassID>... ClassIDs>
  explicit constexpr ClassSet(ClassIDs... classIDs) : bits_(((1U << classIDs) | ...)) {}
  explicit constexpr ClassSet(std::span<const vxClassID> classIDs) {
    for (const vxClassID classID : classIDs)
      bits_ |= 1U << classID;
  }

  constexpr bool contains(vxClassID classID) const noexcept {
    return classID >= 0 && classID < 32 && (bits_ >> classID & 1U) != 0;
  }
  friend constexpr ClassSet operator|(ClassSet a, ClassSet b) noexcept {
    a.bits_ |= b.bits_;
    return a;
  }
  friend constexpr bool operator==(ClassSet, ClassSet) noexcept = default;

 private:
  std::uint32_t bits_ = 0;
};

/// What is asked of the dimensions.
struct SizeRule {
  enum class Kind : std::uint8_t {
    kDimensions,  ///< each of the numbers below that is not kAny
    kPair,        ///< two elements, M or N being 1, in any number of dimensions
    kVector,      ///< a vector, as the host sees it
  };
  static constexpr std::size_t kAny = SIZE_MAX;

  Kind kind = Kind::kDimensions;
  std::size_t numberOfDimensions = kAny;
  std::size_t m = kAny;      ///< the first dimension
  std::size_t n = kAny;      ///< the product of all dimensions after the first
  std::size_t third = kAny;  ///< the third dimension; an array of fewer does not fit
};

/// One test of an element, which is looked at as a double. Only floating-point elements take the
/// tests for NaN, for infinities and for whole numbers.
enum class ElementTest : std::uint8_t {
  kEnd,      ///< no further test
  kSkipNaN,  ///< NaN passes, and takes no further test
  kRange,    ///< from `min` to `max`, else kRange; the tests go on, and so does the scan
  kWhole32,  ///< a whole number that fits 32 bits with a sign, else kType at once
  kNotNaN,   ///< not NaN, else kNaN at once
  kNotInf,   ///< not infinite, else kInf at once
};

/// The tests of each element, in their order.
struct ElementScan {
  std::array<ElementTest, 4> tests{};
  double min = 0;
  double max = 0;
  /// Not done where the size is wrong. Ungated, its failure takes the place of that of the size.
  bool gated = false;

  constexpr bool has(ElementTest test) const noexcept {
    for (const ElementTest own : tests)
      if (own == test) return true;
    return false;
  }
  constexpr bool isEmpty() const noexcept { return tests.front() == ElementTest::kEnd; }
};

/// A rule for all elements together. "Infinite" is either infinity.
enum class WholeArrayRule : std::uint8_t {
  kNone,
  kNotDecreasing,       ///< two elements, neither NaN, not both infinite, the first <= the second
  kIncreasing,          ///< two elements, neither NaN nor infinite, the first < the second
  kIncreasingWithInfs,  ///< two elements, neither NaN, the first < the second
  kNormalized,          ///< a multiple of three elements, none below 0 or above 1; NaN passes
  kTicks,               ///< no element NaN, each less than the next and not both infinite; fewer
                        ///< than two elements may be anything
};

/// The ten element types of the numeric classes.
#define VGDT_IS_ELEMENT(classID, Element) || std::same_as<T, Element>
template <class T>
concept NumericElement = false VG_NUMERIC_CLASSES(VGDT_IS_ELEMENT);
#undef VGDT_IS_ELEMENT
template <class T>
concept FloatElement = std::same_as<T, double> || std::same_as<T, float>;

/// The index of the first element that breaks a rule, the second of two that do not fit together;
/// `count` where the number of elements breaks it, and where kTicks is asked of null. None where
/// the rule holds. Integers are compared as integers.
template <NumericElement T>
std::optional<std::size_t> findBreach(WholeArrayRule rule, const T* elements, std::size_t count);

/// One way in which an array can be a value of a type. What is stated is tested in this order.
struct Predicate {
  const char* name;  ///< "isNormalizedColorMap", the test's name in the value class
  bool refusesSparse;
  bool refusesComplex;
  SizeRule size;
  ClassSet classes;
  ElementScan scan;
  WholeArrayRule rule;
  NewMessage newOwnMessage;  ///< for kRange of the scan, or kPredicate of the rule; null if neither
};

/// How a value keeps its array.
enum class Stored : std::uint8_t { kAsGiven, kAsRow };

/// A shaped array type. An array is valid if one of the predicates holds.
struct ShapedType {
  const char* name;  ///< "ColorMap"
  bool takesEmpty;   ///< null and arrays without elements are valid, whatever their class and size
  std::span<const Predicate> predicates;
  const char* defaultText;
  vxClassID storageClass;  ///< of what is read from text, and of the array of an empty value
  Stored stored;
  NewMessage newSizeMessage;
  NewMessage newTypeMessage;
};

/// The type of a short name; null if it is none of the shaped types.
VGDT_API const ShapedType* findShapedType(std::string_view name) noexcept;

/// What the tests of a predicate found in an array.
struct Finding {
  /// The last failure, which decides the message; kNone where the predicate holds.
  Failure failure = Failure::kNone;
  /// Whether the size and the class fit. Of an array that is refused before they were looked at,
  /// because it is sparse or complex, nothing is said: both are true.
  bool fitsSize = true;
  bool fitsClass = true;
  /// In storage order, the first element that failed a test or broke the rule, and the one that
  /// `failure` tells of. None where it was no element: the tests ended before them, or a rule was
  /// broken by the number of elements.
  std::optional<std::size_t> firstElement{};
  std::optional<std::size_t> decidingElement{};
};

/// Tests an array by one predicate, of whatever classes, ranges and rules. A null array has the
/// wrong size. Elements that pass are read once, at memory speed, where a range is one of those
/// that the rows of shaped_types.def may have.
///
///     const shaped::ShapedType& colorMap = *shaped::findShapedType("ColorMap");
///     const shaped::Finding finding = shaped::examine(colorMap.predicates[0], array);
///     if (finding.decidingElement) std::cout << "see element " << *finding.decidingElement;
VGDT_API Finding examine(const Predicate& predicate, const vxArray* array);

}  // namespace graphics::datatype::shaped
