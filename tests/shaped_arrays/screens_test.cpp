// The quick scans agree with plain loops over the elements, wherever the blocks end.

#include "shaped/ElementScan.h"
#include "shaped/ElementScreens.h"
#include "shaped_arrays/PlainScan.h"
#include "support/Arrays.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <random>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using namespace graphics::datatype;
using namespace test;

std::string told(const ElementScan& scan) {
  return testing::PrintToString(std::tuple(scan.tests, scan.min, scan.max));
}

const ElementScan kFloatScans[] = {kFinite, kColorMap, kColorOrder, kCurvature, kNormals, kFaces};

template <class T>
bool fails(const ElementScan& scan, T number) {
  return plainFinding(scan, &number, 1).failure != Failure::kNone;
}

template <class T>
void expectAgreement(const ElementScan& scan, const T* elements, std::size_t count) {
  const shaped::ScanFinding found = shaped::runScan(scan, elements, count);
  const Finding plain = plainFinding(scan, elements, count);
  ASSERT_EQ(
      std::tuple(found.failure, found.first, found.deciding),
      std::tuple(plain.failure, plain.firstElement.value_or(0), plain.decidingElement.value_or(0)))
      << told(scan) << ", " << count << " elements of " << sizeof(T) << " bytes";
}

/// Numbers at which a rule or a quick test of it may change its mind.
template <class T>
std::vector<T> criticalNumbers() {
  using Limits = std::numeric_limits<T>;
  std::vector<T> numbers;
  const auto add = [&](std::initializer_list<T> more) {
    for (const T number : more)
      numbers.push_back(number);
  };
  add({0, 1, 2, 5, 6, Limits::min(), Limits::max(), Limits::max() - 1});
  if constexpr (std::is_floating_point_v<T>) {
    add({T(-0.0), T(0.5), T(1.5), Limits::quiet_NaN(), -Limits::quiet_NaN(), Limits::infinity(),
         Limits::denorm_min(), Limits::epsilon(), T(2147483647), T(2147483647.5)});
    for (const T power : {T(0.1), T(1), T(1 << 21), T(1 << 22), T(1 << 23), T(1 << 24), T(0x1p31),
                          T(0x1p51), T(0x1p52), T(0x1p53)})
      add({power, std::nextafter(power, T(0)), std::nextafter(power, T(1e30)), power + T(0.5),
           power + T(1)});
    for (std::size_t i = numbers.size(); i-- > 0;)
      numbers.push_back(-numbers[i]);
  } else if constexpr (std::is_signed_v<T>) {
    add({-1, -2, Limits::min() + 1});
  } else {
    add({Limits::max() / 2, Limits::max() / 2 + 1});
  }
  return numbers;
}

/// Numbers that pass, a few more than `count`, so that they can be read from a place that is not
/// aligned.
template <class T>
std::vector<T> goodNumbers(const ElementScan& scan, std::size_t count) {
  static std::mt19937_64 random{20};
  const bool isBound = scan.has(kRange);
  const double most = isBound ? std::min(scan.max, std::is_integral_v<T> ? 127 : 3e6) : 1e30;
  std::uniform_real_distribution<double> any(isBound ? scan.min : -most, most);
  std::vector<T> numbers(count + 8);
  for (T& number : numbers)
    number = static_cast<T>(scan.has(kWhole32) ? std::floor(any(random)) : any(random));
  return numbers;
}

/// Where blocks may end in `count` elements, and what stands around.
template <class T>
std::vector<std::size_t> criticalPlaces(std::size_t count) {
  std::vector<std::size_t> places;
  const auto add = [&](std::size_t middle, std::size_t around) {
    for (std::size_t at = middle - std::min(middle, around); at <= middle + around; ++at)
      if (at < count) places.push_back(at);
  };
  constexpr std::size_t kVector = 64 / sizeof(T);
  add(0, kVector);
  add(count, kVector);
  constexpr std::size_t kBlock = screens::kLargeBlock / sizeof(T);
  for (std::size_t border = kBlock; border < count; border += kBlock)
    add(border, 2 * kVector);
  return places;
}

template <class T>
void expectAgreements(const ElementScan& scan) {
  std::mt19937_64 random{7};
  const auto any = [&random](const auto& list) { return list[random() % list.size()]; };
  const std::vector<T> critical = criticalNumbers<T>();
  // With a bad number wherever a block may end, or with two critical ones.
  constexpr std::size_t kBlock = screens::kLargeBlock / sizeof(T);
  const T bad = *std::ranges::find_if(critical, [&](T number) { return fails(scan, number); });
  for (const std::size_t count : {kBlock - 1, kBlock + 64 / sizeof(T), 2 * kBlock + 37}) {
    const std::vector<T> good = goodNumbers<T>(scan, count);
    std::vector<T> numbers = good;
    for (const std::size_t offset : {0U, 1U, 5U}) {
      T* const elements = numbers.data() + offset;
      const std::vector<std::size_t> places = criticalPlaces<T>(count);
      for (const std::size_t place : places) {
        const T before = std::exchange(elements[place], bad);
        ASSERT_EQ(shaped::findFailing(scan, elements, count), place) << told(scan);
        elements[place] = before;
      }
      for (int i = 0; i < 60; ++i) {
        elements[any(places)] = any(critical);
        elements[random() % count] = any(critical);
        expectAgreement(scan, elements, count);
        std::ranges::copy(good, numbers.begin());
      }
    }
  }
}

TEST(ElementScans, AgreeWithPlainLoops) {
  for (const ElementScan& scan : kFloatScans) {
    expectAgreements<double>(scan);
    expectAgreements<float>(scan);
  }
  forEachIntegerClass(
      []<class T>(vxClassID, std::type_identity<T>) { expectAgreements<T>(kFaces); });
}

