// What NumericOrString and NLineStyles make of any array is as documented, and made again of what
// comes out it is the same.

#include "array_from_bytes.h"
#include "fuzz_target.h"

#include <graphics/datatype/NLineStylesDataType.h>
#include <graphics/datatype/NumericOrStringDataType.h>
#include <graphics/datatype/vgdatatypes.h>
#include <gui_objects/UTF16String.h>
#include <messages/BaseMsgID.h>
#include <messages/exceptions.h>
#include <ut/memory.h>
#include <vx/errors.h>
#include <boost/shared_ptr.hpp>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace {

using graphics::datatype::LineMarkerStyle;
using graphics::datatype::NLineStyles;
using graphics::datatype::NumericOrString;
using graphics::datatype::TextString;
using gui_objects::UTF16String;
using vcos::ArrayOwner;
using vcos::OwnedValue;

using Lines = std::vector<UTF16String>;

/// Small enough for a result to be refused for its size.
constexpr std::size_t kArrayMemory = 1U << 18U;
constexpr std::size_t kElementsWorthModelling = 512;

void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "not so: %s\n", what);
  std::abort();
}

const vcos::TypeAccess& typeOf(const char* name) {
  VLInitialize_vgdatatypes();
  return *new auto(*vcos::TypeAccess::find(vcos::COSNameID(name)));
}

// --- a plain model of the lines ------------------------------------------------------------------

bool isText(const vxArray* array) {
  return vxGetClassID(array) == vxCHAR_CLASS;
}

std::span<const vxChar> charactersOf(const vxArray* text) {
  return {static_cast<const vxChar*>(vxGetData(text)), vxGetNumberOfElements(text)};
}

/// The rows of a char array.
Lines rowsOf(const vxArray* text) {
  const std::span characters = charactersOf(text);
  Lines lines(characters.empty() ? 0 : vxGetM(text));
  for (std::size_t i = 0; i < characters.size(); ++i)
    lines[i % lines.size()] += characters[i];
  return lines;
}

/// The lines with blanks behind the shorter ones; none if all are empty.
Lines padded(Lines lines) {
  std::size_t longest = 0;
  for (const UTF16String& line : lines)
    longest = std::max(longest, line.size());
  if (longest == 0) return {};
  for (UTF16String& line : lines)
    line.resize(longest, ' ');
  return lines;
}

/// What stands between the separators.
Lines split(const UTF16String& text, vxChar separator) {
  Lines pieces(1);
  for (const vxChar character : text)
    if (character == separator)
      pieces.emplace_back();
    else
      pieces.back() += character;
  return pieces;
}

Lines linesOfText(const vxArray* text) {
  Lines lines;
  for (const UTF16String& row : rowsOf(text))
    std::ranges::move(split(row, '\n'), std::back_inserter(lines));
  return padded(lines);
}

UTF16String textOf(double number) {
  char text[32];
  std::snprintf(text, sizeof text, "%g", number);
  const std::string_view words = std::isnan(number)   ? "NaN"
                                 : std::isinf(number) ? (number < 0 ? "-Inf" : "Inf")
                                                      : text;
  return {words.begin(), words.end()};
}

Lines linesOfNumbers(const vxArray* array) {
  if (vxGetM(array) != 1 && vxGetN(array) != 1) return {};
  Lines lines;
  vghost::withElementType(vxGetClassID(array), [&]<class Element>(std::type_identity<Element>) {
    for (std::size_t i = 0; i < vxGetNumberOfElements(array); ++i)
      lines.push_back(
          textOf(static_cast<double>(static_cast<const Element*>(vxGetData(array))[i])));
  });
  return padded(lines);
}

/// None for what is neither text nor numbers.
std::optional<Lines> linesOfPart(const vxArray* array) {
  if (vxIsNumeric(array)) return linesOfNumbers(array);
  return isText(array) ? std::optional(linesOfText(array)) : std::nullopt;
}

