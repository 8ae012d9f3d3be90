#pragma once

/// Quick tests of many elements at once. A screen looks at the bits of a vector of elements and
/// sets the top bit of the lane of each that may fail a scan; those that it leaves alone pass. What
/// it sets without need (a negative zero, say) costs time and nothing else, since whoever asks goes
/// on to test the elements themselves.
///
/// All vectors are passed by reference: their calling convention depends on the processor.

#include <algorithm>
#include <array>
#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>

namespace graphics::datatype::screens {

template <class Lane, std::size_t bytes>
using Vector [[gnu::vector_size(bytes)]] = Lane;

template <class Element>
using BitsOf = std::conditional_t<
    sizeof(Element) == 8, std::uint64_t,
    std::conditional_t<sizeof(Element) == 4, std::uint32_t,
                       std::conditional_t<sizeof(Element) == 2, std::uint16_t, std::uint8_t>>>;

/// Added to a number and taken away again, it leaves the nearest whole number, as long as the
/// number is not larger than kMostRounded.
template <std::floating_point Float>
constexpr Float kRounder = static_cast<Float>(3ULL << (std::numeric_limits<Float>::digits - 2));
template <std::floating_point Float>
constexpr Float kMostRounded = kRounder<Float> / 3;

/// Flags numbers outside a range, NaN included. As bits, the numbers that are not negative stand in
/// their order, so that one comparison of whole numbers sees too small, too large, negative,
/// infinite and NaN.
template <std::floating_point Float>
class RangeScreen {
 public:
  using Bits = BitsOf<Float>;

  /// From `min`, which is not negative, to `max`; or from -max to `max`.
  RangeScreen(Float min, Float max)
      : mask_(min < 0 ? ~kSign : ~Bits{0}),
        low_(min < 0 ? Bits{0} : std::bit_cast<Bits>(min)),
        span_(std::bit_cast<Bits>(max) - low_) {}

  template <class Lanes>
  [[gnu::always_inline]] void flag(const Lanes& bits, Lanes& flags) const {
    const Lanes offset = (bits & mask_) - low_;
    flags |= offset | (span_ - offset);
  }

 private:
  static constexpr Bits kSign = Bits{1} << (8 * sizeof(Bits) - 1);

  Bits mask_;
  Bits low_;
  Bits span_;
};

/// Flags fractions as well. The range has to end within kMostRounded.
template <std::floating_point Float>
class WholeNumberScreen : public RangeScreen<Float> {
 public:
  using Bits = BitsOf<Float>;
  using RangeScreen<Float>::RangeScreen;

  template <class Lanes>
  [[gnu::always_inline]] void flag(const Lanes& bits, Lanes& flags) const {
    using Floats = Vector<Float, sizeof(Lanes)>;
    RangeScreen<Float>::flag(bits, flags);
    const auto numbers = reinterpret_cast<Floats>(bits);
    const Floats rounded = (numbers + kRounder<Float>)-kRounder<Float>;
    const Lanes difference = reinterpret_cast<Lanes>(rounded) ^ bits;
    flags |= difference | (Bits{0} - difference);
  }
};

/// Flags what a comparison of numbers finds outside a range, which is slower and exact: it knows
/// that a negative zero is no less than 0, and lets NaN pass. For whole numbers, the range has to
/// end within kMostRounded.
template <std::floating_point Float, bool wholeNumbers>
class ComparingScreen {
 public:
  using Bits = BitsOf<Float>;

  ComparingScreen(Float min, Float max) : min_(min), max_(max) {}

  template <class Lanes>
  [[gnu::always_inline]] void flag(const Lanes& bits, Lanes& flags) const {
    using Floats = Vector<Float, sizeof(Lanes)>;
    const auto numbers = reinterpret_cast<Floats>(bits);
    flags |= reinterpret_cast<Lanes>((numbers < min_) | (numbers > max_));
    if constexpr (wholeNumbers) {
      const Floats rest = (numbers + kRounder<Float>)-kRounder<Float> - numbers;
      flags |= reinterpret_cast<Lanes>((rest < 0) | (rest > 0));
    }
  }

 private:
  Float min_;
  Float max_;
};

/// Flags whole numbers below 1.
template <std::integral Integer>
class CountingScreen {
 public:
  using Bits = BitsOf<Integer>;

