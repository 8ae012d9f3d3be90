#pragma once

#include "ExitStatus.h"
#include "JavaValues.h"
#include "Values.h"
#include "requests/JsonValue.h"
#include "requests/JsonWriter.h"
#include "requests/TypeForm.h"
#include "requests/UnitConversion.h"

#include <graphics/datatype/ColorNameTable.h>
#include <vx/errors.h>

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace vgdt {

/// A value, how it compares with a second one, and what becomes of it in Java.
struct ValueAnswer {
  struct Comparison {
    bool isEqual;
    int compare;
  };
  ValueForm value;
  std::optional<Comparison> comparison = {};
  std::optional<JavaForm> java = {};
};

using TypeNames = std::vector<std::string>;

/// What the colour name table has for a text.
struct ColorAnswer {
  bool isInTable;
  /// None for a text that is not in the table, and for one that begins several names.
  std::optional<graphics::datatype::ColorNameTable::ColorValue> color;
};
using NamedColors = graphics::datatype::ColorNameTable::ColorMap;

/// kNotUnderstood where the request is wrong, kRefused otherwise.
ExitStatus statusOf(const Failure& failure);

/// What a request comes to. Everything that can fail has been done: to write a reply takes no
/// memory that grows with it, and no document is made of the arrays in it.
struct Reply {
  std::variant<Failure, ValueAnswer, TypeForm, TypeNames, ColorAnswer, NamedColors, UnitsAnswer>
      answer = {};
  std::vector<std::string> console = {};       ///< lines that were printed on the host's console
  std::vector<vghost::Warning> warnings = {};  ///< the host's

  ExitStatus status() const;
};

/// One line, flushed. `request` gives the "id"; it is Null where there was no request.
void writeReply(JsonWriter& writer, const JsonValue& request, const Reply& reply);

}  // namespace vgdt
