#pragma once

#include <vcos/COSDataType.h>
#include <vcos/COSTypeConversion.h>

#include <memory>
#include <vector>

namespace vcos {

/// The host's own types.
std::vector<std::unique_ptr<COSDataType>> makeBuiltInTypes();

/// The conversion between "any" and "string".
std::unique_ptr<COSTypeConversion> makeArrayStringConversion();

}  // namespace vcos
