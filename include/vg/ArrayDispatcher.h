#pragma once

/// From the class of a host array, which is known at run time, to code that is written for an
/// element type:
///
///     struct Total {
///       double sum = 0;
///       template <class Traits>
///       void run(const vxArray* array) {
///         using Element = typename Traits::ElementType;
///         const auto* elements = static_cast<const Element*>(vxGetData(array));
///         for (std::size_t i = 0; i < vxGetNumberOfElements(array); ++i)
///           sum += static_cast<double>(elements[i]);
///       }
///       void onError(vxClassID) { throw gui_objects::InvalidArrayClassException(); }
///     };
///     using Floats = vg::TL::ClassList<vxDOUBLE_CLASS, vxSINGLE_CLASS>;
///     Total total;
///     vg::TL::ArrayDispatcher<Total, Floats>::dispatchHelper(array, classID, total);
///
/// The walk along the list is resolved when this is compiled; what is left is a chain of
/// comparisons, so the most common class should come first, or be served before.

#include <vg/MatrixTraits.h>
#include <vx/class_dispatch.h>

#include <cstddef>
#include <iterator>
#include <utility>

namespace vg::TL {

/// The end of a list of types.
struct NullType {};

/// A list of types: its first, and the list of the others, or NullType.
template <class Head, class Tail>
struct Typelist;

template <class Executor, class List>
struct ArrayDispatcher;

template <class Executor>
struct ArrayDispatcher<Executor, NullType> : detail::ArrayDispatcherBase {
  static void dispatchHelper(const vxArray*, vxClassID classID, Executor& executor) {
    executor.onError(classID);
  }
};

/// `Head` is a vg::MatrixTraits. The executor offers `run<Traits>(array)` for each in the list, and
/// `onError(classID)` for the classes that are not in it. What they throw passes through.
template <class Executor, class Head, class Tail>
struct ArrayDispatcher<Executor, Typelist<Head, Tail>> : detail::ArrayDispatcherBase {
  static void dispatchHelper(const vxArray* array, vxClassID classID, Executor& executor) {
    if (classID == Head::kClassID)
      executor.template run<Head>(array);
    else
      ArrayDispatcher<Executor, Tail>::dispatchHelper(array, classID, executor);
  }
};

namespace detail {

template <int... classIDs>
struct MakeClassList {
  using Type = NullType;
};
template <int first, int... others>
struct MakeClassList<first, others...> {
  using Type = Typelist<MatrixTraits<first>, typename MakeClassList<others...>::Type>;
};

}  // namespace detail

/// The Typelist of the traits of some classes.
template <int... classIDs>
using ClassList = typename detail::MakeClassList<classIDs...>::Type;

namespace detail {

template <std::size_t first, std::size_t... index>
ClassList<kNumericClasses[first + index]...> numericFrom(std::index_sequence<index...>);

inline constexpr std::size_t kNumericCount = std::size(kNumericClasses);

}  // namespace detail

/// The numeric classes, double first and the others in ascending order.
using Numeric = decltype(detail::numericFrom<0>(std::make_index_sequence<detail::kNumericCount>()));
/// The numeric classes but double.
using NumericButDouble =
    decltype(detail::numericFrom<1>(std::make_index_sequence<detail::kNumericCount - 1>()));
/// The integer classes.
using Integers =
    decltype(detail::numericFrom<2>(std::make_index_sequence<detail::kNumericCount - 2>()));

}  // namespace vg::TL