/// Of scans of the types and of any others, with up to four critical numbers.
TEST(ElementScans, AgreeWithPlainLoopsOverFewElementsForRangesThatNoTypeHas) {
  constexpr double kBounds[] = {-kInf, -2, -1.5, -1, -0.5, -0.0, 0, 0.1, 0.5, 1, 1.5, 2, 5, kInf};
  constexpr ElementTest kTests[] = {kSkipNaN, kNotNaN, kWhole32, kNotInf, kRange, kEnd};
  std::mt19937 random{5};
  const auto any = [&random](const auto& list) { return list[random() % std::size(list)]; };
  const auto expectRight = [&]<class T>(vxClassID, std::type_identity<T>) {
    static const std::vector<T> critical = criticalNumbers<T>();
    for (std::size_t round = 0; round < 2000; ++round) {
      ElementScan scan{{any(kTests), kRange, any(kTests)}, any(kBounds), any(kBounds)};
      if (scan.isEmpty()) scan = any(kFloatScans);
      const std::size_t count = 1 + round % 600;
      std::vector<T> numbers(count + 3, random() % 2 ? T(1) : any(critical));
      if (round % 2)
        numbers = goodNumbers<T>(std::is_integral_v<T> ? kFaces : any(kFloatScans), count);
      T* const elements = numbers.data() + random() % 3;
      for (int planted = 0; planted <= 4; ++planted) {
        expectAgreement(scan, elements, count);
        elements[random() % count] = any(critical);
      }
    }
  };
  expectRight(vxDOUBLE_CLASS, std::type_identity<double>());
  expectRight(vxSINGLE_CLASS, std::type_identity<float>());
  forEachIntegerClass(expectRight);
}

/// A screen of each width says "nothing before this block fails", and nothing of good numbers. An
/// exact one says nothing of numbers that pass.
template <std::size_t blockBytes, class T, class Screen>
void expectSoundBlocks(const ElementScan& scan, const Screen& screen, bool isExact) {
  using Find = std::size_t (*)(const Screen&, const std::byte*, std::size_t);
  std::vector<Find> widths = {
      [](const Screen& s, const std::byte* data, std::size_t bytes) {
        return screens::BlockSearch<16, blockBytes, Screen>(s, data, bytes).find();
      },
      screens::findFlaggedBlock<blockBytes, Screen>};
#if defined(__x86_64__)
  if (screens::widestVector() >= 32)
    widths.push_back(screens::findFlaggedBlock256<blockBytes, Screen>);
  if (screens::widestVector() >= 64)
    widths.push_back(screens::findFlaggedBlock512<blockBytes, Screen>);
#endif
  std::mt19937_64 random{11};
  const std::vector<T> critical = criticalNumbers<T>();
  constexpr std::size_t kBlock = screens::kLargeBlock / sizeof(T);
  for (const std::size_t count : {256 / sizeof(T), kBlock + 9, 2 * kBlock + 70}) {
    const std::size_t bytes = count * sizeof(T);
    std::vector<T> numbers = goodNumbers<T>(scan, count);
    T* const elements = numbers.data() + 1;
    const auto* const start = reinterpret_cast<const std::byte*>(elements);
    for (const Find find : widths)
      EXPECT_EQ(find(screen, start, bytes), bytes) << told(scan) << ": good numbers are flagged";
    for (int i = 0; i < 200; ++i) {
      const std::size_t place = random() % count;
      const T before = std::exchange(elements[place], critical[random() % critical.size()]);
      const bool isBad = fails(scan, elements[place]);
      for (const Find find : widths) {
        const std::size_t found = find(screen, start, bytes);
        const std::size_t offset = place * sizeof(T) - found;
        const bool isRight =
            isBad ? offset < blockBytes + screens::kMostBefore : found == bytes || !isExact;
        ASSERT_TRUE(isRight) << told(scan) << " " << elements[place] << " at " << place;
      }
      elements[place] = before;
    }
  }
}

template <class T, class Screen>
void expectSoundScreen(const ElementScan& scan, const Screen& screen, bool isExact = false) {
  expectSoundBlocks<screens::kLargeBlock, T>(scan, screen, isExact);
  expectSoundBlocks<screens::kSmallBlock, T>(scan, screen, isExact);
}

template <class T>
void expectSoundFloatScreens() {
  using Range = screens::RangeScreen<T>;
  using Whole = screens::WholeRangeScreen<T>;
  using screens::Exact;
  constexpr T kMax = std::numeric_limits<T>::max();
  expectSoundScreen<T>(kFinite, Range(-kMax, kMax));
  expectSoundScreen<T>(kFinite, Exact<Range>(-kMax, kMax, false), true);
  expectSoundScreen<T>(kColorMap, Range(0, 1));
  expectSoundScreen<T>(kColorMap, Exact<Range>(0, 1, true), true);
  expectSoundScreen<T>(kColorOrder, Exact<Range>(0, 1, false), true);
  expectSoundScreen<T>(kNormals, Range(-1, 1));
  const T largest = std::min<T>(T(2147483647), screens::kMostRounded<T>);
  expectSoundScreen<T>(kFaces, Whole(1, largest));
  // Single numbers above what is rounded are flagged, whole or not.
  expectSoundScreen<T>(kFaces, Exact<Whole>(1, largest, true), std::is_same_v<T, double>);
}

TEST(ElementScreens, OfEachWidthLeaveNoFailingNumberUnflagged) {
  expectSoundFloatScreens<double>();
  expectSoundFloatScreens<float>();
  forEachIntegerClass([]<class T>(vxClassID, std::type_identity<T>) {
    expectSoundScreen<T>(kFaces, screens::CountingScreen<T>(), true);
  });
}

}  // namespace
