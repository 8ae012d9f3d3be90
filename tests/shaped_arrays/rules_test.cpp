// Rules for all elements together, what reads limits and ticks, and the dispatch by class.

#include "support/Arrays.h"
#include "support/HostError.h"

#include <graphics/datatype/TickData.h>
#include <graphics/datatype/limits.h>
#include <graphics/datatype/shaped_types.h>
#include <gtest/gtest.h>
#include <vg/ArrayDispatcher.h>

#include <algorithm>
#include <concepts>
#include <cstdint>
#include <limits>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using namespace graphics::datatype;
using shaped::WholeArrayRule;
using test::array;
using test::Numbers;

constexpr double kNaN = NAN;
constexpr double kInf = INFINITY;

constexpr int kHolds = -1;

/// Where numbers break a rule, as told of doubles, of singles and by its functions of a type.
#define FLOAT_RULE(kRule, Rule)                                                            \
  [](const Numbers& numbers) {                                                             \
    const std::vector<float> floats(numbers.begin(), numbers.end());                       \
    const auto breach = findBreach(WholeArrayRule::kRule, numbers.data(), numbers.size()); \
    EXPECT_EQ(findBreach(WholeArrayRule::kRule, floats.data(), floats.size()), breach);    \
    EXPECT_EQ(Rule(numbers.data(), numbers.size()), !breach) << #Rule;                     \
    EXPECT_EQ(Rule(floats.data(), floats.size()), !breach) << #Rule;                       \
    return breach ? static_cast<int>(*breach) : kHolds;                                    \
  }

TEST(Rules, OfFloats) {
  using Rule = int (*)(const Numbers&);
  const Rule dataBounds = FLOAT_RULE(kNotDecreasing, DataBounds::isEqualOrIncreasing);
  const Rule limits = FLOAT_RULE(kIncreasing, Limits::isIncreasing);
  const Rule withInfs = FLOAT_RULE(kIncreasingWithInfs, LimitsWithInfs::isIncreasing);
  const Rule normalized = FLOAT_RULE(kNormalized, NColorPtr::isNormalized);
  const Rule horizontal = FLOAT_RULE(kTicks, Tick::isHorizontalIncreasing);
  const Rule vertical = FLOAT_RULE(kTicks, Tick::isVerticalIncreasing);
  const struct {
    std::vector<Rule> rules;
    std::vector<std::pair<Numbers, std::vector<int>>>
        cases;  ///< a breach for each rule, the last for the rest
  } tables[] = {
      // clang-format off
      {{dataBounds, limits, withInfs}, {
          {{1, 2}, {kHolds}},                   {{1, 1}, {kHolds, 1}},       {{2, 1}, {1}},
          {{-0.0, 0.0}, {kHolds, 1}},           {{kInf, -kInf}, {1, 0, 1}},  {{1, kNaN}, {1}},
          {{0, kInf}, {kHolds, 1, kHolds}},     {{kInf, kInf}, {1, 0, 1}},   {{kNaN, 1}, {0}},
          {{-kInf, kInf}, {1, 0, kHolds}},      {{1, 2, 3}, {3}},            {{1}, {1}},
          {{-kInf, 0}, {kHolds, 0, kHolds}},    {{}, {0}}}},
      {{normalized}, {
          {{}, {kHolds}},            {{0, 1, 0.5}, {kHolds}},        {{kNaN, -0.0, kNaN}, {kHolds}},
          {{0, 1}, {2}},             {{0, 0, 0, 1}, {4}},            {{0, 0, 0, 1, 1, 1}, {kHolds}},
          {{0, 0, -1e-30}, {2}},     {{1, 1.0000001, 1}, {1}},       {{1, 1, kInf}, {2}},
          {{-kInf, 1, 1}, {0}}}},
      {{horizontal, vertical}, {
          {{kNaN}, {kHolds}},       {{-kInf, 0, kInf}, {kHolds}},  {{1, 2, 3}, {kHolds}},
          {{kInf}, {kHolds}},       {{0, kInf}, {kHolds}},         {{-kInf, kInf}, {1}},
          {{1, 1}, {1}},            {{2, 1}, {1}},                 {{0, kNaN}, {1}},
          {{kNaN, 0}, {0}},         {{0, 1, kNaN}, {2}},           {{0, 1, kNaN, 2}, {2}},
          {{0, 1, 1}, {2}},         {{1, 2, kInf, kInf}, {3}}}},
      // clang-format on
  };
  for (const auto& [rules, cases] : tables)
    for (const auto& [numbers, breaches] : cases)
      for (std::size_t i = 0; i < rules.size(); ++i)
        EXPECT_EQ(rules[i](numbers), breaches[std::min(i, breaches.size() - 1)])
            << i << testing::PrintToString(numbers);
  const double number = 0;
  for (const std::size_t count : {0U, 1U, 2U})
    EXPECT_FALSE(Tick::isHorizontalIncreasing(static_cast<const double*>(nullptr), count));
  EXPECT_TRUE(Tick::isVerticalIncreasing(&number, 0));
}

