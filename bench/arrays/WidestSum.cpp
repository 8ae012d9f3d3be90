#include "WidestSum.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <type_traits>

namespace arrays {
namespace {

template <class Lane, std::size_t bytes>
using Vector [[gnu::vector_size(bytes)]] = Lane;

/// What does not fit the fastest cache is asked for this many bytes ahead.
constexpr std::size_t kAhead = 8192;
constexpr std::size_t kFastest = 32768;

template <class Element, std::size_t width>
[[gnu::always_inline]] inline void addLanes(const Vector<Element, width>& lanes, Element& sum) {
  if constexpr (width == sizeof(Element)) {
    sum += lanes[0];
  } else {
    std::array<Vector<Element, width / 2>, 2> halves;
    std::memcpy(&halves, &lanes, width);
    halves[0] += halves[1];
    addLanes<Element, width / 2>(halves[0], sum);
  }
}

template <class Element, std::size_t width>
class Summation {
 public:
  [[gnu::always_inline]] static Element of(const Element* elements, std::size_t count) {
    Element sum = 0;
    if (count < kLanes) {
      for (std::size_t i = 0; i < count; ++i)
        sum += elements[i];
      return sum;
    }
    return ofMany(reinterpret_cast<const std::byte*>(elements), count * sizeof(Element));
  }

 private:
  using Lanes = Vector<Element, width>;
  using Bits = Vector<std::conditional_t<sizeof(Element) == 8, std::int64_t, std::int32_t>, width>;
  static constexpr std::size_t kLanes = width / sizeof(Element);
  static constexpr std::size_t kTogether = 4;  // sums in flight
  /// Ones between zeros.
  static constexpr auto kMask = [] {
    std::array<std::byte, 3 * width> mask{};
    std::fill_n(mask.begin() + width, width, std::byte{0xff});
    return mask;
  }();

  /// The first `bytes` of a vector, and the last ones.
  [[gnu::always_inline]] static void addFirst(const std::byte* at, std::size_t bytes, Lanes& sum) {
    addMasked(at, kMask.data() + 2 * width - bytes, sum);
  }
  [[gnu::always_inline]] static void addLast(const std::byte* at, std::size_t bytes, Lanes& sum) {
    addMasked(at, kMask.data() + bytes, sum);
  }
  [[gnu::always_inline]] static void addMasked(const std::byte* at, const std::byte* maskAt,
                                               Lanes& sum) {
    Bits bits;
    Bits mask;
    std::memcpy(&bits, at, width);
    std::memcpy(&mask, maskAt, width);
    bits &= mask;
    sum += reinterpret_cast<Lanes>(bits);
  }

  template <std::size_t vectors>
  [[gnu::always_inline]] static void add(const std::byte*& at, Lanes (&sums)[kTogether]) {
    const auto* const aligned = static_cast<const std::byte*>(__builtin_assume_aligned(at, width));
    for (std::size_t i = 0; i < vectors; ++i) {
      Lanes lanes;
      std::memcpy(&lanes, aligned + i * width, width);
      sums[i] += lanes;
    }
    at += vectors * width;
  }

  template <bool askAhead>
  [[gnu::always_inline]] static void addAll(const std::byte*& at, const std::byte* end,
                                            Lanes (&sums)[kTogether]) {
    while (static_cast<std::size_t>(end - at) >= kTogether * width) {
      if constexpr (askAhead)
        for (std::size_t i = 0; i < kTogether * width; i += 64)
          __builtin_prefetch(at + kAhead + i);
      add<kTogether>(at, sums);
    }
  }

  /// Adds one half of the sums to the other, until one is left.
  template <std::size_t half>
  [[gnu::always_inline]] static void fold(Lanes (&sums)[kTogether]) {
    for (std::size_t i = 0; i < half; ++i)
      sums[i] += sums[i + half];
    if constexpr (half > 1) fold<half / 2>(sums);
  }

  [[gnu::always_inline]] static Element ofMany(const std::byte* data, std::size_t bytes) {
    Lanes sums[kTogether]{};
    const std::byte* const end = data + bytes;
    const std::size_t head = -reinterpret_cast<std::uintptr_t>(data) % width;
    addFirst(data, head, sums[0]);
    const std::byte* at = data + head;
    if (bytes > kFastest)
      addAll<true>(at, end, sums);
    else
      addAll<false>(at, end, sums);
    if (static_cast<std::size_t>(end - at) >= 2 * width) add<2>(at, sums);
    if (static_cast<std::size_t>(end - at) >= width) add<1>(at, sums);
    addLast(end - width, static_cast<std::size_t>(end - at), sums[1]);
    fold<kTogether / 2>(sums);
    Element sum = 0;
    addLanes<Element, width>(sums[0], sum);
    return sum;
  }
};

#if defined(__x86_64__)

template <class Element>
[[gnu::target("avx512f")]] Element sum512(const Element* elements, std::size_t count) {
  return Summation<Element, 64>::of(elements, count);
}

template <class Element>
[[gnu::target("avx2")]] Element sum256(const Element* elements, std::size_t count) {
  return Summation<Element, 32>::of(elements, count);
}

#endif

template <class Element>
Element sum128(const Element* elements, std::size_t count) {
  return Summation<Element, 16>::of(elements, count);
}

template <class Element>
using Sum = Element (*)(const Element*, std::size_t);

template <class Element>
Sum<Element> chooseSum() {
#if defined(__x86_64__)
  if (__builtin_cpu_supports("avx512f")) return sum512<Element>;
  if (__builtin_cpu_supports("avx2")) return sum256<Element>;
#endif
  return sum128<Element>;
}

template <class Element>
const Sum<Element> kSum = chooseSum<Element>();

}  // namespace

double widestSum(const double* elements, std::size_t count) {
  return kSum<double>(elements, count);
}
float widestSum(const float* elements, std::size_t count) {
  return kSum<float>(elements, count);
}
std::uint32_t widestSum(const std::uint32_t* elements, std::size_t count) {
  return kSum<std::uint32_t>(elements, count);
}

}  // namespace arrays
