#include <graphics/datatype/exceptions.h>
#include <graphics/datatype/vxErrMsgWrapper.h>
#include <vx/errors.h>

namespace graphics::datatype {

GenericException::~GenericException() = default;
AmbiguousNameException::~AmbiguousNameException() = default;
MissingNameException::~MissingNameException() = default;

void vxErrMsgWrapper(const char* identifier, const char* format, const char* argument) {
  vxErrMsgIdAndTxt(identifier, format, argument);
}

}  // namespace graphics::datatype
