// Coordinates in other units.

#include <gtest/gtest.h>
#include <gui_objects/exceptions.h>
#include <vg/units.h>

#include <cmath>
#include <tuple>

namespace {

using gui_objects::Inset2d;
using gui_objects::Point2d;
using vg::FontUnits;
using vg::PaperUnits;
using vg::Pixel;
using vg::Position;
using vg::Units;
using vg::UnitsWithData;

using Unit = Units::value;
constexpr Unit kUnits[] = {Units::kInches, Units::kCentimeters, Units::kNormalized,
                           Units::kPoints, Units::kPixels,      Units::kCharacters};

const Position kReference(7, 9, 200, 100);
constexpr double kCharacterWidth = 5;
constexpr double kCharacterHeight = 10;

/// How many inches a unit is at 96 pixels to the inch, along an axis.
double inchesOf(Unit unit, double referencePixels, double characterPoints) {
  const double inches[] = {1,        1 / 2.54, referencePixels / 96,
                           1 / 72.0, 1 / 96.0, characterPoints / 72};
  return inches[unit];
}

Point2d point(double ppi, Unit from, Unit to, const Point2d& given, double origin = 0) {
  return vg::convertPoint(Pixel(ppi), Units(from), Units(to), given, kReference, kCharacterWidth,
                          kCharacterHeight, origin);
}
Position rectangle(Unit from, Unit to, const Position& given, const Position& reference,
                   double characterWidth = kCharacterWidth) {
  return vg::convertPosition(Pixel(), Units(from), Units(to), given, reference, characterWidth,
                             kCharacterHeight, 0);
}

TEST(UnitConversion, AllPairsAgreeWithTheLengthsOfTheUnits) {
  const Pixel pixel(96);
  for (const Unit from : kUnits)
    for (const Unit to : kUnits) {
      SCOPED_TRACE(testing::Message() << from << " to " << to);
      const double x = inchesOf(from, 200, kCharacterWidth) / inchesOf(to, 200, kCharacterWidth);
      const double y = inchesOf(from, 100, kCharacterHeight) / inchesOf(to, 100, kCharacterHeight);
      const Point2d made = point(96, from, to, {3, -4});
      EXPECT_NEAR(made.x, 3 * x, 1e-13 * std::abs(3 * x));
      EXPECT_NEAR(made.y, -4 * y, 1e-13 * std::abs(4 * y));
      const Units source(from);
      const Units target(to);
      const Inset2d inset = vg::convertInset(pixel, source, target, {3, 4, 5, 6}, kReference,
                                             kCharacterWidth, kCharacterHeight);
      EXPECT_NEAR(inset.getXMin() + inset.getXMax(), 8 * x, 1e-12 * x);
      EXPECT_NEAR(inset.getYMin() * inset.getYMax(), 24 * y * y, 1e-12 * 24 * y * y);
      EXPECT_NEAR(vg::convertHeight(pixel, source, target, -7, kReference, kCharacterHeight),
                  -7 * y, 1e-12 * y);
      // An origin moves corners on the side of pixels, and no size.
      const Position position =
          vg::convertPositionWithPixelOrigin1(pixel, source, target, Position(3, 4, 5, 6),
                                              kReference, kCharacterWidth, kCharacterHeight);
      const double before = from == Units::kPixels && from != to ? -1 : 0;
      const double after = to == Units::kPixels && from != to ? 1 : 0;
      EXPECT_NEAR(position.getX(), (3 + before) * x + after, 1e-12 * (1 + x));
      EXPECT_NEAR(position.getY(), (4 + before) * y + after, 1e-12 * (1 + y));
      EXPECT_NEAR(position.getWidth(), 5 * x, 1e-12 * x);
      EXPECT_NEAR(position.getHeight(), 6 * y, 1e-12 * y);
    }
}

TEST(UnitConversion, HasTheFactorsThatTheUnitsAreDefinedBy) {
  const std::tuple<double, Unit, Unit, Point2d, double, Point2d> rows[] = {
      {72, Units::kInches, Units::kPixels, {1, 1}, 0, {72, 72}},
      {72, Units::kInches, Units::kCentimeters, {1, 1}, 0, {72 / (72 / 2.54), 72 / (72 / 2.54)}},
      {96, Units::kInches, Units::kPoints, {1, 1}, 0, {72, 72}},
      {96, Units::kPoints, Units::kPixels, {1, 3}, 0, {96 / 72.0, 4}},
      {72, Units::kNormalized, Units::kPixels, {0.5, 0.5}, 0, {100, 50}},
      {72, Units::kCharacters, Units::kPoints, {2, 2}, 0, {10, 20}},
      {72, Units::kPixels, Units::kInches, {73, 73}, 1, {1, 1}},
      {72, Units::kInches, Units::kPixels, {1, 1}, 1, {73, 73}},
      {72, Units::kPixels, Units::kPixels, {73, 73}, 1, {73, 73}},
      {72, Units::kInches, Units::kPoints, {1, 1}, 5, {72, 72}},
      {72, Unit(6), Units::kPoints, {3, 4}, 0, {3, 4}},
      {96, Units::kInches, Unit(-1), {3, 4}, 0, {288, 384}}};
  for (const auto& [ppi, from, to, given, origin, expected] : rows)
    EXPECT_EQ(point(ppi, from, to, given, origin), expected) << from << " to " << to;
  for (const double ppi : {0.0, -5.0, double{NAN}})
    EXPECT_EQ(Pixel(ppi).getPixelsPerInch(), 72);
  EXPECT_EQ(Pixel(144).getPixelsPerPoint(), 2);
  EXPECT_EQ(Pixel(50).getWidthInInches() + Pixel(25).getHeightInInches(), 0.06);
}

TEST(UnitConversion, AReferenceOfNoSizeIsTheWholeOfEverySizeAndHasNoCorners) {
  const Position none;
  const Unit to = Units::kNormalized;
  const Position position =
      rectangle(Units::kPixels, to, Position(3, 4, 5, 6), Position(0, 0, 0, 3));
  EXPECT_TRUE(position == Position(0, 4 / 3.0, 1, 2));
  const Inset2d inset =
      vg::convertInset(Pixel(), Units(Units::kPixels), Units(to), {1, 2, 3, 4}, none, 1, 1);
  EXPECT_TRUE(inset == Inset2d(0, 0, 1, 1));
  const auto height = [&](Unit from, Unit target, double given) {
    return vg::convertHeight(Pixel(), Units(from), Units(target), given, none, 0);
  };
  EXPECT_EQ(height(Units::kPixels, to, NAN), 1);
  EXPECT_EQ(height(to, Units::kPixels, 5), 0);
  EXPECT_EQ(height(Units::kCharacters, Units::kPoints, 5), 0);
  EXPECT_TRUE(std::isnan(height(to, to, NAN)));
  const Position thin =
      rectangle(Units::kPixels, Units::kCharacters, Position(0, 4, 5, 5), none, 0);
  EXPECT_TRUE(std::isnan(thin.getX()) && std::isinf(thin.getWidth()) && thin.getHeight() == 0.5);
}

TEST(UnitConversion, SizesThatBecomeNegativePassOutAsTheHostsExceptions) {
  const Units points(Units::kPoints);
  const Units characters(Units::kCharacters);
  EXPECT_THROW(rectangle(Units::kPoints, Units::kCharacters, Position(0, 0, 1, 1), kReference, -1),
               gui_objects::RectangleCrossedPointsException);
  EXPECT_THROW(vg::convertInset(Pixel(), points, characters, {1, 0, 0, 0}, kReference, -1, 1),
               gui_objects::InvalidInsetException);
}

TEST(UnitNames, BecomeThoseOfTheSameNameOrTheNearestThatThereIs) {
  for (int number = -1; number < 8; ++number) {
    SCOPED_TRACE(number);
    const auto kept = [number](int last, int other) {
      return number >= 0 && number <= last ? number : other;
    };
    const Units units{Unit(number)};
    EXPECT_EQ(vg::convertToPaperUnits(units).getIntValue(), kept(3, PaperUnits::kPoints));
    EXPECT_EQ(vg::convertToFontUnits(units).getIntValue(), kept(4, FontUnits::kPoints));
    EXPECT_EQ(vg::convertToUnits(PaperUnits(PaperUnits::value(number))).getIntValue(),
              kept(3, Units::kPoints));
    EXPECT_EQ(vg::convertToUnits(FontUnits(FontUnits::value(number))).getIntValue(),
              kept(4, Units::kPoints));
    const int toData[] = {6, 0, 1, 3, 4, 5, 2, 6, 6};
    const int fromData[] = {2, 0, 1, 5, 2, 3, 4, 2, 2};
    EXPECT_EQ(vg::convertToUnitsWithData(units).getIntValue(), toData[number + 1]);
    EXPECT_EQ(vg::convertToUnits(UnitsWithData(UnitsWithData::value(number))).getIntValue(),
              fromData[number + 1]);
  }
}

}  // namespace