/// Whether a text that is shared as it is has too few dimensions.
bool lacksDimensions(const vxArray* array) {
  return isText(array) && !vxIsEmpty(array) && vxGetNumberOfDimensions(array) < 2 &&
         std::ranges::find(charactersOf(array), vxChar{'\n'}) == charactersOf(array).end();
}

std::optional<Lines> linesOfCells(const vxArray* cells) {
  const std::size_t count = vxGetNumberOfElements(cells);
  Lines lines;
  bool isRefusedIfShared = false;
  for (std::size_t i = 0; i < count; ++i) {
    const vxArray* const element = vxGetCell(cells, i);
    std::optional<Lines> part = element ? linesOfPart(element) : std::nullopt;
    if (!part) return std::nullopt;
    isRefusedIfShared |= lacksDimensions(element);
    if (part->empty()) part->emplace_back();
    std::ranges::move(*part, std::back_inserter(lines));
  }
  return lines.size() == count && isRefusedIfShared ? std::nullopt : std::optional(lines);
}

/// None for an array that is refused.
std::optional<Lines> linesOf(const vxArray* array) {
  if (!array) return Lines();
  if (vxGetClassID(array) == vxCELL_CLASS) return linesOfCells(array);
  return lacksDimensions(array) ? std::nullopt : linesOfPart(array);
}

// --- texts ---------------------------------------------------------------------------------------

std::size_t countElements(const vxArray* array) {
  std::size_t count = array ? vxGetNumberOfElements(array) : 0;
  if (array && vxGetClassID(array) == vxCELL_CLASS)
    for (std::size_t i = 0; i < vxGetNumberOfElements(array); ++i)
      count += countElements(vxGetCell(array, i));
  return count;
}

bool areIdentical(const vxArray* a, const vxArray* b) {
  if (!a || !b) return a == b;
  const auto dimensionsOf = [](const vxArray* array) {
    return std::span(vxGetDimensions(array), vxGetNumberOfDimensions(array));
  };
  if (vxGetClassID(a) != vxGetClassID(b) || !std::ranges::equal(dimensionsOf(a), dimensionsOf(b)))
    return false;
  if (isText(a)) return std::ranges::equal(charactersOf(a), charactersOf(b));
  for (std::size_t i = 0; i < vxGetNumberOfElements(a); ++i)
    if (!areIdentical(vxGetCell(a, i), vxGetCell(b, i))) return false;
  return true;
}

bool hasLineFeed(const Lines& lines) {
  return std::ranges::any_of(lines,
                             [](const UTF16String& line) { return line.find('\n') != line.npos; });
}

void checkText(const vcos::TypeAccess& type, const vxArray* array) {
  const OwnedValue value(type.dataType(), type.fromArray(array));
  const ArrayOwner made = type.toArray(value.get());
  boost::shared_ptr<resource_core::BaseMsgID> message;
  require(TextString().isValid(made.get(), message) && !message, "the array is valid");
  const bool isCell = array && vxGetClassID(array) == vxCELL_CLASS;
  require((vxGetClassID(made.get()) == vxCELL_CLASS) == isCell, "the form stays");

  const Lines lines = value.get().asPointer<const NumericOrString>()->getUTF16String();
  require(!hasLineFeed(lines), "line feeds end lines");

  const OwnedValue again(type.dataType(), type.fromArray(made.get()));
  require(type.dataType().isEqual(value.get(), again.get()), "made again it is equal");
  require(areIdentical(made.get(), type.toArray(again.get()).get()), "so is its array");
  const OwnedValue copy(type.dataType(), copyValue(type.dataType(), value.get()));
  require(type.dataType().isEqual(value.get(), copy.get()), "a copy is equal");
  if (countElements(array) <= kElementsWorthModelling)
    require(linesOf(array) == lines, "the lines are those of the model");
}

void checkThatTextIsRefused(const vxArray* array) {
  if (countElements(array) <= kElementsWorthModelling)
    require(!linesOf(array), "nothing that is stated is refused");
}

// --- style lists ---------------------------------------------------------------------------------

