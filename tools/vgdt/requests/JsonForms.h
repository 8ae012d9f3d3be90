#pragma once

#include "Errors.h"

#include <vx/array.h>
#include <nlohmann/json.hpp>

#include <string>

namespace vgdt {

/// What replies are made of: members stay in the order in which they are added.
using Json = nlohmann::ordered_json;

/// A host array as replies show it. Null gives null.
Json jsonOf(const vxArray* array);

/// {"kind", "id", "message"}.
Json jsonOf(const Failure& failure);

/// One line of UTF-8, with U+FFFD where a text was broken.
std::string dump(const Json& json);

}  // namespace vgdt
