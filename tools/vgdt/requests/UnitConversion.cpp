#include "requests/UnitConversion.h"

#include "Errors.h"
#include "Values.h"
#include "requests/Members.h"
#include "text/NumberText.h"
#include "text/TextDisplay.h"

#include <fmt/format.h>
#include <graphics/datatype/enumerated_types.h>
#include <vg/units.h>

#include <algorithm>
#include <iterator>

namespace vgdt {
namespace {

using graphics::datatype::Position;
using graphics::datatype::Units;
using gui_objects::Inset2d;
using gui_objects::Point2d;
using Numbers = std::vector<double>;

/// The units of a conversion and what they are measured against.
struct Setting {
  vg::Pixel pixel;
  const Units& from;
  const Units& to;
  Position reference;
  Numbers character;
  double origin;
};

Position asPosition(const Numbers& numbers) {
  return {numbers[0], numbers[1], numbers[2], numbers[3]};
}

Numbers convertPoint(const Numbers& value, const Setting& setting) {
  const auto& [pixel, from, to, reference, character, origin] = setting;
  const Point2d point = vg::convertPoint(pixel, from, to, {value[0], value[1]}, reference,
                                         character[0], character[1], origin);
  return {point.x, point.y};
}

Numbers convertPosition(const Numbers& value, const Setting& setting) {
  const auto& [pixel, from, to, reference, character, origin] = setting;
  const Position position = vg::convertPosition(pixel, from, to, asPosition(value), reference,
                                                character[0], character[1], origin);
  return {position.getX(), position.getY(), position.getWidth(), position.getHeight()};
}

Numbers convertHeight(const Numbers& value, const Setting& setting) {
  const auto& [pixel, from, to, reference, character, origin] = setting;
  return {vg::convertHeight(pixel, from, to, value[0], reference, character[1])};
}

Numbers convertInset(const Numbers& value, const Setting& setting) {
  const auto& [pixel, from, to, reference, character, origin] = setting;
  const Inset2d inset = vg::convertInset(pixel, from, to, {value[0], value[1], value[2], value[3]},
                                         reference, character[0], character[1]);
  return {inset.getXMin(), inset.getYMin(), inset.getXMax(), inset.getYMax()};
}

struct Measure {
  const char* name;
  std::size_t count;
  const char* numbers;  // in words
  Numbers (*convert)(const Numbers& value, const Setting& setting);
};
constexpr const char* kRectangle = "left, bottom, width and height";
constexpr Measure kMeasures[] = {
    {"point", 2, "x and y", convertPoint},
    {"position", 4, kRectangle, convertPosition},
    {"height", 1, "a vertical length", convertHeight},
    {"inset", 4, "the margins left, bottom, right and top", convertInset},
};

const Measure& measureOf(const JsonValue& request) {
  const std::string& name = stringMember(request, "what");
  const auto* measure = std::ranges::find(kMeasures, name, &Measure::name);
  if (measure == std::end(kMeasures))
    throw RequestError(fmt::format("\"what\" has to be one of {}, not \"{}\"", namesOf(kMeasures),
                                   shortened(name)));
  return *measure;
}

}  // namespace

UnitsAnswer convertUnits(const JsonValue& request) {
  const Measure& measure = measureOf(request);
  const auto nameOfUnit = [&request](const char* member) {
    return GivenValue{GivenValue::Route::Text, stringMember(request, member)};
  };
  const GivenValue fromName = nameOfUnit("from");
  const GivenValue toName = nameOfUnit("to");
  const auto value = numbersMember(request, "value", measure.count, measure.numbers);
  if (!value) throw RequestError("\"value\" is missing");
  const vg::Pixel pixel(numberMember(request, "ppi").value_or(vg::Pixel().getPixelsPerInch()));
  const auto reference = numbersMember(request, "reference", 4, kRectangle);
  const auto character =
      numbersMember(request, "char", 2, "the width and height of a character in points");
  const double origin = numberMember(request, "origin").value_or(0);
  const Type type = requireType("Units");
  const Value from(type, fromName);
  const Value to(type, toName);
  const Setting setting{pixel,
                        *from.word().asPointer<const Units>(),
                        *to.word().asPointer<const Units>(),
                        asPosition(reference.value_or(Numbers(4))),
                        character.value_or(Numbers(2)),
                        origin};
  return {measure.convert(*value, setting), textOf(type, to.word()).value_or("")};
}

std::string textOf(const UnitsAnswer& answer) {
  std::vector<std::string> numbers;
  std::ranges::transform(answer.result, std::back_inserter(numbers), numberText<double>);
  const std::string joined = fmt::format("{}", fmt::join(numbers, " "));
  return fmt::format("{} {}", numbers.size() == 1 ? joined : '[' + joined + ']', answer.unit);
}

}  // namespace vgdt
