// What the messages of the shaped types tell a user agrees with the rows of the types.

#include "registry/ShapedTypes.h"

#include <graphics/datatype/shaped_rules.h>
#include <gtest/gtest.h>
#include <messages/BaseMsgID.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <regex>
#include <set>
#include <string>

namespace {

using namespace graphics::datatype::shaped;
using Facts = std::set<std::string>;

/// Of all messages of a type, or of its rows.
struct Told {
  Facts classes;
  Facts shapes;  ///< "1-by-*" for a row
  Facts bounds;  ///< "from 0 to 1", "from 1"

  void read(NewMessage newMessage) {
    const std::unique_ptr<const resource_core::BaseMsgID> message(newMessage());
    const std::string text = message->definition().english;
    const auto says = [&text](const std::string& words) {
      return std::regex_search(text, std::regex("\\b" + words + "\\b"));
    };
    for (int classID = vxCELL_CLASS; classID <= vxOBJECT_CLASS; ++classID) {
      const std::string name = vxClassName(vxClassID(classID));
      const bool isInteger = classID >= vxINT8_CLASS && classID <= vxUINT64_CLASS;
      if (says(name) || (isInteger && says("integer class"))) classes.insert(name);
    }
    const auto collect = [&text](Facts& facts, const char* words) {
      const std::regex regex(words);
      for (std::sregex_iterator at(text.begin(), text.end(), regex), end; at != end; ++at)
        facts.insert(std::regex_replace(at->str(), std::regex("\\b[a-z]\\b"), "*"));
    };
    collect(bounds, "from -?[0-9]+( to -?[0-9]+)?");
    collect(shapes, "\\w+(-by-\\w+)+");
    if (says("one value")) shapes.insert("1-by-1");
    if (says("\\w+-by-\\w+")) return;
    if (says("a row")) shapes.insert("1-by-*");
    if (says("a column")) shapes.insert("*-by-1");
    if (says("a matrix")) shapes.insert("*-by-*");
  }

  void read(const Predicate& predicate) {
    for (int classID = vxCELL_CLASS; classID <= vxOBJECT_CLASS; ++classID)
      if (predicate.classes.contains(vxClassID(classID)))
        classes.insert(vxClassName(vxClassID(classID)));
    const SizeRule& size = predicate.size;
    const auto number = [](std::size_t n) { return n == SizeRule::kAny ? "*" : std::to_string(n); };
    const std::string third = size.numberOfDimensions == 3 ? "-by-" + number(size.third) : "";
    if (size.kind == SizeRule::Kind::kPair)
      shapes.insert({"1-by-2", "2-by-1"});
    else if (size.kind == SizeRule::Kind::kVector)
      shapes.insert({"1-by-*", "*-by-1"});
    else
      shapes.insert(number(size.m) + "-by-" + number(size.n) + third);
    const auto text = [](double bound) { return std::to_string(std::lround(bound)); };
    const ElementScan& scan = predicate.scan;
    const std::string from = "from " + text(scan.min);
    if (predicate.rule == WholeArrayRule::kNormalized) bounds.insert("from 0 to 1");
    if (scan.has(ElementTest::kWhole32)) bounds.insert(from + " to 2147483647");
    if (scan.has(ElementTest::kRange))
      bounds.insert(std::isinf(scan.max) ? from : from + " to " + text(scan.max));
  }
};

/// Whether each of the shapes is among others, or is one of them with "*" in place of a number.
bool areCovered(const Facts& shapes, const Facts& others) {
  return std::ranges::all_of(shapes, [&](const std::string& shape) {
    return std::ranges::any_of(others, [&](const std::string& other) {
      return std::regex_match(shape,
                              std::regex(std::regex_replace(other, std::regex("\\*"), "[^-]+")));
    });
  });
}

TEST(Messages, NameTheClassesShapesAndBoundsOfTheRowsAndNoOthers) {
  for (const test::ShapedType& each : test::kShapedTypes) {
    SCOPED_TRACE(each.name);
    const ShapedType& type = *findShapedType(each.name);
    Told messages;
    Told rows;
    messages.read(type.newSizeMessage);
    messages.read(type.newTypeMessage);
    for (const Predicate& predicate : type.predicates) {
      rows.read(predicate);
      if (predicate.newOwnMessage) messages.read(predicate.newOwnMessage);
    }
    EXPECT_EQ(messages.classes, rows.classes);
    EXPECT_EQ(messages.bounds, rows.bounds);
    EXPECT_TRUE(areCovered(rows.shapes, messages.shapes));
    EXPECT_TRUE(areCovered(messages.shapes, rows.shapes));
  }
}

}  // namespace
