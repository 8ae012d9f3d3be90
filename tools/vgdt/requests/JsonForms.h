#pragma once

#include "Errors.h"
#include "JavaValues.h"
#include "Values.h"
#include "requests/JsonWriter.h"

#include <vx/array.h>

#include <string>
#include <string_view>
#include <vector>

namespace vgdt {

// How replies show things. None of these allocates or fails.

void writeTexts(JsonWriter& writer, const std::vector<std::string>& texts);

/// A host array. Null gives null.
void writeArray(JsonWriter& writer, const vxArray* array);

/// {"kind", "id", "message"}.
void writeFailure(JsonWriter& writer, const Failure& failure);

/// {"id", "message"}, of a warning or a report.
void writeMessage(JsonWriter& writer, std::string_view identifier, std::string_view message);

/// The text of a value, or {"error"} in its place.
void writeText(JsonWriter& writer, const ValueForm& value);

/// {"type", "null", "word", "text", "array"}; without the first if `type` is empty.
void writeValue(JsonWriter& writer, const ValueForm& value, std::string_view type = {});

/// {"class", "text", "array"}, or {"error"} in its place.
void writeJava(JsonWriter& writer, const JavaForm& form);

}  // namespace vgdt
