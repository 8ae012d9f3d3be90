#pragma once

#include "Values.h"
#include "commands/Console.h"

#include <optional>
#include <string>
#include <vector>

namespace vgdt {

/// The commands of the program. Each returns its exit status and has written its errors.
ExitStatus listTypes(const Console& console, const std::optional<std::string>& family, bool asJson);
ExitStatus describeType(const Console& console, const std::string& name, bool asJson);
struct ConvertOptions {
  bool asJson = false;
  bool withJava = false;  ///< the value also goes to Java and back
};
ExitStatus convertValue(const Console& console, const std::string& name, const GivenValue& given,
                        const ConvertOptions& options);
/// Lists the colour names, or writes a page of them to the file `page`, which "-" names as standard
/// output.
ExitStatus listColors(const Console& console, const std::optional<std::string>& page, bool asJson);
/// Arguments of a conversion between units. All but the names are literals.
struct UnitsArguments {
  std::string what;
  std::string from;
  std::string to;
  std::optional<std::string> value;
  std::optional<std::string> ppi;
  std::optional<std::string> reference;
  std::optional<std::string> character;
  std::optional<std::string> origin;
};
ExitStatus convertUnits(const Console& console, const UnitsArguments& arguments, bool asJson);
/// From the file of that name; from standard input without one.
ExitStatus evaluate(const Console& console, const std::optional<std::string>& file, bool asTable);
/// The lines of the file of that name; without one those of standard input, edited if both it and
/// standard output are a terminal.
ExitStatus runSession(const Console& console, const std::optional<std::string>& file, bool asJson);
/// Each of the files, of which "-" is standard input. `showsProgress` says that the errors go to a
/// terminal.
ExitStatus checkSheets(const Console& console, const std::vector<std::string>& files, bool asJson,
                       bool showsProgress);

}  // namespace vgdt