TEST(Rules, CompareIntegersInTheirOwnType) {
  test::forEachIntegerClass([]<class T>(vxClassID, std::type_identity<T>) {
    constexpr T kMin = std::numeric_limits<T>::min();
    constexpr T kMax = std::numeric_limits<T>::max();
    constexpr T kBefore = kMax - 1;  // the same as a double, where there are 64 bits
    const std::pair<std::vector<T>, bool> rows[] = {
        {{0, 1}, true},          {{1, 1}, false},       {{kMin, kMax}, true}, {{kMax, kMin}, false},
        {{kBefore, kMax}, true}, {{kMax, kMax}, false}, {{0}, false},         {{0, 1, 2}, false}};
    for (const auto& [numbers, holds] : rows) {
      EXPECT_EQ(Limits::isIncreasing(numbers.data(), numbers.size()), holds);
      EXPECT_EQ(LimitsWithInfs::isIncreasing(numbers.data(), numbers.size()), holds);
    }
  });
}

TEST(TickData, GoesThroughTheRuleAndBack) {
  const Numbers rising = {-kInf, 0.1, 2, kInf};
  const Tick tick = convertVectorToTickData(rising);
  EXPECT_EQ(test::sizeOf(tick.getPtr()), (test::Size{1, 4}));
  EXPECT_EQ(vxGetClassID(tick.getPtr()), vxDOUBLE_CLASS);
  EXPECT_EQ(convertTickDataToVector(tick), rising);
  EXPECT_EQ(convertVectorToTickData({}).getPtr(), nullptr);
  EXPECT_EQ(convertTickDataToVector(Tick()), Numbers());
  EXPECT_EQ(convertTickDataToVector(Tick(array("0x3 uint8").get())), Numbers());
  EXPECT_EQ(convertTickDataToVector(Tick(array("2x1 single", {0.1, 5}).get())),
            (Numbers{double{0.1F}, 5}));
  const std::size_t arrays = vghost::liveArrays();
  EXPECT_EQ(test::identifierRaisedBy([] {
              convertVectorToTickData({1, 1});
            }),
            "VORTIL:vg:shaped_arrays:TickPredicate");
  EXPECT_EQ(vghost::liveArrays(), arrays);
}

template <class Value>
Numbers limitsOf(const test::ArrayOwner& array) {
  Numbers out = {-7, -7};
  EXPECT_TRUE(getLim(out.data(), Value(array.get())));
  return out;
}

