#pragma once

/// What the types of a few numbers share. A host array becomes a value after the tests of its
/// class, its shape and its data, in this order; a test that fails throws one of the exceptions of
/// gui_objects, which becomes the host error that the type has for it.

#include "NumberText.h"
#include "PropertyDataType.ipp"

#include <gui_objects/exceptions.h>
#include <messages/BaseMsgID.h>
#include <vg/ArrayDispatcher.h>
#include <vx/errors.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <concepts>
#include <cstddef>
#include <limits>
#include <span>
#include <tuple>
#include <type_traits>

namespace graphics::datatype {

// --- errors -------------------------------------------------------------------------------------

/// Raises a message of the catalogue, or one that has its identifier and its text here. `void` is
/// no message: the exception that is being handled goes on.
template <class Message>
[[noreturn]] void raise() {
  if constexpr (std::is_void_v<Message>)
    throw;
  else if constexpr (std::derived_from<Message, resource_core::BaseMsgID>)
    vxErrMsgId(Message());
  else
    vxErrMsgIdAndTxt(Message::kIdentifier, "%s", Message::kText);
}

/// The messages of a type: for an array of the wrong class, of the wrong shape, without data, with
/// the wrong data, and for anything else that fails.
template <class WrongClass, class WrongShape, class NoData, class WrongData = void,
          class Otherwise = void>
struct ArrayErrors {
  /// Does `work` and raises the message for what failed in it.
  template <class Work>
  static auto duringWork(Work&& work) {
    try {
      return work();
    } catch (const gui_objects::InvalidArrayClassException&) {
      raise<WrongClass>();
    } catch (const gui_objects::InvalidArrayShapeException&) {
      raise<WrongShape>();
    } catch (const gui_objects::NullArrayException&) {
      raise<NoData>();
    } catch (const gui_objects::InvalidArrayDataException&) {
      raise<WrongData>();
    } catch (...) {
      raise<Otherwise>();
    }
  }
};

/// Values whose class may refuse to be made, by any of its constructors: by default, from another
/// value, or from numbers. Its exception becomes a host error.
template <class Value, class Exception, class Message>
struct GuardedValues : PlainValues<Value> {
  template <class... Arguments>
  static Value* create(const Arguments&... arguments) {
    try {
      return new Value{arguments...};
    } catch (const Exception&) {
      vxErrMsgId(Message());
    }
  }
  static Value* createDefault() { return create(); }
};

// --- shapes -------------------------------------------------------------------------------------

template <std::size_t count>
bool hasElements(const vxArray* array) {
  return vxGetNumberOfElements(array) == count;
}

/// Dimensions after the second count as columns.
template <std::size_t rows, std::size_t columns>
bool isMatrix(const vxArray* array) {
  return vxGetM(array) == rows && vxGetN(array) == columns;
}

// --- data ---------------------------------------------------------------------------------------

template <class Number>
bool isFinite(Number number) {
  if constexpr (std::is_floating_point_v<Number>)
    return std::isfinite(number);
  else
    return true;
}

struct AnyNumbers {
  bool operator()(const auto&) const { return true; }
};
struct FiniteNumbers {
  bool operator()(const auto& numbers) const {
    return std::ranges::all_of(numbers, [](auto number) { return isFinite(number); });
  }
};
struct FinitePositiveNumbers {
  bool operator()(const auto& numbers) const {
    return std::ranges::all_of(numbers, [](auto n) { return isFinite(n) && n > 0; });
  }
};

// --- conversion ---------------------------------------------------------------------------------

/// As the processor converts: without the fraction, and what is no `int`, also NaN, becomes the
/// most negative one.
inline int truncated(double number) {
  using Int = std::numeric_limits<int>;
  const bool fits = number > Int::min() - 1.0 && number < Int::max() + 1.0;
  return fits ? static_cast<int>(number) : Int::min();
}

/// An element as a double or, of an integer its low 32 bits, as an `int`.
template <class Number, class Element>
Number converted(Element element) {
  if constexpr (std::is_same_v<Number, int> && std::is_floating_point_v<Element>)
    return truncated(element);
  else
    return static_cast<Number>(element);
}

// --- from a host array --------------------------------------------------------------------------

/// For executors of vg::TL::ArrayDispatcher.
struct RefuseOtherClasses {
  [[noreturn]] void onError(vxClassID) { throw gui_objects::InvalidArrayClassException(); }
};

/// Runs an executor for the class of an array, if that is in the list; null has no class.
template <class List, class Executor>
void dispatch(const vxArray* array, Executor& executor) {
  vg::TL::ArrayDispatcher<Executor, List>::dispatchHelper(
      array, vg::TL::detail::ArrayDispatcherBase::getClassID(array), executor);
}

/// Calls `use` with the elements of an array, as a span of their own type.
template <bool (*hasShape)(const vxArray*), std::size_t count, class Use>
struct ElementsExecutor : RefuseOtherClasses {
  explicit ElementsExecutor(const Use& ownUse) : use(ownUse) {}

