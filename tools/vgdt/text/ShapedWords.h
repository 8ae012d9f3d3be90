#pragma once

/// What the shaped array types take, in words made from their rules.

#include <graphics/datatype/shaped_rules.h>

#include <string>
#include <vector>

namespace vgdt {

/// Each way in which an array can be a value, such as "n-by-3 double or single, 0 to 1 or NaN (not
/// complex)". Neighbours that differ only in size are told together.
std::vector<std::string> acceptedWays(const graphics::datatype::shaped::ShapedType& type);

/// The same on one line, without what goes for nearly all types.
std::string acceptedInShort(const graphics::datatype::shaped::ShapedType& type);

/// What a text has to be.
std::string acceptedText(const graphics::datatype::shaped::ShapedType& type);

/// For each predicate that does not hold, why, such as "isNormalizedColorMap: element 3, at (1,2),
/// is 2; asked for: 0 to 1 or NaN".
std::vector<std::string> refusals(const graphics::datatype::shaped::ShapedType& type,
                                  const vxArray* array);

/// Literals that the predicates may take, and some that they may not.
std::vector<std::string> sampleLiterals(const graphics::datatype::shaped::ShapedType& type);

}  // namespace vgdt
