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
#include <utility>

namespace {

using namespace graphics::datatype::shaped;
using Words = std::set<std::string>;

std::string textOf(NewMessage newMessage) {
  const std::unique_ptr<const resource_core::BaseMsgID> message(newMessage());
  return message->definition().english;
}

/// All matches of a pattern, without the letters that stand for any number in a shape.
Words matches(const std::string& text, const std::string& pattern) {
  static const std::regex kAnyNumber("\\b[mnk]\\b");
  Words words;
  const std::regex regex(pattern);
  for (std::sregex_iterator each(text.begin(), text.end(), regex), end; each != end; ++each)
    words.insert(std::regex_replace(each->str(), kAnyNumber, "*"));
  return words;
}

Words classesIn(const std::string& text) {
  Words classes = matches(text, "\\b(double|single|logical|char|cell|struct|u?int(8|16|32|64))\\b");
  if (text.find("integer class") != std::string::npos)
    classes.merge(Words{"int8", "uint8", "int16", "uint16", "int32", "uint32", "int64", "uint64"});
  return classes;
}

/// "1-by-*", "*-by-*-by-3". A text without such a shape may name a row, a column or a matrix.
Words shapesIn(const std::string& text) {
  const std::pair<const char*, const char*> kWords[] = {
      {"a row", "1-by-*"}, {"a column", "*-by-1"}, {"a matrix", "*-by-*"}};
  Words shapes = matches(text, "\\w+(-by-\\w+)+");
  const bool hasShapes = !shapes.empty();
  for (const auto& [words, shape] : kWords)
    if (!hasShapes && text.find(words) != text.npos) shapes.insert(shape);
  if (text.find("one value") != text.npos) shapes.insert("1-by-1");
  return shapes;
}

Words shapesOf(const SizeRule& size) {
  if (size.kind == SizeRule::Kind::kPair) return {"1-by-2", "2-by-1"};
  if (size.kind == SizeRule::Kind::kVector) return {"1-by-*", "*-by-1"};
  std::string shape;
  for (const std::size_t number : {size.m, size.n, size.third})
    shape.append("-by-").append(number == SizeRule::kAny ? "*" : std::to_string(number));
  const std::size_t dimensions = size.numberOfDimensions;
  return {shape.substr(4, dimensions == 3 ? shape.npos : shape.rfind("-by-") - 4)};
}

/// Whether each of the shapes is among others, or is one of them with "*" in place of a number.
bool areCovered(const Words& shapes, const Words& others) {
  return std::ranges::all_of(shapes, [&](const std::string& shape) {
    return std::ranges::any_of(others, [&](const std::string& other) {
      const std::string pattern = std::regex_replace(other, std::regex("\\*"), "(\\d+|\\*)");
      return std::regex_match(shape, std::regex(pattern));
    });
  });
}

/// "from 0 to 1" and "from 1".
Words boundsOf(const Predicate& predicate) {
  const auto bounds = [](double min, double max) {
    std::string text = "from " + std::to_string(std::lround(min));
    if (!std::isinf(max)) text.append(" to ").append(std::to_string(std::lround(max)));
    return text;
  };
  const ElementScan& scan = predicate.scan;
  if (predicate.rule == WholeArrayRule::kNormalized) return {bounds(0, 1)};
  Words all;
  if (scan.has(ElementTest::kRange)) all.insert(bounds(scan.min, scan.max));
  if (scan.has(ElementTest::kWhole32)) all.insert(bounds(scan.min, 2147483647));
  return all;
}

TEST(Messages, NameTheClassesShapesAndBoundsOfTheRowsAndNoOthers) {
  for (const test::ShapedType& each : test::kShapedTypes) {
    const ShapedType& type = *findShapedType(each.name);
    std::string text = textOf(type.newSizeMessage) + textOf(type.newTypeMessage);
    Words classes;
    Words shapes;
    Words bounds;
    for (const Predicate& predicate : type.predicates) {
      for (int classID = vxCELL_CLASS; classID <= vxOBJECT_CLASS; ++classID)
        if (predicate.classes.contains(vxClassID(classID)))
          classes.insert(vxClassName(vxClassID(classID)));
      shapes.merge(shapesOf(predicate.size));
      bounds.merge(boundsOf(predicate));
      if (predicate.newOwnMessage) text += textOf(predicate.newOwnMessage);
    }
    SCOPED_TRACE(text);
    EXPECT_EQ(classesIn(text), classes);
    EXPECT_TRUE(areCovered(shapes, shapesIn(text)));
    EXPECT_TRUE(areCovered(shapesIn(text), shapes));
    EXPECT_EQ(matches(text, "from -?\\d+( to -?\\d+)?"), bounds);
  }
}

}  // namespace
