#pragma once

#include "Types.h"
#include "requests/Reply.h"
#include "text/Terminal.h"

#include <ut/console.h>
#include <vx/errors.h>

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace vgdt {

/// Where a command writes to.
struct Console {
  std::ostream& output;
  std::ostream& errors;
  Style outputStyle;
  Style errorStyle;
};

/// How many elements of an array a person is shown.
inline constexpr std::size_t kMaxElements = 100;
/// How many columns of a value a person is shown where it is not what was asked for.
inline constexpr std::size_t kColumns = 70;

/// "vgdt: there is no ...". As all texts that follow, the problem is shown as onOneLine() shows it.
void reportProblem(const Console& console, std::string_view problem);

/// The JSON of a reply to a request of the command line, and its status.
ExitStatus printReply(const Console& console, const Reply& reply);

/// "  name        value".
void printField(std::ostream& stream, std::string_view name, std::string_view value);
/// One line for each value; none if there is none.
void printField(std::ostream& stream, std::string_view name,
                const std::vector<std::string>& values);

/// Keeps what the library prints on the host's console and warns of while it lives.
class HostOutput {
 public:
  /// One field for each line and each warning.
  void print(std::ostream& stream) const;

 private:
  vghost::ConsoleCapture console_;
  vghost::WarningCapture warnings_;
};

/// The default value as text, or else as its array; a type of 0 bytes has none.
std::string defaultText(const Type& type);

}  // namespace vgdt
