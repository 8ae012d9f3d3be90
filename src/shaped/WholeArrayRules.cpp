#include "shaped/ElementScan.h"

#include <algorithm>
#include <functional>

namespace graphics::datatype::shaped {
namespace {

/// Integers are neither, whatever their value.
template <NumericElement T>
bool isNaN(T element) {
  if constexpr (std::floating_point<T>)
    return std::isnan(element);
  else
    return false;
}
template <NumericElement T>
bool isInfinite(T element) {
  if constexpr (std::floating_point<T>)
    return std::isinf(element);
  else
    return false;
}

template <NumericElement T>
bool isNumber(T element) {
  return !isNaN(element);
}
template <NumericElement T>
bool isFinite(T element) {
  return !isNaN(element) && !isInfinite(element);
}

using Breach = std::optional<std::size_t>;

/// Where two elements do not fit together, it is the second that is told to break a rule.
template <class T, class IsAllowed, class FitTogether>
Breach findBreachOfPair(const T* elements, std::size_t count, IsAllowed isAllowed,
                        FitTogether fitTogether) {
  if (count != 2) return count;
  if (!isAllowed(elements[0])) return 0;
  if (!isAllowed(elements[1]) || !fitTogether(elements[0], elements[1])) return 1;
  return std::nullopt;
}

template <class T>
Breach findBreachOfNormalized(const T* elements, std::size_t count) {
  if (count % 3 != 0) return count;
  constexpr ElementScan kZeroToOne{
      .tests = {ElementTest::kSkipNaN, ElementTest::kRange}, .min = 0, .max = 1};
  const std::size_t failing = findFailing(kZeroToOne, elements, count);
  return failing < count ? Breach(failing) : std::nullopt;
}

template <class T>
Breach findBreachOfTicks(const T* elements, std::size_t count) {
  if (!elements) return count;
  if (count < 2) return std::nullopt;  // kept: also a single NaN
  const T* const end = elements + count;
  const T* const last = std::adjacent_find(elements, end, [](T a, T b) {
    return isNaN(a) || isNaN(b) || (isInfinite(a) && isInfinite(b)) || a >= b;
  });
  if (last == end) return std::nullopt;
  return static_cast<std::size_t>(last - elements) + (isNaN(*last) ? 0 : 1);
}

}  // namespace

template <NumericElement T>
Breach findBreach(WholeArrayRule rule, const T* elements, std::size_t count) {
  switch (rule) {
    case WholeArrayRule::kNone:
      return std::nullopt;
    case WholeArrayRule::kNotDecreasing:
      return findBreachOfPair(elements, count, isNumber<T>, [](T first, T second) {
        return !(isInfinite(first) && isInfinite(second)) && first <= second;
      });
    case WholeArrayRule::kIncreasing:
      return findBreachOfPair(elements, count, isFinite<T>, std::less<T>());
    case WholeArrayRule::kIncreasingWithInfs:
      return findBreachOfPair(elements, count, isNumber<T>, std::less<T>());
    case WholeArrayRule::kNormalized:
      return findBreachOfNormalized(elements, count);
    case WholeArrayRule::kTicks:
      return findBreachOfTicks(elements, count);
  }
  return std::nullopt;
}

#define VGDT_INSTANTIATE(classID, Element) \
  template VGDT_API Breach findBreach(WholeArrayRule, const Element*, std::size_t);
VG_NUMERIC_CLASSES(VGDT_INSTANTIATE)
#undef VGDT_INSTANTIATE

}  // namespace graphics::datatype::shaped
