#pragma once

/// The words of which the columns of shaped_types.def are made.

#include <graphics/datatype/shaped_rules.h>
#include <messages/catalog.h>

#include <limits>
#include <type_traits>

namespace graphics::datatype::shaped {

inline constexpr bool kTakesEmpty = true;
inline constexpr bool kTestsEmpty = false;
using enum Stored;

struct Form {
  bool refusesSparse;
  bool refusesComplex;
};
inline constexpr Form kAnyForm{false, false};
inline constexpr Form kFull{true, false};
inline constexpr Form kReal{false, true};
inline constexpr Form kFullReal{true, true};

inline constexpr std::size_t kAny = SizeRule::kAny;
inline constexpr SizeRule kPair{.kind = SizeRule::Kind::kPair};
inline constexpr SizeRule kVector{.kind = SizeRule::Kind::kVector};
constexpr SizeRule matrix(std::size_t m, std::size_t n) {
  return {.numberOfDimensions = 2, .m = m, .n = n};
}
constexpr SizeRule pages(std::size_t m, std::size_t third) {
  return {.numberOfDimensions = 3, .m = m, .third = third};
}

inline constexpr ClassSet kDouble(vxDOUBLE_CLASS);
inline constexpr ClassSet kSingle(vxSINGLE_CLASS);
inline constexpr ClassSet kUint8(vxUINT8_CLASS);
inline constexpr ClassSet kUint32(vxUINT32_CLASS);
inline constexpr ClassSet kFloat = kDouble | kSingle;
inline constexpr ClassSet kNumeric(vg::kNumericClasses);
inline constexpr ClassSet kNumericOrLogical = kNumeric | ClassSet(vxLOGICAL_CLASS);

inline constexpr double kInfinity = std::numeric_limits<double>::infinity();
using enum ElementTest;

/// The test kRange with its numbers and its message.
struct RangeTest {
  double min;
  double max;
  NewMessage newMessage;
  std::string_view identifier;
};

template <class Message>
resource_core::BaseMsgID* newMessage() {
  return new Message;
}

template <class Message>
constexpr RangeTest range(double min, double max) {
  return {min, max, newMessage<Message>, Message::kDefinition.identifier};
}

/// The last column of a predicate.
struct Elements {
  ElementScan scan;
  WholeArrayRule rule = WholeArrayRule::kNone;
  NewMessage newOwnMessage = nullptr;
  std::string_view ownIdentifier{};
};
inline constexpr Elements kNoRule{};

template <class... Tests>
constexpr Elements ungated(Tests... tests) {
  Elements elements;
  std::size_t count = 0;
  const auto add = [&](auto test) {
    if constexpr (std::is_same_v<decltype(test), RangeTest>) {
      elements.scan.min = test.min;
      elements.scan.max = test.max;
      elements.newOwnMessage = test.newMessage;
      elements.ownIdentifier = test.identifier;
      elements.scan.tests[count++] = kRange;
    } else {
      elements.scan.tests[count++] = test;
    }
  };
  (add(tests), ...);
  return elements;
}

template <class... Tests>
constexpr Elements gated(Tests... tests) {
  Elements elements = ungated(tests...);
  elements.scan.gated = true;
  return elements;
}

template <class Message>
constexpr Elements rule(WholeArrayRule wholeArrayRule) {
  return {.scan = {},
          .rule = wholeArrayRule,
          .newOwnMessage = newMessage<Message>,
          .ownIdentifier = Message::kDefinition.identifier};
}

constexpr Predicate predicate(const char* name, Form form, SizeRule size, ClassSet classes,
                              Elements elements) {
  return {name,    form.refusesSparse, form.refusesComplex, size,
          classes, elements.scan,      elements.rule,       elements.newOwnMessage};
}

}  // namespace graphics::datatype::shaped
