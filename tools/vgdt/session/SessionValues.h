#pragma once

#include "session/SessionCommands.h"

#include <vcos/TypeAccess.h>

#include <string_view>

namespace vgdt {

/// The array of what stands in a command where a value is expected, `text` being a part of the
/// line: an object by its name, a literal, or a word that is its own text. LiteralError with the
/// place in the line if it is none of these.
vcos::ArrayOwner readValue(const Call& call, std::string_view text);

/// The same where it has to be a text, which is `what`.
std::string readText(const Call& call, std::string_view text, const char* what);
/// Whether an array is a row of characters, or '' as a literal makes it.
bool isTextRow(const vxArray* array);

/// The object of a name; RequestError if it is none that lives.
SessionObject& requireObject(const Call& call, std::string_view name);

/// Why no object can have a name; null if one can.
const char* problemOfName(std::string_view name);

}  // namespace vgdt