TEST(GetLim, ReadsTwoNumbersOfAnyNumericClass) {
  for (const char* className : {"double", "single", "int8", "uint8", "int16", "uint16", "int32",
                                "uint32", "int64", "uint64"}) {
    const auto pair = array(std::string("2x1 ") + className, {3, 100});
    EXPECT_EQ(limitsOf<Limits>(pair), (Numbers{3, 100})) << className;
    EXPECT_EQ(limitsOf<LimitsWithInfs>(pair), (Numbers{3, 100})) << className;
  }
  EXPECT_EQ(limitsOf<Limits>(array("1x2 int16", {-300, -1})), (Numbers{-300, -1}));
  EXPECT_EQ(limitsOf<LimitsWithInfs>(array("1x2 single", {-kInf, kInf})), (Numbers{-kInf, kInf}));
  const auto large = array("1x2 int64");
  auto* integers = static_cast<std::int64_t*>(vxGetWritableData(large.get()));
  integers[0] = (std::int64_t{1} << 53) + 1;  // doubles have no such number
  integers[1] = integers[0] + 1;
  EXPECT_EQ(limitsOf<Limits>(large), (Numbers{0x1p53, 0x1p53 + 2}));
  EXPECT_EQ(limitsOf<Limits>(array("1x2 uint64", {0, 0x1p63})), (Numbers{0, 0x1p63}));
}

TEST(GetLim, NeedsAnArrayOfTwo) {
  Numbers out = {-7, -7};
  EXPECT_THROW(getLim(out.data(), Limits()), gui_objects::ArrayException);
  EXPECT_THROW(getLim(out.data(), LimitsWithInfs()), gui_objects::ArrayException);
  EXPECT_EQ(out, (Numbers{-7, -7}));
  limits::ConvertExecutor executor;
  using Double = vg::MatrixTraits<vxDOUBLE_CLASS>;
  EXPECT_THROW(executor.run<Double>(nullptr), gui_objects::NullArrayException);
  EXPECT_THROW(executor.run<Double>(array("0x2 double").get()), gui_objects::NullArrayException);
  EXPECT_THROW(executor.run<Double>(array("1x3 double").get()),
               gui_objects::InvalidArrayClassException);
  EXPECT_THROW(executor.onError(vxCHAR_CLASS), gui_objects::InvalidArrayClassException);
  executor.setData(out.data());
  EXPECT_EQ(out, (Numbers{0, 1}));
}

/// Remembers which of its operations was called.
struct Recorder {
  vxClassID ran = {};
  vxClassID failed = {};
  std::size_t elementSize = 0;

  template <class Traits>
  void run(const vxArray*) {
    ran = Traits::kClassID;
    elementSize = sizeof(typename Traits::ElementType);
  }
  void onError(vxClassID classID) { failed = classID; }
};

TEST(ArrayDispatcher, CallsTheOperationOfTheClassOrOnError) {
  using vg::TL::Typelist;
  using List =
      Typelist<vg::MatrixTraits<7>,
               Typelist<vg::MatrixTraits<11>, Typelist<vg::MatrixTraits<14>, vg::TL::NullType>>>;
  using Base = vg::TL::detail::ArrayDispatcherBase;
  const std::pair<const char*, std::size_t> rows[] = {{"single", 4},  {"uint16", 2}, {"int64", 8},
                                                      {"logical", 0}, {"char", 0},   {"double", 0},
                                                      {"uint64", 0},  {"cell", 0}};
  for (const auto& [className, elementSize] : rows) {
    const auto given = array(std::string("1x1 ") + className);
    const vxClassID classID = Base::getClassID(given.get());
    EXPECT_EQ(classID, vxGetClassID(given.get()));
    Recorder recorder;
    vg::TL::ArrayDispatcher<Recorder, List>::dispatchHelper(given.get(), classID, recorder);
    const bool runs = elementSize != 0;
    EXPECT_EQ(std::tuple(recorder.elementSize, recorder.ran, recorder.failed),
              std::tuple(elementSize, runs ? classID : vxClassID{}, runs ? vxClassID{} : classID))
        << className;
  }
  static_assert(std::same_as<vg::MatrixTraits<3>::ElementType, bool>);
  static_assert(std::same_as<vg::MatrixTraits<4>::ElementType, vxChar>);
}

TEST(Rules, AreNotAskedOfElementsThatHaveEndedTheScan) {
  shaped::Predicate predicate = shaped::findShapedType("Tick")->predicates.front();
  predicate.scan.tests = {shaped::ElementTest::kNotNaN};
  const auto given = test::array("1x3 double", {2, 1, NAN});
  EXPECT_EQ(shaped::examine(predicate, given.get()).failure, shaped::Failure::kNaN);
}

}  // namespace
