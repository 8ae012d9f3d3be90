#include <gui_objects/AutoPtr.h>
#include <gui_objects/convert_from_string_utils.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace gui_objects::convert_from_string_utils {
namespace {

bool isBlank(char c) {
  return c == ' ' || c == '\t';
}

void skipBlanks(std::string_view& rest) {
  rest.remove_prefix(
      static_cast<std::size_t>(std::ranges::find_if_not(rest, isBlank) - rest.begin()));
}

/// Whether `character` comes next; if so, it is read with the blanks behind it.
bool take(std::string_view& rest, char character) {
  if (!rest.starts_with(character)) return false;
  rest.remove_prefix(1);
  skipBlanks(rest);
  return true;
}

/// The text in quotes that comes next, in which two quotes stand for one; none if the quotes do not
/// close.
std::optional<std::string> takeQuoted(std::string_view& rest) {
  std::string text;
  while (rest.starts_with('\'')) {
    const std::size_t end = rest.find('\'', 1);
    if (end == rest.npos) return std::nullopt;
    text += rest.substr(1, end - 1);
    rest.remove_prefix(end + 1);
    if (rest.starts_with('\'')) text += '\'';
  }
  skipBlanks(rest);
  return text;
}

/// The texts in quotes of a list in braces, separated by commas, semicolons or blanks; none for any
/// other text.
std::optional<std::vector<std::string>> readList(std::string_view rest) {
  std::vector<std::string> texts;
  skipBlanks(rest);
  if (!take(rest, '{')) return std::nullopt;
  do {
    if (!rest.starts_with('\'')) return std::nullopt;
    auto text = takeQuoted(rest);
    if (!text) return std::nullopt;
    texts.push_back(*std::move(text));
  } while (take(rest, ',') || take(rest, ';') || rest.starts_with('\''));
  if (!take(rest, '}') || !rest.empty()) return std::nullopt;
  return texts;
}

enum Part { kColor, kLine, kMarker, kParts };

struct StyleWord {
  std::string_view word;
  Part part;
};

/// Longest first, so that "-." is no "-" with a point.
constexpr StyleWord kStyleWords[] = {
    {"pentagram", kMarker}, {"hexagram", kMarker}, {"diamond", kMarker}, {"square", kMarker},
    {"--", kLine},          {"-.", kLine},         {"-", kLine},         {":", kLine},
    {"+", kMarker},         {"o", kMarker},        {"*", kMarker},       {".", kMarker},
    {"x", kMarker},         {"v", kMarker},        {"^", kMarker},       {">", kMarker},
    {"<", kMarker},         {"s", kMarker},        {"d", kMarker},       {"p", kMarker},
    {"h", kMarker},         {"r", kColor},         {"g", kColor},        {"b", kColor},
    {"c", kColor},          {"m", kColor},         {"y", kColor},        {"k", kColor},
    {"w", kColor}};
static_assert(std::ranges::is_sorted(kStyleWords, std::ranges::greater(),
                                     [](const StyleWord& row) { return row.word.size(); }));

}  // namespace

vxArray* parse_strings(const char* text) {
  const std::string_view whole = text ? text : "";
  if (whole.empty() || whole == "[]" || whole == "{}") return nullptr;
  const auto texts = readList(whole);
  if (!texts) return vxCreateString(text);
  AutoPtr<vxArray, VxArrayDtor> cells(vxCreateCellMatrix(texts->size(), 1));
  for (std::size_t i = 0; i < texts->size(); ++i)
    vxSetCell(cells.get(), i, vxCreateString((*texts)[i].c_str()));
  return cells.release();
}

bool stringToColorMarkerLineStyle(const char* text, std::string& color, std::string& line,
                                  std::string& marker) {
  std::string_view parts[kParts];
  for (std::string_view rest = text ? text : ""; !rest.empty();) {
    const auto* const row = std::ranges::find_if(
        kStyleWords, [rest](const StyleWord& word) { return rest.starts_with(word.word); });
    if (row == std::end(kStyleWords) || !parts[row->part].empty()) return false;
    parts[row->part] = row->word;
    rest.remove_prefix(row->word.size());
  }
  color = parts[kColor];
  line = parts[kLine];
  marker = parts[kMarker];
  return true;
}

}  // namespace gui_objects::convert_from_string_utils
