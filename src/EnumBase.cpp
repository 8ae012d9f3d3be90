#include <graphics/datatype/EnumBase.h>

namespace graphics::datatype {

EnumBase::~EnumBase() = default;

}  // namespace graphics::datatype
