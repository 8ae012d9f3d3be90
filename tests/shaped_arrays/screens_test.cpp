// The quick scans agree with plain loops over the elements, wherever the blocks end.

#include "shaped/ElementScan.h"
#include "shaped/ElementScreens.h"
#include "support/Arrays.h"

#include <graphics/datatype/shaped_rules.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <random>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using namespace graphics::datatype;
using shaped::Failure;

/// What one element does to a scan: it may be out of range, and it may end the scan.
struct Step {
  bool isOutOfRange = false;
  Failure end = Failure::kNone;
};

Step finite(double x) {
  if (std::isnan(x)) return {false, Failure::kNaN};
  return {false, std::isinf(x) ? Failure::kInf : Failure::kNone};
}
Step colorMap(double x) {
  if (std::isnan(x)) return {};
  return {x < 0 || x > 1, std::isinf(x) ? Failure::kInf : Failure::kNone};
}
Step colorOrder(double x) {
  return {x < 0 || x > 1, finite(x).end};
}
Step curvature(double x) {
  return {x < 0 || x > 1, std::isnan(x) ? Failure::kNaN : Failure::kNone};
}
Step normals(double x) {
  return {x < -1 || x > 1, finite(x).end};
}
Step counting(double x) {
  return {x < 1};
}
Step faces(double x) {
  if (std::isnan(x)) return {};
  const bool isInt32 = x >= -2147483648.0 && x <= 2147483647.0 && std::trunc(x) == x;
  return {x < 1, isInt32 ? Failure::kNone : Failure::kType};
}

/// A scan in use, its rule in plain words, and the numbers that pass it.
struct Scan {
  const char* type;
  Step (*step)(double x);
  double lowest;
  double highest;
  bool isWhole = false;
};

const Scan kFloatScans[] = {
    {"AxesView", finite, -1e30, 1e30},        {"ColorMap", colorMap, 0, 1},
    {"ColorOrder", colorOrder, 0, 1},         {"Curvature", curvature, 0, 1},
    {"PrimitiveNormalsData", normals, -1, 1}, {"PatchFaces", faces, 1, 3e6, true},
};
const Scan kIntegerScan{"PatchFaces", counting, 1, 127, true};

const shaped::ElementScan& scanOf(const Scan& scan) {
  return shaped::findShapedType(scan.type)->predicates.front().scan;
}

bool fails(const Scan& scan, double number) {
  const Step step = scan.step(number);
  return step.isOutOfRange || step.end != Failure::kNone;
}

