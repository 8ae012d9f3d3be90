#include "text/StringWords.h"

#include "ArrayElements.h"
#include "text/Faults.h"
#include "text/TextDisplay.h"

#include <fmt/format.h>
#include <gui_objects/UTF16String.h>
#include <gui_objects/convert_from_string_utils.h>
#include <messages/ustring.h>

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace vgdt {
namespace {

namespace convert = gui_objects::convert_from_string_utils;

using Faults = std::vector<std::string>;

bool isText(const vxArray* array) {
  return vxGetClassID(array) == vxCHAR_CLASS;
}
bool isCell(const vxArray* array) {
  return vxGetClassID(array) == vxCELL_CLASS;
}
bool isEmptyOrMatrix(const vxArray* array) {
  return vxIsEmpty(array) || vxGetNumberOfDimensions(array) == 2;
}

/// For the explanation of a type: what is wrong with an array that it has refused.
template <Faults (*faultsOf)(const vxArray* array)>
Explanation explainArray(const Refusal& refusal) {
  if (!refusal.array) return {};
  return {.faults = faultsOf(refusal.array)};
}

// --- cells ---------------------------------------------------------------------------------------

/// "cell 3", or of a matrix "cell 3, at (1,2),".
std::string cellName(const vxArray* cells, std::size_t index) {
  const std::string name = fmt::format("cell {}", index + 1);
  return vxIsVector(cells) ? name : fmt::format("{}, at {},", name, placeOf(index, cells));
}

std::string cellFault(const vxArray* cells, std::size_t index, std::string_view wanted) {
  const vxArray* const cell = vxGetCell(cells, index);
  return cellName(cells, index) +
         (cell ? fmt::format(" is of class {}, not {}", vxGetClassName(cell), wanted)
               : fmt::format(" is null, not {}", wanted));
}

/// Of the first cell that does not fit; `takes` gets its array, which may be null.
template <class Takes>
Faults cellFaults(const vxArray* cells, std::string_view wanted, Takes takes) {
  for (std::size_t i = 0; i < vxGetNumberOfElements(cells); ++i)
    if (!takes(vxGetCell(cells, i))) return {cellFault(cells, i, wanted)};
  return {};
}

// --- texts ---------------------------------------------------------------------------------------

Faults faultsOfOneText(const vxArray* array) {
  if (!isText(array)) return {classFault(array, "char")};
  return {fmt::format("it has {} rows, not 1; each is a text of its own", vxGetM(array))};
}

Faults faultsOfCharacters(const vxArray* array) {
  return {classFault(array, "char")};
}

Faults faultsOfList(const vxArray* array) {
  if (!isCell(array)) return {classFault(array, "char or cell")};
  return cellFaults(array, "char", [](const vxArray* cell) { return !cell || isText(cell); });
}

Faults faultsOfLines(const vxArray* array) {
  if (isText(array)) return {sizeFault(dimensionsOf(array), "m-by-n")};
  if (!isCell(array)) return {classFault(array, "char or cell")};
  if (vxGetNumberOfDimensions(array) != 2 || vxGetN(array) != 1)
    return {sizeFault(dimensionsOf(array), "n-by-1")};
  for (std::size_t i = 0; i < vxGetM(array); ++i) {
    const vxArray* const cell = vxGetCell(array, i);
    if (cell && !isText(cell)) return {cellFault(array, i, "char")};
    if (cell && !isEmptyOrMatrix(cell))
      return {cellName(array, i) + ": " + sizeFault(dimensionsOf(cell), "m-by-n")};
  }
  return {};
}

Faults faultsOfLabels(const vxArray* array) {
  if (!isCell(array)) return {classFault(array, "char, numeric or cell")};
  return cellFaults(array, "char or numeric", [](const vxArray* cell) {
    return cell && (isText(cell) || vxIsNumeric(cell));
  });
}

Faults faultsOfFontName(const vxArray* array) {
  Faults faults;
  if (!isText(array)) faults.push_back(classFault(array, "char"));
  if (vxIsEmpty(array))
    faults.emplace_back("it is empty");
  else if (vxGetNumberOfDimensions(array) != 2 || vxGetM(array) != 1)
    faults.push_back(sizeFault(dimensionsOf(array), "1-by-n"));
  if (faults.empty()) faults.emplace_back("it begins with a NUL, which ends a name");
  return faults;
}

// --- line styles ---------------------------------------------------------------------------------

constexpr std::string_view kColor = "colour";

/// What a style consists of.
struct Part {
  std::string_view kind;
  std::string word;
};

/// The longest part that a text begins with, as the host reads it; none if it begins with none.
std::optional<Part> firstPart(const std::string& text) {
  constexpr std::size_t kLongestWord = 16;
  for (std::size_t length = std::min(text.size(), kLongestWord); length > 0; --length) {
    const std::string word = text.substr(0, length);
    std::string color;
    std::string line;
    std::string marker;
    convert::stringToColorMarkerLineStyle(word.c_str(), color, line, marker);
    if (word == color) return Part{kColor, word};
    if (word == line) return Part{"line style", word};
    if (word == marker) return Part{"marker", word};
  }
  return std::nullopt;
}

/// What is wrong with a style that has no part at the beginning of `rest`, its end.
std::string unreadFault(const std::string& style, const std::string& rest) {
  if (rest.starts_with(' '))
    return fmt::format("{} a blank, and blanks are no part of a style",
                       trimmed(rest).empty() ? "ends in" : "has");
  if (rest.starts_with('|'))
    return "has a \"|\", which stands between styles only in a single row or column of characters";
  constexpr const char* kFault = "begins with no line style and no marker";
  return rest == style ? kFault : fmt::format("has \"{}\", which {}", shortened(rest), kFault);
}

/// Why a text is no style; none if it is one.
std::optional<std::string> styleFault(const std::string& text) {
  if (text.empty()) return "is empty";
  std::vector<Part> parts;
  for (std::string rest = text; !rest.empty(); rest.erase(0, parts.back().word.size())) {
    const auto part = firstPart(rest);
    if (!part) return unreadFault(text, rest);
    if (part->kind == kColor)
      return fmt::format("has the colour \"{}\", and styles have none", part->word);
    const auto same = std::ranges::find(parts, part->kind, &Part::kind);
    if (same != parts.end())
      return fmt::format("has two {}s, \"{}\" and \"{}\"", part->kind, same->word, part->word);
    parts.push_back(*part);
  }
  return std::nullopt;
}

/// The same with the style's name and text in front. A NUL ends the text.
std::optional<std::string> styleFault(const std::string& name, const std::string& characters) {
  const std::string text = characters.substr(0, characters.find('\0'));
  const auto fault = styleFault(text);
  if (!fault) return std::nullopt;
  return name + (text.empty() ? "" : fmt::format(" \"{}\"", shortened(text))) + ' ' + *fault;
}

/// "style 3", "row 3".
std::string numbered(const char* name, std::size_t index) {
  return fmt::format("{} {}", name, index + 1);
}

Faults faultsOfStyleCells(const vxArray* cells) {
  for (std::size_t i = 0; i < vxGetNumberOfElements(cells); ++i) {
    const vxArray* const cell = vxGetCell(cells, i);
    if (!cell || !isText(cell)) return {cellFault(cells, i, "char")};
    if (const auto fault = styleFault(cellName(cells, i), vxArrayToStdString(cell)))
      return {*fault};
  }
  return {};
}

/// Whether only the blanks at the end are wrong with a style.
bool isPadded(const std::string& text) {
  const std::size_t length = text.find_last_not_of(' ') + 1;
  return length < text.size() && !styleFault(text.substr(0, length));
}

Faults faultsOfStyleRows(const vxArray* matrix) {
  const auto rows = gui_objects::createUTF16StringsFromArray(matrix);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const std::string text = fl::i18n::to_utf8(rows[i].data(), rows[i].size());
    if (const auto fault = styleFault(numbered("row", i), text))
      return {isPadded(text) ? *fault + "; styles of different lengths go into a cell array"
                             : *fault};
  }
  return {};
}

Faults faultsOfStyleText(const std::string& text) {
  Faults faults;
  std::size_t begin = 0;
  for (std::size_t i = 0; faults.empty() && begin <= text.size(); ++i) {
    const std::size_t end = std::min(text.find('|', begin), text.size());
    if (const auto fault = styleFault(numbered("style", i), text.substr(begin, end - begin)))
      faults.push_back(begin == end ? *fault + ": one stands on each side of a \"|\"" : *fault);
    begin = end + 1;
  }
  return faults;
}

Faults faultsOfStyles(const vxArray* array) {
  if (!isText(array) && !isCell(array)) return {classFault(array, "char or cell")};
  if (vxIsEmpty(array)) return {"it is empty"};
  if (isCell(array)) return faultsOfStyleCells(array);
  return vxIsVector(array) ? faultsOfStyleText(vxArrayToStdString(array))
                           : faultsOfStyleRows(array);
}

Explanation explainStyles(const Refusal& refusal) {
  if (refusal.given.route != GivenValue::Route::Text) return explainArray<faultsOfStyles>(refusal);
  const vcos::ArrayOwner array(convert::parse_strings(refusal.given.content.c_str()));
  if (!array) return {};
  Faults faults = faultsOfStyles(array.get());
  if (isText(array.get()) && trimmed(refusal.given.content).starts_with('{'))
    faults.emplace_back("it is no list either, whose styles stand in quotes: {'-', '--'}");
  return {.faults = faults};
}

// --- the types -----------------------------------------------------------------------------------

constexpr const char* kOneLine = "any text, as one line, line feeds and all";

const std::unordered_map<std::string, TypeWords>& wordsByType() {
  static const std::unordered_map<std::string, TypeWords> rows = {
      {"CaseInsensitiveString",
       {.family = "text",
        .inShort = "a text, whose case does not count when it is compared",
        .values = {"a char array of any size, which is read in storage order"},
        .texts = {"any text"},
        .samples = {"'Left'", "['ab';'cd']", "''", "3", "{'Left'}"},
        .explain = explainArray<faultsOfCharacters>}},
      {"FontName",
       {.family = "text",
        .inShort = "a font's name: one row of characters",
        .values = {"1-by-n char, n from 1; whether there is such a font does not matter"},
        .texts = {"any text, also an empty one"},
        .samples = {"'Serif'", "'No such font'", "['S';'e']", "''", "{'Serif'}"},
        .explain = explainArray<faultsOfFontName>}},
      {"NLineStyles",
       {.family = "text",
        .inShort = "line styles with or without markers: '-|--o', {'-','--o'}",
        .values =
            {"a char row or column, with \"|\" between two styles",
             "a char matrix: each row is a style, blanks and all",
             "a cell array of char arrays: each is a style",
             "a style is a line style (-, --, :, -.), a marker, or one of each, and no colour",
             "a marker is a name of MarkerStyle other than none, or s, d, p or h"},
        .texts = {"styles with \"|\" between them, or a list such as {'-', '--o'}; an empty text, "
                  "[] and {} stand for the default"},
        .samples = {"'-|--'", "{'-','--'}", "['-o';'--']", "{'-','r--'}", "['- ';'--']", "[]", "3"},
        .explain = explainStyles}},
      {"NStrings",
       {.family = "text",
        .inShort = "a list of texts, as cells or as rows",
        .values = {"a cell array of char arrays or null: a text for each, in storage order",
                   "a char array: a text for each row; none if it is empty"},
        .texts = {"a list such as {'a', 'b'}, separated by commas, semicolons or blanks",
                  "any other text, as the only one; an empty text, [] and {} are an empty list"},
        .samples = {"{'a','b'}", "['ab';'cd']", "cell(1,2)", "{'a',1}", "3"},
        .explain = explainArray<faultsOfList>}},
      {"NumericOrString",
       {.family = "text",
        .inShort = "lines, or numbers and line feeds that become lines",
        .values = {"a char array: a line for each row; line feeds end lines, and blanks pad them",
                   "a numeric row or column: a line of up to six digits for each number",
                   "any other numeric matrix, which becomes the empty text",
                   "a cell array of these, of any size: a column with a cell for each line"},
        .texts = {kOneLine},
        .samples = {"[1 22 1e6]", "{1,'a'; [2 3],'b'}", "char([97 10 98 99])", "{1,@sin}", "true",
                    "{true}", "logical([])"},
        .explain = explainArray<faultsOfLabels>}},
      {"TextString",
       {.family = "text",
        .inShort = "lines, as rows of characters or as a column of cells",
        .values = {"m-by-n char, or empty: a line for each row, blanks and all",
                   "an n-by-1 cell array of these or null: a line for each cell",
                   "an empty cell array"},
        .texts = {kOneLine},
        .samples = {"['one';'two']", "{'one';'two'}", "'one'", "{'one','two'}", "{'one';2}", "2"},
        .explain = explainArray<faultsOfLines>}},
      {"UTF16String",
       {.family = "text",
        .inShort = "one text: a row of characters",
        .values = {"a char array with one row, or an empty one"},
        .texts = {"any text; as a text, the value has only the low byte of each 16-bit character"},
        .samples = {"'one'", "'it''s'", "''", "['one';'two']", "3", "{'one'}"},
        .explain = explainArray<faultsOfOneText>}},
  };
  return rows;
}

}  // namespace

std::optional<TypeWords> stringWords(const std::string& typeName) {
  const auto row = wordsByType().find(typeName);
  if (row == wordsByType().end()) return std::nullopt;
  return row->second;
}

}  // namespace vgdt
