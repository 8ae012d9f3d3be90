#pragma once

/// Quick tests of many elements at once. A screen looks at the bits of a vector of elements and
/// flags the lane of each that may fail a scan; those that it leaves alone pass. What it flags
/// without need costs time and nothing else, since the caller goes on to test the elements
/// themselves. A lane is flagged by its top bit in `top`, or by any of its bits in `any`.
///
/// All vectors are passed by reference: their calling convention depends on the processor.

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>

#if defined(__x86_64__)
#define _Bool bool  // NOLINT: the header is in C, and clang++ knows the word in GNU mode only
#include <sys/platform/x86.h>
#endif

namespace graphics::datatype::screens {

template <class Lane, std::size_t bytes>
using Vector [[gnu::vector_size(bytes)]] = Lane;

template <class Element>
using BitsOf = std::conditional_t<
    sizeof(Element) == 8, std::uint64_t,
    std::conditional_t<sizeof(Element) == 4, std::uint32_t,
                       std::conditional_t<sizeof(Element) == 2, std::uint16_t, std::uint8_t>>>;

/// Flags numbers outside a range. As bits, the numbers that are not negative stand in their order,
/// so that one comparison of whole numbers sees too small, too large, negative, infinite and NaN.
template <std::floating_point FloatType>
class RangeScreen {
 public:
  using Float = FloatType;
  using Bits = BitsOf<Float>;

  /// From `min`, which is not negative, to `max`; or from -max to `max`.
  RangeScreen(Float min, Float max)
      : mask_(min < 0 ? kWithoutSign : ~Bits{0}),
        low_(min < 0 ? Bits{0} : std::bit_cast<Bits>(min)),
        span_(std::bit_cast<Bits>(max) - low_) {}

  template <class Lanes>
  [[gnu::always_inline]] void flag(const Lanes& bits, Lanes& top, Lanes&) const {
    const Lanes offset = (bits & mask_) - low_;
    top |= offset | (span_ - offset);
  }

 private:
  static constexpr Bits kWithoutSign = std::numeric_limits<Bits>::max() >> 1U;

  Bits mask_;
  Bits low_;
  Bits span_;
};

/// Added to a number and taken away again, it leaves the nearest whole number, as long as the
/// number is not larger than kMostRounded. The sum has the whole number in its lowest bits.
template <std::floating_point Float>
constexpr Float kRounder = static_cast<Float>(3ULL << (std::numeric_limits<Float>::digits - 2));
template <std::floating_point Float>
constexpr Float kMostRounded = kRounder<Float> / 3;

/// Flags numbers that are not whole or outside a range, which ends within kMostRounded.
template <std::floating_point FloatType>
class WholeRangeScreen {
 public:
  using Float = FloatType;
  using Bits = BitsOf<Float>;

  WholeRangeScreen(Float min, Float max)
      : low_(sumBits(std::ceil(min))),
        span_(sumBits(std::floor(max)) - low_) {}

  template <class Lanes>
  [[gnu::always_inline]] void flag(const Lanes& bits, Lanes& top, Lanes& any) const {
    using Floats = Vector<Float, sizeof(Lanes)>;
    const Floats sum = reinterpret_cast<Floats>(bits) + kRounder<Float>;
    const Lanes offset = reinterpret_cast<Lanes>(sum) - low_;
    top |= offset | (span_ - offset);
    any |= reinterpret_cast<Lanes>(sum - kRounder<Float>) ^ bits;
  }

 private:
  static Bits sumBits(Float whole) { return std::bit_cast<Bits>(whole + kRounder<Float>); }

  Bits low_;
  Bits span_;
};

/// A screen that does not flag what passes: NaN where it does, and a negative zero where 0 is in
/// the range, unless the numbers have to be whole.
template <class Screen>
class Exact : public Screen {
 public:
  using typename Screen::Bits;
  using typename Screen::Float;

  Exact(Float min, Float max, bool nanPasses)
      : Screen(min, max),
        nan_(nanPasses ? kSign : 0),
        zero_(min <= 0 ? kSign : 0) {}

  template <class Lanes>
  [[gnu::always_inline]] void flag(const Lanes& bits, Lanes& top, Lanes& any) const {
    Lanes failing{};
    Screen::flag(bits, failing, any);
    const Lanes size = bits & ~kSign;
    top |= failing & ~(((kInfinity - size) & nan_) | ((size - 1) & zero_));
  }

 private:
  static constexpr Bits kSign = Bits{1} << (8 * sizeof(Bits) - 1);
  static constexpr Bits kInfinity = std::bit_cast<Bits>(std::numeric_limits<Float>::infinity());

  Bits nan_;
  Bits zero_;
};

/// Flags whole numbers below 1.
template <std::integral Integer>
class CountingScreen {
 public:
  using Bits = BitsOf<Integer>;

  template <class Lanes>
  [[gnu::always_inline]] void flag(const Lanes& bits, Lanes& top, Lanes&) const {
    const Lanes before = bits - Bits{1};
    if constexpr (std::is_signed_v<Integer>)
      top |= before | bits;
    else
      top |= before & ~bits;
  }
};

/// The elements that are screened together, in bytes. After each block the search asks whether
/// something was flagged: large blocks cost fewer questions, small ones tell more closely where.
inline constexpr std::size_t kLargeBlock = 16384;
inline constexpr std::size_t kSmallBlock = 512;

/// The first block may be longer by this: it also has the bytes before the first aligned vector.
inline constexpr std::size_t kMostBefore = 64;

/// Arrays of fewer bytes are not worth a screen.
inline constexpr std::size_t kLeastBytes = 256;

/// How far ahead memory is asked for, in bytes: what hides most of its latency, as measured.
inline constexpr std::size_t kAhead = 8192;

/// Arrays of so many bytes are likely to be in the fastest cache.
inline constexpr std::size_t kFastest = 32768;

/// A search for the first flagged element with vectors of `width` bytes, in blocks of `blockBytes`.
/// All vectors but the first and the last are aligned.
template <std::size_t width, std::size_t blockBytes, class Screen>
class BlockSearch {
 public:
  /// For at least kLeastBytes, which are aligned to the size of an element.
  [[gnu::always_inline]] BlockSearch(const Screen& screen, const std::byte* data, std::size_t bytes)
      : screen_(screen),
        data_(data),
        bytes_(bytes) {}

