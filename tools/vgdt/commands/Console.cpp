#include "commands/Console.h"

#include "Values.h"
#include "literal/LiteralPrinter.h"
#include "text/TextDisplay.h"

#include <utility>

namespace vgdt {

void reportProblem(const Console& console, std::string_view problem) {
  console.errors << console.errorStyle.error("vgdt:") << ' ' << onOneLine(problem) << '\n';
}

ExitStatus printReply(const Console& console, const Reply& reply) {
  JsonWriter writer(console.output);
  writeReply(writer, {}, reply);
  return reply.status();
}

void printField(std::ostream& stream, std::string_view name, std::string_view value) {
  stream << "  " << padded(std::string(name), 12) << onOneLine(value) << '\n';
}

void printField(std::ostream& stream, std::string_view name,
                const std::vector<std::string>& values) {
  for (const std::string& value : values)
    printField(stream, std::exchange(name, ""), value);
}

void HostOutput::print(std::ostream& stream) const {
  printField(stream, "console", console_.lines());
  for (const vghost::Warning& warning : warnings_.messages())
    printField(stream, "warning", warning.message);
}

std::string defaultText(const Type& type) {
  constexpr const char* kNone = "no value";
  const vcos::COSDataType& dataType = type.access.dataType();
  const vcos::COSValue value = dataType.getDefaultValue();
  if (dataType.getValueSizeInBytes(value) == 0) return kNone;
  std::optional<std::string> text;
  static_cast<void>(failureOf([&] { text = textOf(type, value); }));  // the array will do
  if (text) return *text;
  const vcos::ArrayOwner array = arrayOf(type, value);
  return array ? formatLiteral(array.get(), kMaxElements) : kNone;
}

}  // namespace vgdt
