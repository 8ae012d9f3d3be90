#pragma once

/// What the shaped array types take, in words made from their rules.

#include <graphics/datatype/shaped_rules.h>

#include <string>
#include <vector>

namespace vgdt {

/// Each way in which an array can be a value, such as "n-by-3 double or single, 0 to 1 or NaN";
/// ways that differ only in size are told together.
std::vector<std::string> acceptedWays(const graphics::datatype::shaped::ShapedType& type);

/// For each predicate, what it does not take of an array, such as "isNormalizedColorMap: element 3,
/// at (1,2), is 2; it has to be: 0 to 1 or NaN". Predicates that hold are left out.
std::vector<std::string> refusals(const graphics::datatype::shaped::ShapedType& type,
                                  const vxArray* array);

/// Literals that the predicates take, and some that differ from these in one respect.
std::vector<std::string> sampleLiterals(const graphics::datatype::shaped::ShapedType& type);

}  // namespace vgdt