  /// The offset of the first block that has one; the number of bytes if there is none.
  [[gnu::always_inline]] std::size_t find() {
    return bytes_ > kFastest ? find<true>() : find<false>();
  }

 private:
  using Bits = typename Screen::Bits;
  using Lanes = Vector<Bits, width>;
  static constexpr std::size_t kTogether = 4;  // vectors in flight
  static_assert(width <= kMostBefore && width <= kLeastBytes &&
                blockBytes % (kTogether * width) == 0);

  template <bool askAhead>
  [[gnu::always_inline]] std::size_t find() {
    const std::byte* const end = data_ + bytes_;
    const std::byte* block = data_;
    look(data_, 0);
    const std::byte* at = data_ + width - reinterpret_cast<std::uintptr_t>(data_) % width;
    for (;;) {
      const bool isLast = static_cast<std::size_t>(end - at) <= blockBytes;
      const std::byte* const stop = isLast ? end : at + blockBytes;
      for (; static_cast<std::size_t>(stop - at) >= kTogether * width; at += kTogether * width)
        for (std::size_t i = 0; i < kTogether; ++i) {
          if constexpr (askAhead) __builtin_prefetch(at + kAhead + i * width);
          look(at + i * width, i);
        }
      for (; static_cast<std::size_t>(stop - at) >= width; at += width)
        look(at, 0);
      if (isLast) look(end - width, 0);
      if (isAnyFlagged()) return static_cast<std::size_t>(block - data_);
      if (isLast) return bytes_;
      block = at;
    }
  }

  [[gnu::always_inline]] void look(const std::byte* at, std::size_t i) {
    Lanes bits;
    std::memcpy(&bits, at, width);
    screen_.flag(bits, top_[i], any_[i]);
  }

  [[gnu::always_inline]] bool isAnyFlagged() const {
    constexpr std::uint64_t kTopBits = ~std::uint64_t{0} / std::numeric_limits<Bits>::max()
                                       << (8 * sizeof(Bits) - 1);
    const Lanes top = (top_[0] | top_[1]) | (top_[2] | top_[3]);
    const Lanes any = (any_[0] | any_[1]) | (any_[2] | any_[3]);
    return ((joined<width>(top) & kTopBits) | joined<width>(any)) != 0;
  }

  /// All words of a vector, joined by "or".
  template <std::size_t bytes>
  [[gnu::always_inline]] static std::uint64_t joined(const Vector<Bits, bytes>& lanes) {
    if constexpr (bytes > 16) {
      std::array<Vector<Bits, bytes / 2>, 2> halves;
      std::memcpy(&halves, &lanes, bytes);
      return joined<bytes / 2>(halves[0] | halves[1]);
    } else {
      std::array<std::uint64_t, 2> words;
      std::memcpy(&words, &lanes, bytes);
      return words[0] | words[1];
    }
  }

  Screen screen_;
  const std::byte* data_;
  std::size_t bytes_;
  Lanes top_[kTogether]{};
  Lanes any_[kTogether]{};
};

#if defined(__x86_64__)

template <std::size_t blockBytes, class Screen>
[[gnu::target("avx512f,avx512bw,avx512dq,avx512vl")]] std::size_t findFlaggedBlock512(
    const Screen& screen, const std::byte* data, std::size_t bytes) {
  return BlockSearch<64, blockBytes, Screen>(screen, data, bytes).find();
}

template <std::size_t blockBytes, class Screen>
[[gnu::target("avx2")]] std::size_t findFlaggedBlock256(const Screen& screen, const std::byte* data,
                                                        std::size_t bytes) {
  return BlockSearch<32, blockBytes, Screen>(screen, data, bytes).find();
}

/// The width of the widest vectors that this processor and its system offer, in bytes. The C
/// library knows; the compiler's own way to ask needs a constructor, which takes a tenth of the
/// time that the library takes to load on a virtual machine.
inline std::size_t widestVector() {
  static const std::size_t width = CPU_FEATURE_ACTIVE(AVX512F) && CPU_FEATURE_ACTIVE(AVX512BW) &&
                                           CPU_FEATURE_ACTIVE(AVX512DQ) &&
                                           CPU_FEATURE_ACTIVE(AVX512VL)
                                       ? 64
                                   : CPU_FEATURE_ACTIVE(AVX2) ? 32
                                                              : 16;
  return width;
}

#endif

/// The offset of the first block of up to `blockBytes` + kMostBefore bytes with a flagged element;
/// `bytes` if there is none. There are at least kLeastBytes, aligned to the size of an element. The
/// widest vectors of this processor are used; only the places where blocks end depend on them.
template <std::size_t blockBytes, class Screen>
std::size_t findFlaggedBlock(const Screen& screen, const std::byte* data, std::size_t bytes) {
#if defined(__x86_64__)
  const std::size_t width = widestVector();
  if (width == 64) return findFlaggedBlock512<blockBytes>(screen, data, bytes);
  if (width == 32) return findFlaggedBlock256<blockBytes>(screen, data, bytes);
#endif
  return BlockSearch<16, blockBytes, Screen>(screen, data, bytes).find();
}

}  // namespace graphics::datatype::screens
