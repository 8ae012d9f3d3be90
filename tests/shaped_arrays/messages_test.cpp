// What the messages of the shaped types tell a user agrees with the rows of the types.

#include "registry/ShapedTypes.h"

#include <graphics/datatype/shaped_rules.h>
#include <gtest/gtest.h>
#include <messages/BaseMsgID.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace {

using namespace graphics::datatype::shaped;
using Words = std::vector<std::string>;
using Facts = std::set<Words>;

/// The words of a message; "n-by-3" and "-1" are words.
Words wordsOf(NewMessage newMessage) {
  const std::unique_ptr<const resource_core::BaseMsgID> message(newMessage());
  Words words(1);
  for (const char* c = message->definition().english; *c; ++c)
    if (std::isalnum(static_cast<unsigned char>(*c)) || *c == '-')
      words.back() += *c;
    else if (!words.back().empty())
      words.emplace_back();
  return words;
}

bool isNumber(const std::string& word) {
  return std::isdigit(static_cast<unsigned char>(word.back()));
}

/// Of all messages of a type, or of its rows.
struct Told {
  Facts classes;
  Facts shapes;  ///< {"1", "*"} for 1-by-n
  Facts bounds;  ///< {"0", "1"} for "from 0 to 1", {"1"} for "from 1"

  void read(const Words& words) {
    const bool hasShapes = std::ranges::any_of(
        words, [](const std::string& word) { return word.find("-by-") != word.npos; });
    for (std::size_t i = 0; i + 1 < words.size(); ++i) {
      const std::string& word = words[i];
      const std::string& next = words[i + 1];
      for (int classID = vxCELL_CLASS; classID <= vxOBJECT_CLASS; ++classID) {
        const std::string name = vxClassName(vxClassID(classID));
        const bool isInteger = classID >= vxINT8_CLASS && classID <= vxUINT64_CLASS;
        if (word == name || (isInteger && word == "integer" && next == "class"))
          classes.insert({name});
      }
      if (word.find("-by-") != word.npos) shapes.insert(partsOf(word));
      if (word == "one" && next == "value") shapes.insert({"1", "1"});
      if (word == "a" && !hasShapes) {
        if (next == "row") shapes.insert({"1", "*"});
        if (next == "column") shapes.insert({"*", "1"});
        if (next == "matrix") shapes.insert({"*", "*"});
      }
      if (word != "from" || !isNumber(next)) continue;
      const bool hasEnd = words[i + 2] == "to";
      bounds.insert(hasEnd ? Words{next, words[i + 3]} : Words{next});
    }
  }

  void read(const Predicate& predicate) {
    for (int classID = vxCELL_CLASS; classID <= vxOBJECT_CLASS; ++classID)
      if (predicate.classes.contains(vxClassID(classID)))
        classes.insert({vxClassName(vxClassID(classID))});
    const SizeRule& size = predicate.size;
    const auto number = [](std::size_t n) { return n == SizeRule::kAny ? "*" : std::to_string(n); };
    if (size.kind == SizeRule::Kind::kPair)
      shapes.insert({{"1", "2"}, {"2", "1"}});
    else if (size.kind == SizeRule::Kind::kVector)
      shapes.insert({{"1", "*"}, {"*", "1"}});
    else if (size.numberOfDimensions == 3)
      shapes.insert({number(size.m), number(size.n), number(size.third)});
    else
      shapes.insert({number(size.m), number(size.n)});
    const auto text = [](double bound) { return std::to_string(std::lround(bound)); };
    const ElementScan& scan = predicate.scan;
    if (predicate.rule == WholeArrayRule::kNormalized) bounds.insert({"0", "1"});
    if (scan.has(ElementTest::kWhole32)) bounds.insert({text(scan.min), "2147483647"});
    if (scan.has(ElementTest::kRange))
      bounds.insert(std::isinf(scan.max) ? Words{text(scan.min)}
                                         : Words{text(scan.min), text(scan.max)});
  }

  static Words partsOf(const std::string& shape) {
    Words parts;
    for (std::size_t begin = 0, end = 0; end != shape.npos; begin = end + 4) {
      end = shape.find("-by-", begin);
      const std::string part = shape.substr(begin, end - begin);
      parts.push_back(isNumber(part) ? part : std::string(1, '*'));
    }
    return parts;
  }
};

/// Whether each of the shapes is among others, or is one of them with "*" in place of a number.
bool areCovered(const Facts& shapes, const Facts& others) {
  return std::ranges::all_of(shapes, [&](const Words& shape) {
    return std::ranges::any_of(others, [&](const Words& other) {
      return std::ranges::equal(other, shape, [](const std::string& wide, const std::string& own) {
        return wide == "*" || wide == own;
      });
    });
  });
}

TEST(Messages, NameTheClassesShapesAndBoundsOfTheRowsAndNoOthers) {
  for (const test::ShapedType& each : test::kShapedTypes) {
    SCOPED_TRACE(each.name);
    const ShapedType& type = *findShapedType(each.name);
    Told messages;
    Told rows;
    messages.read(wordsOf(type.newSizeMessage));
    messages.read(wordsOf(type.newTypeMessage));
    for (const Predicate& predicate : type.predicates) {
      rows.read(predicate);
      if (predicate.newOwnMessage) messages.read(wordsOf(predicate.newOwnMessage));
    }
    EXPECT_EQ(messages.classes, rows.classes);
    EXPECT_EQ(messages.bounds, rows.bounds);
    EXPECT_TRUE(areCovered(rows.shapes, messages.shapes));
    EXPECT_TRUE(areCovered(messages.shapes, rows.shapes));
  }
}

}  // namespace