  template <class Traits>
  void run(const vxArray* array) {
    using Element = typename Traits::ElementType;
    if (!hasShape(array)) throw gui_objects::InvalidArrayShapeException();
    const auto* const elements = static_cast<const Element*>(vxGetData(array));
    if (!elements) throw gui_objects::NullArrayException();
    use(std::span<const Element, count>(elements, count));
  }

  const Use& use;
};

/// How a type reads `count` elements of an array of any numeric class.
template <class Number, std::size_t count, bool (*hasShape)(const vxArray*), class Test,
          class Errors>
struct ArrayReader {
  /// The elements, converted. Errors: those of the type.
  static std::array<Number, count> numbersIn(const vxArray* array) {
    std::array<Number, count> numbers;
    Errors::duringWork([&] {
      useElements(array, [&numbers](const auto& elements) {
        if (!Test()(elements)) throw gui_objects::InvalidArrayDataException();
        std::ranges::transform(elements, numbers.begin(),
                               [](auto element) { return converted<Number>(element); });
      });
    });
    return numbers;
  }

  /// "[1 2.5]", with integers as integers, empty for null, on the host's heap. The data is not
  /// tested. Errors: those of the type but for its data.
  static char* newText(const vxArray* array) {
    return Errors::duringWork([array] {
      if (!array) return copyText("");
      char* text = nullptr;
      useElements(array, [&text](const auto& elements) { text = newRowText(elements); });
      return text;
    });
  }

 private:
  template <class Use>
  static void useElements(const vxArray* array, const Use& use) {
    ElementsExecutor<hasShape, count, Use> executor(use);
    dispatch<vg::TL::Numeric>(array, executor);
  }
};

/// A value of a type from the numbers of an array; null for null.
template <class Type, class Reader>
vcos::COSValue valueFromArray(vcos::COSValue array) {
  if (array.isNull()) return array;
  const auto make = [](auto... numbers) { return PropertyTypeTraits<Type>::create(numbers...); };
  return vcos::COSValue::fromPointer(
      std::apply(make, Reader::numbersIn(array.asPointer<const vxArray>())));
}

/// Kept: the word is a host array, where other text conversions get a value.
template <class Reader>
vcos::COSValue textFromArray(vcos::COSValue array) {
  return vcos::COSValue::fromPointer(Reader::newText(array.asPointer<const vxArray>()));
}

// --- from a value -------------------------------------------------------------------------------

/// What `newText` makes of the value that a word points to; `ofNull` for null.
template <class Value, class NewText>
vcos::COSValue textOfValue(vcos::COSValue word, const char* ofNull, NewText newText) {
  return vcos::COSValue::fromPointer(word.isNull() ? copyText(ofNull)
                                                   : newText(*word.asPointer<const Value>()));
}

/// What `newArray` makes of the value that a word points to; an empty array for null.
template <class Value, class NewArray>
vcos::COSValue arrayOfValue(vcos::COSValue word, NewArray newArray) {
  return vcos::COSValue::fromPointer(word.isNull() ? vxCreateDoubleMatrix(0, 0, vxREAL)
                                                   : newArray(*word.asPointer<const Value>()));
}

}  // namespace graphics::datatype