  template <class Lanes>
  [[gnu::always_inline]] void flag(const Lanes& bits, Lanes& flags) const {
    const Lanes before = bits - Bits{1};
    if constexpr (std::is_signed_v<Integer>)
      flags |= before | bits;
    else
      flags |= before & ~bits;
  }
};

/// The elements that are screened together, in bytes: they fit the fastest cache.
inline constexpr std::size_t kBlock = 16384;

/// The first block has what stands before the first aligned vector as well.
inline constexpr std::size_t kLargestBlock = kBlock + 64;

/// Arrays of fewer bytes are not worth a screen.
inline constexpr std::size_t kLeastBytes = 256;

/// How far ahead memory is asked for, in bytes: what hides most of its latency, as measured.
inline constexpr std::size_t kAhead = 8192;

template <class Bits, class Lanes>
[[gnu::always_inline]] inline bool isAnyFlagged(const Lanes& flags) {
  constexpr std::uint64_t kTopBits = ~std::uint64_t{0} / std::numeric_limits<Bits>::max()
                                     << (8 * sizeof(Bits) - 1);
  std::array<std::uint64_t, sizeof(Lanes) / 8> words;
  std::memcpy(words.data(), &flags, sizeof flags);
  std::uint64_t any = 0;
  for (const std::uint64_t word : words)
    any |= word;
  return (any & kTopBits) != 0;
}

/// The offset of the first block, of up to kLargestBlock bytes, with a flagged element; `bytes` if
/// there is none. `width` is that of the vectors, and there are at least kLeastBytes. The elements
/// are aligned to their own size; all vectors but the first and the last are aligned to theirs.
template <std::size_t width, class Screen>
[[gnu::always_inline]] inline std::size_t findFlaggedBlock(const Screen& screen,
                                                           const std::byte* data,
                                                           std::size_t bytes) {
  using Bits = typename Screen::Bits;
  using Lanes = Vector<Bits, width>;
  constexpr std::size_t kTogether = 4;  // vectors in flight
  static_assert(width <= kLeastBytes && kBlock % (kTogether * width) == 0);

  const std::byte* const end = data + bytes;
  const std::byte* const last = end - width;
  Lanes flags[kTogether]{};
  Lanes bits;
  const auto look = [&](const std::byte* at, Lanes& into) __attribute__((always_inline)) {
    std::memcpy(&bits, at, width);
    screen.flag(bits, into);
  };

  const std::byte* block = data;
  look(data, flags[0]);
  const std::byte* at = data + width - reinterpret_cast<std::uintptr_t>(data) % width;
  for (;;) {
    const bool isLast = static_cast<std::size_t>(end - at) <= kBlock;
    const std::byte* const stop = isLast ? end : at + kBlock;
    for (; static_cast<std::size_t>(stop - at) >= kTogether * width; at += kTogether * width) {
      for (std::size_t i = 0; i < kTogether; ++i) {
        __builtin_prefetch(at + kAhead + i * width);
        look(at + i * width, flags[i]);
      }
    }
    for (; static_cast<std::size_t>(stop - at) >= width; at += width)
      look(at, flags[0]);
    if (isLast) look(last, flags[0]);
    if (isAnyFlagged<Bits>((flags[0] | flags[1]) | (flags[2] | flags[3])))
      return static_cast<std::size_t>(block - data);
    if (isLast) return bytes;
    block = at;
  }
}

#if defined(__x86_64__)

template <class Screen>
[[gnu::target("avx512f,avx512bw,avx512dq,avx512vl")]] std::size_t findFlaggedBlock512(
    const Screen& screen, const std::byte* data, std::size_t bytes) {
  return findFlaggedBlock<64>(screen, data, bytes);
}

template <class Screen>
[[gnu::target("avx2")]] std::size_t findFlaggedBlock256(const Screen& screen, const std::byte* data,
                                                        std::size_t bytes) {
  return findFlaggedBlock<32>(screen, data, bytes);
}

inline bool has512BitVectors() {
  return __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
         __builtin_cpu_supports("avx512dq") && __builtin_cpu_supports("avx512vl");
}
inline bool has256BitVectors() {
  return __builtin_cpu_supports("avx2");
}

#endif

/// With the widest vectors of this processor. They differ in where blocks end, and in nothing else.
template <class Screen>
std::size_t findFlaggedBlock(const Screen& screen, const std::byte* data, std::size_t bytes) {
#if defined(__x86_64__)
  if (has512BitVectors()) return findFlaggedBlock512(screen, data, bytes);
  if (has256BitVectors()) return findFlaggedBlock256(screen, data, bytes);
#endif
  return findFlaggedBlock<16>(screen, data, bytes);
}

}  // namespace graphics::datatype::screens
