// Measures the validity tests of the shaped array types, all contenders in turns, and prints how
// they stand against each.

#include "../common/Comparisons.h"
#include "PlainTests.h"
#include "Subject.h"
#include "WidestSum.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace {

using arrays::Place;
using arrays::Subject;
using measuring::Goal;
using measuring::measure;

struct Size {
  const char* name;
  std::size_t count;
  double shareOfSum;  ///< what the library shall reach of the speed of the sum
  Goal againstPlain;
  Goal invalid;  ///< what elements that are not valid may take of the time of valid ones
  Goal nans;
};
const Size kSmall{"1e3", 1'000, 0.3, Goal::kNone, Goal::kNone, Goal::kNone};
const Size kMiddle{"1e5", 100'000, 0.6, Goal::atLeast(4), Goal::atMost(2), Goal::atMost(3)};
const Size kLarge{"1e7", 10'000'000, 0.9, Goal::kNone, Goal::atMost(2), Goal::atMost(3)};

/// For times that are not to depend on the size.
constexpr Goal kSameTime = Goal::atMost(1.5);

/// Where a NaN is put in each of the parts that the library may look at together.
constexpr std::size_t kBytesForNaN = 4096;

template <class Rules>
std::string nameOfTest(const Subject<Rules>& subject) {
  return subject.name() + "/isValid";
}

/// Where memcpy copies to.
std::byte* room() {
  static std::vector<std::byte> room(kLarge.count * sizeof(double));
  return room.data();
}

/// The test of valid elements against other ways to pass over them.
template <class Rules>
void addSpeeds(Subject<Rules>& subject, const Size& size) {
  const std::string ours = nameOfTest(subject);
  arrays::verifyTest(subject, ours, [&subject] { return subject.isValid(); });
  measure(ours, [&subject] { return subject.isValid(); });

  const auto compete = [&](const std::string& contender, Goal goal, auto operation) {
    const std::string other = subject.name() + '/' + contender;
    measure(other, operation);
    measuring::compareSpeeds({subject.name(), contender, ours, other, goal}, subject.bytes());
  };
  for (const auto& test : arrays::plainTests<Rules>()) {
    const auto isValid = [&subject, test] {
      return test.isValid(subject.elements(), subject.count());
    };
    arrays::verifyTest(subject, test.name, isValid);
    const bool isSearch = std::string_view(test.name) == arrays::kZeroSearch;
    compete(test.name, isSearch ? Goal::atLeast(1) : size.againstPlain, isValid);
  }
  compete("memcpy", Goal::kNone,
          [&subject] { return std::memcpy(room(), subject.elements(), subject.bytes()); });
  const auto sum = [&subject] { return arrays::widestSum(subject.elements(), subject.count()); };
  arrays::verifySum(subject, sum());
  compete("sum", Goal::atLeast(size.shareOfSum * Rules::kShareOfGoal), sum);
}

/// Changes elements for as long as it lives.
template <class Rules, class Change>
class Changed {
 public:
  Changed(const Subject<Rules>& subject, Change change) : subject_(subject) {
    change(subject.data().elements());
  }
  Changed(const Changed&) = delete;
  Changed& operator=(const Changed&) = delete;
  ~Changed() { subject_.data().fill(); }

 private:
  const Subject<Rules>& subject_;
};

/// The test of elements that are changed before, against that of valid ones.
template <class Rules, class Change>
void addChanged(Subject<Rules>& subject, const std::string& how, bool isValid, Goal goal,
                Change change) {
  const std::string name = nameOfTest(subject) + '/' + how;
  const auto makeChanged = [&subject, change] { return Changed(subject, change); };
  if (const auto changed = makeChanged(); subject.isValid() != isValid)
    measuring::fail(name + " is wrong");
  measure(name, makeChanged, [&subject](const auto&) { return subject.isValid(); });
  measuring::compareTimes({name, "valid", name, nameOfTest(subject), goal});
}

template <class Rules>
void addAllChanged(Subject<Rules>& subject, const Size& size) {
  addChanged(subject, "lastInvalid", false, size.invalid,
             [](auto elements) { elements.back() = Rules::kInvalid.front(); });
  addChanged(subject, "allInvalid", false, size.invalid,
             [](auto elements) { std::ranges::fill(elements, Rules::kInvalid.front()); });
  if constexpr (Rules::kTakesNaN)
    addChanged(subject, "NaNs", true, size.nans, [](auto elements) {
      for (std::size_t i = 0; i < elements.size(); i += kBytesForNaN / sizeof elements[0])
        elements[i] = arrays::kNaN;
    });
}

/// What shall not depend on the size of the array: the larger one against the smaller one.
template <class Rules, class Operation>
void addWithValues(const Subject<Rules>& smaller, const Subject<Rules>& larger,
                   const std::string& work, Operation operation) {
  const auto add = [&](const Subject<Rules>& subject) {
    const auto makeValue = [&subject] { return typename Rules::Value(subject.data().array()); };
    const std::string name = subject.name() + '/' + work;
    measure(name, makeValue, operation);
    return name;
  };
  const std::string other = add(smaller);
  const std::string ours = add(larger);
  measuring::compareTimes({ours, "smaller", ours, other, kSameTime});
}

template <class Rules>
Subject<Rules>& makeSubject(const Size& size, Place place) {
  static std::vector<std::unique_ptr<Subject<Rules>>> subjects;
  subjects.push_back(std::make_unique<Subject<Rules>>(size.name, size.count, place));
  return *subjects.back();
}

/// Returns the array at the usual place.
template <class Rules>
const Subject<Rules>& addSize(const Size& size) {
  addSpeeds(makeSubject<Rules>(size, Place::kAligned), size);
  Subject<Rules>& usual = makeSubject<Rules>(size, Place::kUsual);
  addSpeeds(usual, size);
  addAllChanged(usual, size);
  return usual;
}

template <class Rules>
void addType() {
  using Value = typename Rules::Value;
  addSize<Rules>(kSmall);
  const Subject<Rules>& middle = addSize<Rules>(kMiddle);
  const Subject<Rules>& large = addSize<Rules>(kLarge);
  addWithValues(middle, large, "copy",
                [](const Value& value) { return Value(value).getPtr() != nullptr; });
  addWithValues(middle, large, "equals", [](const Value& value) { return value == value; });
}

}  // namespace

int main(int argc, char** argv) {
  arrays::prepareMemory();
  measuring::takeArguments(argc, argv);
  addType<arrays::ColorMapRules>();
  addType<arrays::PrimitiveVertexDataRules>();
  addType<arrays::PrimitiveVertexIndicesRules>();
  addType<arrays::PatchFacesRules>();
  measuring::printComparisons(measuring::runBenchmarks());
}
