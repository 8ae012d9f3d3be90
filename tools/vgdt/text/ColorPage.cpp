#include "text/ColorPage.h"

#include "text/ColorForms.h"
#include "text/TextDisplay.h"

#include <fmt/format.h>

#include <string>
#include <string_view>

namespace vgdt {
namespace {

using graphics::datatype::ColorNameTable;

constexpr std::string_view kHead = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="color-scheme" content="light dark">
<title>Colour names</title>
<style>
:root { --page: #f6f6f4; --card: #fff; --text: #1c1c1a; --quiet: #5b5b57; --line: #bdbdb8; }
@media (prefers-color-scheme: dark) {
  :root { --page: #191a1c; --card: #242628; --text: #ececea; --quiet: #adadab; --line: #5a5c60; }
}
* { box-sizing: border-box; }
body {
  margin: 0 auto; padding: 1.5rem 1rem 3rem; max-width: 68rem;
  background: var(--page); color: var(--text);
  font: 1rem/1.45 system-ui, sans-serif;
}
h1 { margin: 0; font-size: 1.6rem; }
p { margin: .4rem 0 1.5rem; max-width: 42rem; color: var(--quiet); }
ul {
  display: grid; grid-template-columns: repeat(auto-fill, minmax(min(13.5rem, 100%), 1fr));
  gap: .9rem; margin: 0; padding: 0; list-style: none;
}
li {
  overflow: hidden; border: 1px solid var(--line); border-radius: .6rem; background: var(--card);
}
.swatch { display: block; height: 5rem; border-bottom: 1px solid var(--line); }
.undrawn {
  background: repeating-linear-gradient(135deg, var(--card) 0 .6rem, var(--line) .6rem .7rem);
}
.words { display: block; padding: .6rem .8rem .7rem; overflow-wrap: anywhere; }
.words > * { display: block; }
bdi { font-weight: 600; text-align: left; white-space: pre-wrap; }
@media (max-width: 30rem) {
  li { display: flex; }
  .swatch { flex: none; width: 6rem; height: auto; border: solid var(--line); border-width: 0 1px 0 0; }
}
code { font: .85rem/1.6 ui-monospace, monospace; }
small { font-size: .85rem; color: var(--quiet); }
</style>
</head>
<body>
<main>
<h1>Colour names</h1>
)";

constexpr std::string_view kTail = R"(</ul>
</main>
</body>
</html>
)";

/// How much of a name is shown, in columns.
constexpr std::size_t kNameWidth = 80;

std::string escaped(std::string_view text) {
  std::string result;
  for (const char c : text) {
    switch (c) {
      case '&':
        result += "&amp;";
        break;
      case '<':
        result += "&lt;";
        break;
      case '>':
        result += "&gt;";
        break;
      default:
        result += c;
    }
  }
  return result;
}

std::string entryOf(const std::string& name, const ColorNameTable::ColorValue& color) {
  const auto bytes = drawnBytes(color);
  const std::string swatch =
      bytes ? fmt::format(R"(class="swatch" style="background: {}")", hexCode(*bytes))
            : R"(class="swatch undrawn")";
  const std::string note = bytes ? fmt::format("<code>{}</code>", hexCode(*bytes))
                                 : "<small>no colour: not from 0 to 1</small>";
  return fmt::format(
      "<li><span {}></span><span class=\"words\"><bdi>{}</bdi><code>{}</code>{}</span></li>\n",
      swatch, escaped(onOneLine(name, kNameWidth)), channelsText(color), note);
}

}  // namespace

void writeColorPage(std::ostream& output, const ColorNameTable::ColorMap& colors) {
  output << kHead
         << fmt::format(
                "<p>{} names, with red, green and blue from 0 to 1, and as bytes in hexadecimal. A "
                "colour is found by its name, and by any beginning that no other name "
                "has.</p>\n<ul>\n",
                colors.size());
  for (const auto& [name, color] : colors)
    output << entryOf(name, color);
  output << kTail;
}

}  // namespace vgdt
