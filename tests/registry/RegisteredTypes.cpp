#include "registry/RegisteredTypes.h"

#include "registry/EnumeratedTypes.h"
#include "registry/ShapedTypes.h"

#include <sstream>

namespace test {
namespace {

std::function<ArrayOwner()> textArray(const std::string& text) {
  return [text] { return ArrayOwner(vxCreateString(text.c_str())); };
}

RegisteredType onOff() {
  return {.name = "on_off",
          .bytes = 1,
          .text = "off",
          .printed = "off",
          .array = textArray("on"),
          .defaultArray = textArray("off"),
          .defaultPrinted = "off",
          .nullArray = textArray("off"),  // the word is the value
          .obstacles = {"a", "c", "", "ac", "na", ""},
          .declarationName = "char",
          .storageType = 0,
          .isFinite = true,
          .order = 1,
          .reverseOrder = -1,
          .fromNullText = "onoffboolean:UnknownOnOffBooleanValue",
          .fromNullArray = "onoffboolean:IncorrectValue",
          .conversions = {{"any", "vortil.graphics.datatype.on_off"},
                          {"string", "vortil.graphics.datatype.on_off"},
                          {"string", "bool"}},
          .refusalRaises = "VORTIL:datatypes:onoffboolean:MultipleRegistry"};
}

RegisteredType registered(const EnumeratedType& type) {
  return {.name = type.name,
          .bytes = 24,
          .text = type.names.front().first,
          .printed = type.names.front().first,
          .array = textArray(type.names.back().first),
          .defaultArray = textArray(type.defaultName),
          .defaultPrinted = type.defaultName,
          .nullArray = textArray(""),
          .obstacles = {"a", "ac", "a", "ac", "na", "a"},
          .family = Family::kEnumerated,
          .isFinite = true,
          .fromNullText = "InvalidEnumValue"};
}

RegisteredType registered(const ShapedType& type) {
  const std::string noElements = std::string("0x0 ") + type.storageClass;
  const std::string row = "1x" + std::to_string(type.defaultRow.size()) + " " + type.storageClass;
  const bool isDefaultEmpty = type.defaultRow.empty();
  std::ostringstream printed;
  for (const double number : type.defaultRow)
    printed << number << ' ';
  // A text without numbers becomes a value without a text, and meets less on its way.
  const bool isEmpty = !type.printed;
  using Text = std::optional<std::string>;
  return {.name = type.name,
          .bytes = 8,
          .text = type.sampleText,
          .printed = isEmpty ? std::nullopt : Text(type.printed),
          .array = [&type] { return test::array(type.sample, type.elements); },
          .defaultArray =
              [&type, words = isDefaultEmpty ? noElements : row] {
                return test::array(words, type.defaultRow);
              },
          .defaultPrinted = isDefaultEmpty ? std::nullopt : Text("[ " + printed.str() + "]"),
          .nullArray = [noElements] { return test::array(noElements); },
          .obstacles = {isEmpty ? "a" : "ac", "ac", "nac", "ac", "", "ac"},
          .family = Family::kShaped};
}

RegisteredType color(const char* name) {
  return {.name = name,
          .bytes = 40,
          .text = "[0.25 0.5 1]",
          .printed = "[ 0.25 0.5 1 ]",
          .array =
              [] {
                return array("1x3 double", {1, 0.5, 0});
              },
          .defaultArray = [] { return array("1x3 double", {0}); },
          .defaultPrinted = "[ 0 0 0 ]",
          .nullArray = [] { return array("0x0 double"); },
          .obstacles = {"a", "a", "a", "ac", "", "a"},
          .fromNullText = "RGBAColor:ParseError"};
}

RegisteredType markerColor() {
  RegisteredType row = color("MarkerColor");
  row.array = textArray("flat");
  row.obstacles = {"a", "ac", "a", "ac", "", "a"};
  return row;
}

RegisteredType meshColor() {
  RegisteredType row = color("MeshColor");
  row.fromNullArray = "Matrix_to_Real:ExpectedNumeric1";
  return row;
}

RegisteredType meshAlpha() {
  return {.name = "MeshAlpha",
          .bytes = 16,
          .text = "0.25",
          .printed = "0.25",
          .array = textArray("interp"),
          .defaultArray = [] { return array("1x1 double", {1}); },
          .defaultPrinted = "1",
          .nullArray = [] { return array("0x0 double"); },
          .obstacles = {"na", "ac", "a", "ac", "", "a"}};
}

/// A door to the colour names: whatever the word, its array is a struct of these. The sample has
/// two of them, the second black.
RegisteredType colorTable() {
  const auto names = [] {
    static constexpr const char* kNames[] = {"b", "black"};
    ArrayOwner colors(vxCreateStructMatrix(1, 1, 2, kNames));
    vxSetFieldByNumber(colors.get(), 0, 0, array("1x3 double", {0, 0, 1}).release());
    vxSetFieldByNumber(colors.get(), 0, 1, array("1x3 double", {0}).release());
    return colors;
  };
  return {.name = "ColorTable",
          .bytes = 0,
          .text = "red",
          .printed = std::nullopt,
          .array = names,
          .defaultArray = names,
          .defaultPrinted = std::nullopt,
          .nullArray = names,
          .obstacles = {"a", "n", "", "nac", "", ""}};
}

/// A type of a few numbers, all arrays of which have the size and class of `words`.
RegisteredType numbers(const char* name, std::size_t bytes, const char* text, const char* printed,
                       const std::string& words, const Numbers& sample, const Numbers& byDefault,
                       const char* defaultPrinted, const Obstacles& obstacles) {
  return {.name = name,
          .bytes = bytes,
          .text = text,
          .printed = printed,
          .array = [words, sample] { return array(words, sample); },
          .defaultArray = [words, byDefault] { return array(words, byDefault); },
          .defaultPrinted = defaultPrinted,
          .nullArray = [] { return array("0x0 double"); },
          .obstacles = obstacles,
          .fromNullText = "ParseException",
          .nullPrinted = ""};
}

std::vector<RegisteredType> geometricTypes() {
  constexpr Obstacles kHostAllocated{"a", "a", "a", "ac", "", "a"};
  constexpr Obstacles kPlain{"an", "n", "a", "ac", "", "n"};
  constexpr Obstacles kTextFromArray{"an", "n", "ac", "ac", "", "n"};
  const Numbers point{0.5, -2};
  const Numbers identity{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
  const char* const kIdentity = "[1 0 0 0; 0 1 0 0; 0 0 1 0; 0 0 0 1]";

  RegisteredType position = numbers("Position", 32, "[1, 2 0.5 4]", "[1 2 0.5 4]", "1x4 double",
                                    {-1, 0.5, 3, 0}, {0}, "[0 0 0 0]", kHostAllocated);
  position.fromNullText = position.copyOfNull = "[0 0 0 0]";
  RegisteredType screen = numbers("ScreenPosition", 16, "[1 -2.9 3 4]", "[1 -2 3 4]", "1x4 int32",
                                  {-1, 2, 3, 0}, {0}, "[0 0 0 0]", kHostAllocated);
  screen.fromNullText = "[0 0 0 0]";
  screen.nullArray = [] { return ArrayOwner(); };
  RegisteredType point2 =
      numbers("Point2", 8, "[3 -4]", "[3 -4]", "1x2 double", {1, 2}, {0}, "[0 0]", kPlain);
  point2.nullPrinted = "[0 0]";
  RegisteredType positivePoint3 = numbers("PositivePoint3", 24, "[-1 2 3]", "[-1 2 3]",
                                          "1x3 double", {1, 2}, {1}, "[1 1 1]", kTextFromArray);
  positivePoint3.fromNullText = "null";
  RegisteredType rectangle = numbers("Rectangle2", 16, "[1 2 3 4]", "[1 2 4 6]", "1x4 double",
                                     {0, 0, 1, 2}, {0}, "[0 0 0 0]", kPlain);
  rectangle.nullPrinted = "[0 0 0 0]";
  RegisteredType inset = numbers("Inset", 32, "[1 2 3 4]", "[1 2 3 4]", "1x4 double",
                                 {4, 3, 2, 1.5}, {0}, "[0 0 0 0]", kTextFromArray);
  inset.fromNullText = "[0 0 0 0]";
  RegisteredType volume = numbers("BoundingVolume", 56, "[0 -1 0; 1 2 0.5]", "[ 0 -1 0 ; 1 2 0.5 ]",
                                  "2x3 double", {-1, 1, 0, 2}, {0}, "[ 0 0 0 ; 0 0 0 ]", kPlain);
  volume.obstacles.valueToText = "na";  // a long text
  volume.fromNullText = "[ 0 0 0 ; 0 0 0 ]";
  RegisteredType matrix = numbers("Matrix4x4", 128, "[1 2 3 4;5 6 7 8;9 10 11 12;13 14 15 16]",
                                  "[1 2 3 4;5 6 7 8;9 10 11 12;13 14 15 16]", "4x4 double", {2},
                                  identity, "[1 0 0 0;0 1 0 0;0 0 1 0;0 0 0 1]", kPlain);
  matrix.obstacles.valueToText = "na";
  matrix.nullArray = matrix.defaultArray;
  matrix.fromNullArray = *matrix.defaultPrinted;
  matrix.nullPrinted = kIdentity;
  constexpr Obstacles kScalar{"a", "ac", "a", "ac", "", "a"};
  RegisteredType positive =
      numbers("Positive", 8, "2.5", "[2.5]", "1x1 double", {0.5}, {1}, "[1]", kScalar);
  positive.nullArray = positive.defaultArray;
  positive.fromNullText = "thrown invalidValuePositive";
  RegisteredType strength =
      numbers("LightingStrength", 8, "[1]", "[1]", "1x1 double", {0.5}, {0}, "[0]", kScalar);
  strength.nullArray = strength.defaultArray;
  strength.fromNullText = "thrown invalidValue_0_1";
  return {position,
          screen,
          point2,
          numbers("Point2d", 16, "[0.25 1]", "[0.25 1]", "1x2 double", point, {0}, "[0 0]",
                  kTextFromArray),
          numbers("Point3", 24, "[0.25 1 2]", "[0.25 1 2]", "1x3 double", point, {0}, "[0 0 0]",
                  kTextFromArray),
          positivePoint3,
          rectangle,
          inset,
          volume,
          matrix,
          positive,
          strength};
}

/// A type whose values are texts, and which prints none.
RegisteredType text(const char* name, std::size_t bytes, const char* array,
                    const Obstacles& obstacles) {
  return {.name = name,
          .bytes = bytes,
          .text = "some",
          .printed = std::nullopt,
          .array = textArray(array),
          .defaultArray = textArray(""),
          .defaultPrinted = std::nullopt,
          .nullArray = textArray(""),
          .obstacles = obstacles,
          .fromNullText = "no text",
          .fromNullArray = "no text"};
}

std::vector<RegisteredType> textTypes() {
  const auto cell = [](std::size_t rows) {
    ArrayOwner cells(vxCreateCellMatrix(rows, 1));
    for (std::size_t i = 0; i < rows; ++i)
      vxSetCell(cells.get(), i, vxCreateString("line"));
    return cells;
  };
  constexpr Obstacles kArray{"ac", "ac", "", "ac", "", "ac"};
  RegisteredType unicode =
      text("UTF16String", 8, "a text of many letters", {"na", "nc", "na", "ac", "", "n"});
  unicode.printed = "some";
  RegisteredType insensitive =
      text("CaseInsensitiveString", 1, "other", {"a", "ac", "", "ac", "", "a"});
  insensitive.isDefaultNull = true;
  insensitive.fromNullText = insensitive.fromNullArray = "null";
  RegisteredType list = text("NStrings", 24, "", {"nac", "nac", "", "ac", "", "na"});
  list.array = [cell] { return cell(2); };
  list.nullArray = list.defaultArray = [cell] { return cell(0); };
  RegisteredType display = text("TextString", 16, "other", kArray);
  RegisteredType normalized = text("NumericOrString", 16, "", kArray);
  normalized.array = [cell] { return cell(3); };
  display.copyOfNull = normalized.copyOfNull = "no text";
  RegisteredType font = text("FontName", 1, "Serif", {"a", "ac", "", "ac", "", "a"});
  font.defaultArray = textArray("FixedWidth");
  font.printed = "some";
  font.defaultPrinted = "FixedWidth";
  font.fromNullText = "null";
  font.fromNullArray = "VORTIL:class:VORTILConversionError";
  RegisteredType styles = text("NLineStyles", 32, "square", {"nac", "nc", "", "nac", "", "n"});
  styles.text = "--|:";
  styles.defaultArray = textArray("-");
  styles.nullArray = [] { return ArrayOwner(); };
  styles.fromNullArray = "VORTIL:vgdatatypes:InvalidInput";
  return {unicode, insensitive, list, display, normalized, font, styles};
}

/// A type of references, by default to nothing, which takes no text and has none.
RegisteredType reference(const char* name, std::size_t bytes, const char* array,
                         const char* nothing, const Obstacles& obstacles) {
  return {.name = name,
          .bytes = bytes,
          .text = "",
          .printed = std::nullopt,
          .array = [array] { return test::array(array, {7}); },
          .defaultArray = [nothing] { return test::array(nothing); },
          .defaultPrinted = std::nullopt,
          .nullArray = [nothing] { return test::array(nothing); },
          .obstacles = obstacles,
          .isDefaultNull = true};
}

std::vector<RegisteredType> referenceTypes() {
  RegisteredType object =
      reference("COSInterface", 8, "1x1 object", "0x0 object", {"", "ac", "", "nac", "", ""});
  object.isCopied = false;
  RegisteredType handle =
      reference("HandleOrEmpty", 16, "1x1 object", "0x0 object", {"", "ac", "", "ac", "", "ac"});
  handle.isDefaultNull = false;
  handle.printed = handle.defaultPrinted = handle.nullPrinted =
      "handleoremptydatatype:DataTypeToString";
  handle.fromNullText = "handleoremptydatatype:StringToDataType";
  handle.fromNullArray = *handle.printed;
  // Without a Java machine no array has a Java object, and all values are equal.
  RegisteredType java =
      reference("JavaPeer", 24, "0x0 double", "0x0 double", {"", "a", "", "ac", "", "a"});
  java.order = java.reverseOrder = 0;
  java.fromNullArray = "null";
  return {object, handle, java};
}

/// What runs at an event: by default nothing.
RegisteredType callback() {
  RegisteredType row = text("Callback", 56, "redraw", {"ac", "ac", "", "ac", "", "a"});
  row.isDefaultNull = true;
  row.fromNullText = "callback:CreateCallback";
  row.fromNullArray = "null";
  return row;
}

}  // namespace

const std::vector<RegisteredType>& registeredTypes() {
  static const std::vector<RegisteredType> types = [] {
    std::vector<RegisteredType> all = {onOff(),     color("RGBAColor"), markerColor(), meshColor(),
                                       meshAlpha(), colorTable(),       callback()};
    for (const auto& group : {geometricTypes(), textTypes(), referenceTypes()})
      all.insert(all.end(), group.begin(), group.end());
    for (const EnumeratedType& type : kEnumeratedTypes)
      all.push_back(registered(type));
    for (const ShapedType& type : kShapedTypes)
      all.push_back(registered(type));
    return all;
  }();
  return types;
}

int stepsOf(const RegisteredType& type) {
  const vcos::COSNameID name(type.dottedName().c_str());
  int steps = vcos::COSTypeRepository::findType(name).getObject() ? 1 : 0;
  bool isMissing = steps == 0;
  for (const auto& [outside, inner] : type.conversions) {
    const bool isThere = conversion(outside, inner) != nullptr;
    if (isThere && isMissing) return -1;
    isMissing = !isThere;
    steps += isThere;
  }
  const bool isInJava = vcos::JavaTypeConversion::getConversion(name) != nullptr;
  return isInJava && isMissing ? -1 : steps + isInJava;
}

bool isComplete(const RegisteredType& type) {
  return stepsOf(type) == 2 + static_cast<int>(type.conversions.size());
}

Progress progress() {
  Progress counts = {{"complete", 0}, {"in part", 0}, {"missing", 0}};
  for (const RegisteredType& type : registeredTypes()) {
    ++counts[isComplete(type) ? "complete" : stepsOf(type) == 0 ? "missing" : "in part"];
  }
  return counts;
}

}  // namespace test
