#pragma once

#include <graphics/datatype/AbstractJavaConverter.h>

#include <memory>

namespace graphics::datatype {

/// The Java conversion of on_off: between a word and a java.lang.Boolean.
std::unique_ptr<AbstractJavaConverter> newOnOffBooleanJavaConverter();

}  // namespace graphics::datatype
