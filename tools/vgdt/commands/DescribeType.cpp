#include "JavaValues.h"
#include "commands/Commands.h"
#include "requests/Requests.h"
#include "text/Examples.h"
#include "text/TextDisplay.h"
#include "text/TypeWords.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace vgdt {
namespace {

void printTrials(const Console& console, std::string_view title, const std::vector<Trial>& trials) {
  if (!trials.empty()) console.output << console.outputStyle.heading(title) << '\n';
  std::size_t width = 14;
  for (const Trial& trial : trials)
    width = std::max(width, displayWidth(trial.given));
  for (const Trial& trial : trials)
    console.output << "  " << padded(onOneLine(trial.given), width + 2)
                   << onOneLine(trial.outcome, kColumns) << '\n';
}

void printDescription(const Console& console, const Type& type) {
  const TypeForm form = typeForm(type);
  const TypeWords words = wordsOf(type);
  console.output << console.outputStyle.heading(type.name) << '\n';
  const std::pair<const char*, std::string> fields[] = {
      {"full name", form.dottedName},
      {"family", words.family},
      {"category", form.category},
      {"declared as", form.declarationName},
      {"storage", fmt::format("type {}", form.storageType)},
      {"bits", std::to_string(form.sizeInBits)},
      {"value bytes", std::to_string(form.valueSizeInBytes)},
      {"default", defaultText(type)},
      {"finite", form.isFinite ? "yes" : "no"},
  };
  for (const auto& [name, value] : fields)
    printField(console.output, name, value);
  if (const auto javaClass = javaClassOf(type))
    printField(console.output, "Java class", *javaClass);
  printField(console.output, "values", words.values);
  printField(console.output, "texts", words.texts);
  const Examples examples = findExamples(type);
  printTrials(console, "takes", examples.taken);
  printTrials(console, "refuses", examples.refused);
}

}  // namespace

ExitStatus describeType(const Console& console, const std::string& name, bool asJson) {
  if (asJson)
    return printReply(console, serveRequest(requestOf({{"op", "describe"}, {"type", name}})));
  const ArrayScope scope;
  const HostOutput output;
  printDescription(console, requireType(name));
  output.print(console.errors);
  return kDone;
}

}  // namespace vgdt
