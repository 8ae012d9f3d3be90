#pragma once

#include "Types.h"

#include <vcos/COSClass.h>

#include <string>
#include <string_view>
#include <vector>

namespace vgdt {

/// A class of objects by its short or its whole name; RequestError if there is none.
const vcos::COSClass& requireClass(std::string_view name);
std::vector<std::string> classNames();

/// RequestError if the class has no property of that name.
vcos::COSPropInfo& requireProperty(const vcos::COSClass& owner, std::string_view name);
std::vector<std::string> propertyNames(const vcos::COSClass& owner);

/// An event of a class; RequestError if the class has none of that name.
vcos::COSNameID requireEvent(const vcos::COSClass& owner, std::string_view name);
std::vector<std::string> eventNames(const vcos::COSClass& owner);

/// The type of a property, with whatever forms its values have.
Type typeOf(const vcos::COSPropInfo& property);

/// "; did you mean "...?"", or else "; " and what there is.
std::string nearestOr(std::string_view name, const std::vector<std::string>& names,
                      std::string_view others);

}  // namespace vgdt