template <class T>
void expectAgreement(const Scan& scan, const T* elements, std::size_t count) {
  std::size_t first = count;
  Failure failure = Failure::kNone;
  for (std::size_t i = 0; i < count; ++i) {
    const Step step = scan.step(static_cast<double>(elements[i]));
    if (step.isOutOfRange) failure = Failure::kRange;
    if (step.end != Failure::kNone) failure = step.end;
    if (failure != Failure::kNone) first = std::min(first, i);
    if (step.end != Failure::kNone) break;
  }
  const shaped::ScanFinding found = shaped::runScan(scanOf(scan), elements, count);
  ASSERT_EQ(found.failure, failure)
      << scan.type << ", " << count << " elements of " << sizeof(T) << " bytes";
  ASSERT_EQ(failure == Failure::kNone ? count : found.first, first) << scan.type;
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
  add({0, 1, 2, Limits::min(), Limits::max(), Limits::max() - 1});
  if constexpr (std::is_floating_point_v<T>) {
    add({T(-0.0), T(0.5), T(1.5), Limits::quiet_NaN(), -Limits::quiet_NaN(), Limits::infinity(),
         Limits::denorm_min(), Limits::epsilon(), T(2147483647), T(2147483647.5)});
    for (const T power : {T(1), T(1 << 21), T(1 << 22), T(1 << 23), T(1 << 24), T(0x1p31),
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

/// A few more than `count`, so that they can be read from a place that is not aligned.
template <class T>
std::vector<T> goodNumbers(const Scan& scan, std::size_t count) {
  static std::mt19937_64 random{20};
  std::uniform_real_distribution<double> any(scan.lowest, scan.highest);
  std::vector<T> numbers(count + 8);
  for (T& number : numbers)
    number = static_cast<T>(scan.isWhole ? std::floor(any(random)) : any(random));
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
void expectAgreements(const Scan& scan) {
  std::mt19937_64 random{7};
  const auto below = [&](std::size_t count) { return random() % count; };
  const std::vector<T> critical = criticalNumbers<T>();
  const auto anyCritical = [&] { return critical[below(critical.size())]; };
  // Short ones, with up to four critical numbers.
  for (std::size_t count = 1; count <= 600; ++count) {
    std::vector<T> numbers = goodNumbers<T>(scan, count);
    T* const elements = numbers.data() + count % 3;
    for (int planted = 0; planted <= 4; ++planted) {
      expectAgreement(scan, elements, count);
      elements[below(count)] = anyCritical();
    }
  }
  // Long ones, with a bad number wherever a block may end, or with two critical ones.
  constexpr std::size_t kBlock = screens::kLargeBlock / sizeof(T);
  const T bad = *std::ranges::find_if(
      critical, [&](T number) { return fails(scan, static_cast<double>(number)); });
  for (const std::size_t count : {kBlock - 1, kBlock + 64 / sizeof(T), 2 * kBlock + 37}) {
    std::vector<T> numbers = goodNumbers<T>(scan, count);
    for (const std::size_t offset : {0U, 1U, 5U}) {
      T* const elements = numbers.data() + offset;
      const std::vector<std::size_t> places = criticalPlaces<T>(count);
      for (const std::size_t place : places) {
        const T before = std::exchange(elements[place], bad);
        ASSERT_EQ(shaped::findFailing(scanOf(scan), elements, count), place) << scan.type;
        elements[place] = before;
      }
      for (int i = 0; i < 60; ++i) {
        T& first = elements[places[below(places.size())]];
        T& second = elements[below(count)];
        const T before[] = {first, second};
        first = anyCritical();
        second = anyCritical();
        expectAgreement(scan, elements, count);
        second = before[1];
        first = before[0];
      }
    }
  }
}

TEST(ElementScans, AgreeWithPlainLoopsOverFloats) {
  for (const Scan& scan : kFloatScans) {
    expectAgreements<double>(scan);
    expectAgreements<float>(scan);
  }
}

TEST(ElementScans, AgreeWithPlainLoopsOverIntegers) {
  test::forEachIntegerClass(
      []<class T>(vxClassID, std::type_identity<T>) { expectAgreements<T>(kIntegerScan); });
}

/// A screen of each width says "nothing before this block fails", and nothing of good numbers. An
/// exact one says nothing of numbers that pass.
template <std::size_t blockBytes, class T, class Screen>
void expectSoundBlocks(const Scan& scan, const Screen& screen, bool isExact) {
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
      EXPECT_EQ(find(screen, start, bytes), bytes) << scan.type << ": good numbers are flagged";
    for (int i = 0; i < 200; ++i) {
      const std::size_t place = random() % count;
      const T before = std::exchange(elements[place], critical[random() % critical.size()]);
      const bool isBad = fails(scan, static_cast<double>(elements[place]));
      for (const Find find : widths) {
        const std::size_t found = find(screen, start, bytes);
        const std::size_t offset = place * sizeof(T) - found;
        ASSERT_TRUE(offset < blockBytes + screens::kMostBefore || !isBad)
            << scan.type << " " << place << " of " << count;
        if (isExact && !isBad) {
          ASSERT_EQ(found, bytes) << scan.type << " " << elements[place];
        }
      }
      elements[place] = before;
    }
  }
}

template <class T, class Screen>
void expectSoundScreen(const Scan& scan, const Screen& screen, bool isExact = false) {
  expectSoundBlocks<screens::kLargeBlock, T>(scan, screen, isExact);
  expectSoundBlocks<screens::kSmallBlock, T>(scan, screen, isExact);
}

template <class T>
void expectSoundFloatScreens() {
  using Range = screens::RangeScreen<T>;
  using Whole = screens::WholeRangeScreen<T>;
  using screens::Exact;
  constexpr T kMax = std::numeric_limits<T>::max();
  expectSoundScreen<T>(kFloatScans[0], Range(-kMax, kMax));
  expectSoundScreen<T>(kFloatScans[0], Exact<Range>(-kMax, kMax, false), true);
  expectSoundScreen<T>(kFloatScans[1], Range(0, 1));
  expectSoundScreen<T>(kFloatScans[1], Exact<Range>(0, 1, true), true);
  expectSoundScreen<T>(kFloatScans[2], Exact<Range>(0, 1, false), true);
  expectSoundScreen<T>(kFloatScans[4], Range(-1, 1));
  const T largest = std::min<T>(T(2147483647), screens::kMostRounded<T>);
  expectSoundScreen<T>(kFloatScans[5], Whole(1, largest));
  // Single numbers above what is rounded are flagged, whole or not.
  expectSoundScreen<T>(kFloatScans[5], Exact<Whole>(1, largest, true), std::is_same_v<T, double>);
}

TEST(ElementScreens, OfEachWidthLeaveNoFailingNumberUnflagged) {
  expectSoundFloatScreens<double>();
  expectSoundFloatScreens<float>();
  test::forEachIntegerClass([]<class T>(vxClassID, std::type_identity<T>) {
    expectSoundScreen<T>(kIntegerScan, screens::CountingScreen<T>(), true);
  });
}

}  // namespace
