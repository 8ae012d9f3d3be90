#include "commands/Commands.h"
#include "requests/Requests.h"
#include "text/ColorForms.h"
#include "text/ColorPage.h"
#include "text/NumberText.h"
#include "text/Table.h"
#include "text/TextDisplay.h"

#include <fmt/format.h>

#include <cerrno>
#include <fstream>
#include <system_error>

namespace vgdt {
namespace {

using graphics::datatype::ColorNameTable;
using Colors = ColorNameTable::ColorMap;

constexpr std::string_view kSwatch = "    ";

std::vector<std::string> rowOf(const Colors::value_type& entry) {
  const auto& [name, color] = entry;
  const auto bytes = drawnBytes(color);
  return {onOneLine(name, kMaxQuoted), numberText(color.red), numberText(color.green),
          numberText(color.blue), bytes ? hexCode(*bytes) : "not from 0 to 1"};
}

std::string swatchOf(const ColorNameTable::ColorValue& color, const Style& style) {
  if (!style.isColored()) return "";
  const auto bytes = drawnBytes(color);
  return (bytes ? style.onColor(kSwatch, *bytes) : std::string(kSwatch)) + "  ";
}

void printColors(const Console& console, const Colors& colors) {
  const Style& style = console.outputStyle;
  Table table({"name", "red", "green", "blue", "hex"});
  std::vector<std::string> swatches{std::string(style.isColored() ? kSwatch.size() + 2 : 0, ' ')};
  for (const auto& entry : colors) {
    table.add(rowOf(entry));
    swatches.push_back(swatchOf(entry.second, style));
  }
  auto swatch = swatches.begin();
  for (const std::string& line : table.lines())
    console.output << *swatch++ << line << '\n';
}

ExitStatus writePage(const Console& console, const std::string& file, const Colors& colors) {
  errno = 0;
  std::ofstream output(file, std::ios::binary);
  writeColorPage(output, colors);
  output.close();
  if (output) return kDone;
  reportProblem(console, fmt::format("{} cannot be written: {}", file,
                                     std::generic_category().message(errno)));
  return kNotUnderstood;
}

}  // namespace

ExitStatus listColors(const Console& console, const std::optional<std::string>& page, bool asJson) {
  if (asJson) return printReply(console, serveRequest(requestOf({{"op", "color"}})));
  const Colors& colors = ColorNameTable::getInstance()->getColorMap();
  if (page && *page != "-") return writePage(console, *page, colors);
  if (page)
    writeColorPage(console.output, colors);
  else
    printColors(console, colors);
  return kDone;
}

}  // namespace vgdt
