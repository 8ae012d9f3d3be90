#pragma once

#include "../common/measuring.h"
#include "HostData.h"

#include <messages/BaseMsgID.h>
#include <boost/shared_ptr.hpp>

#include <cmath>
#include <concepts>
#include <cstdlib>
#include <numeric>
#include <string>
#include <utility>

namespace arrays {

/// An array, and the value that is asked whether it may hold it.
template <class Rules>
class Subject {
 public:
  using Element = typename Rules::Element;

  Subject(const std::string& size, std::size_t count, Place place)
      : data_(count, place),
        name_(std::string(Rules::kName) + '/' + size + '/' +
              (place == Place::kAligned ? "aligned" : "usual")) {}

  const std::string& name() const { return name_; }
  const HostData<Rules>& data() const { return data_; }
  const Element* elements() const { return data_.elements().data(); }
  std::size_t count() const { return data_.elements().size(); }
  std::size_t bytes() const { return data_.elements().size_bytes(); }

  bool isValid() { return value_.isValid(data_.array(), message_); }

 private:
  HostData<Rules> data_;
  std::string name_;
  typename Rules::Value value_;
  boost::shared_ptr<resource_core::BaseMsgID> message_;
};

/// The places of a wrong element that a test is verified with: all of a small array.
inline std::size_t stepBetweenPlaces(std::size_t count) {
  return count > 10'000 ? (count - 1) / 2 : 1;
}

/// Fails unless `test()` is right about the subject: as it is, with one invalid element, and with a
/// NaN.
template <class Rules, class Test>
void verifyTest(const Subject<Rules>& subject, const std::string& contender, Test test) {
  const auto expect = [&](bool wanted, const std::string& how) {
    if (test() != wanted)
      measuring::fail(contender + " is wrong about " + subject.name() + ' ' + how);
  };
  const auto expectWith = [&](auto element, bool wanted) {
    for (std::size_t i = 0; i < subject.count(); i += stepBetweenPlaces(subject.count())) {
      auto& place = subject.data().elements()[i];
      const auto valid = std::exchange(place, element);
      expect(wanted, "with " + std::to_string(element) + " at " + std::to_string(i));
      place = valid;
    }
  };
  expect(true, "without an invalid element");
  for (const auto invalid : Rules::kInvalid)
    expectWith(invalid, false);
  if constexpr (Rules::kTakesNaN) expectWith(typename Rules::Element{kNaN}, true);
}

/// Fails unless the number is the sum of the elements, to what rounding may do to it.
template <class Rules>
void verifySum(const Subject<Rules>& subject, typename Rules::Element sum) {
  const auto elements = subject.data().elements();
  bool isRight = false;
  if constexpr (std::integral<typename Rules::Element>) {
    isRight = sum == std::reduce(elements.begin(), elements.end());
  } else {
    double exact = 0;
    double magnitude = 0;
    for (const double element : elements) {
      exact += element;
      magnitude += std::abs(element);
    }
    isRight = std::abs(sum - exact) <= 1e-5 * magnitude;
  }
  if (!isRight) measuring::fail("the sum of " + subject.name() + " is wrong");
}

}  // namespace arrays