/// The texts of the styles in an array, each up to its first NUL.
Lines textsOfStyles(const vxArray* array) {
  Lines texts;
  const auto whole = [](const vxArray* text) {
    return UTF16String(charactersOf(text).begin(), charactersOf(text).end());
  };
  if (isText(array))
    texts = vxIsVector(array) ? split(whole(array), '|') : rowsOf(array);
  else
    for (std::size_t i = 0; i < vxGetNumberOfElements(array); ++i)
      texts.push_back(whole(vxGetCell(array, i)));
  for (UTF16String& text : texts)
    text.resize(std::min(text.find(vxChar{0}), text.size()));
  return texts;
}

/// What comes back as it went out: no text ends at a NUL, and rows are neither padded nor so short
/// that they make one column.
bool comesBack(const std::vector<LineMarkerStyle>& styles, bool isCell) {
  const std::size_t length = std::string_view(styles.front().getString()).size();
  return std::ranges::all_of(styles, [&](const LineMarkerStyle& style) {
    const std::string_view text = style.getString();
    const bool isWhole = style == LineMarkerStyle(std::string(text));
    return isWhole && (isCell || styles.size() == 1 || (text.size() == length && length > 1));
  });
}

void checkStyles(const vcos::TypeAccess& type, const vxArray* array) {
  const OwnedValue value(type.dataType(), type.fromArray(array));
  const OwnedValue copy(type.dataType(), copyValue(type.dataType(), value.get()));
  require(type.dataType().isEqual(value.get(), copy.get()), "a copy is equal");

  const auto& styles = value.get().asPointer<const NLineStyles>()->getStyles();
  const auto hasText = [](const LineMarkerStyle& style, const UTF16String& text) {
    return std::ranges::equal(std::string_view(style.getString()), text);
  };
  require(std::ranges::equal(styles, textsOfStyles(array), hasText), "each text is a style");
  const ArrayOwner made = type.toArray(value.get());
  const bool isCell = vxGetClassID(made.get()) == vxCELL_CLASS;
  require(isCell == (vxGetClassID(array) == vxCELL_CLASS), "the form stays");
  Lines rows = gui_objects::createUTF16StringsFromArray(made.get());
  for (UTF16String& row : rows)
    if (!isCell) row.erase(row.find_last_not_of(' ') + 1);
  require(std::ranges::equal(styles, rows, hasText), "each style has its row");
  if (!comesBack(styles, isCell)) return;
  const OwnedValue again(type.dataType(), type.fromArray(made.get()));
  require(type.dataType().isEqual(value.get(), again.get()), "made again it is equal");
}

/// Whether the error that the host raised last is one of the type.
bool isStated(std::string_view identifier, bool isText) {
  return isText ? identifier.starts_with("VORTIL:vg:datatypes:NumericOrStringDataType:") ||
                      identifier.starts_with("VORTIL:vg:datatypes:TextStringDataType:")
                : identifier.starts_with("VORTIL:vgdatatypes:");
}

void check(Bytes bytes) {
  static const vcos::TypeAccess& texts = typeOf("vortil.graphics.datatype.NumericOrString");
  static const vcos::TypeAccess& styles = typeOf("vortil.graphics.datatype.NLineStyles");
  const bool isText = bytes.next() % 2 == 0;
  ArrayOwner array;
  try {
    array = arrayFrom(bytes);
    isText ? checkText(texts, array.get()) : checkStyles(styles, array.get());
  } catch (const Lindgrove::System::utErrorException_DEPRECATED&) {
    const char* identifier = nullptr;
    const char* text = nullptr;
    vxGetLastErrIdAndMsg(&identifier, &text);
    if (std::string_view(identifier) == "VORTIL:array:SizeLimitExceeded") return;
    require(isStated(identifier, isText), identifier);
    if (isText) checkThatTextIsRefused(array.get());
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vghost::setArrayMemoryLimit(kArrayMemory);
  check(Bytes({}));  // makes what stays
  const std::size_t arrays = vghost::liveArrays();
  const std::size_t blocks = vghost::liveBlocks();
  check(Bytes({data, size}));
  require(vghost::liveArrays() == arrays, "no array is left");
  require(vghost::liveBlocks() == blocks, "no block is left");
  return 0;
}
