#include "shaped/Evaluator.h"

#include <graphics/datatype/ShapedValue.h>
#include <vx/errors.h>

namespace graphics::datatype {
namespace {

/// Changes nothing but the header.
void makeRow(vxArray* array, std::size_t count) {
  // The columns of an array without rows would become elements on the way.
  if (count == 0) vxSetN(array, 0);
  vxSetM(array, 1);
  vxSetN(array, count);
}

}  // namespace

ShapedValue::ShapedValue(const vxArray* array, const shaped::ShapedType& type) : ArrayBase(array) {
  const shaped::Verdict verdict = shaped::tryPredicates(type, array);
  if (!verdict.isValid) {
    const shaped::MessagePtr message(verdict.newMessage(type));
    vxErrMsgId(*message);
  }
  if (type.stored == shaped::Stored::kAsRow && array)
    makeRow(getPtr(), vxGetNumberOfElements(array));
}

std::size_t ShapedValue::getMaxNumberOfValuesToCompare() const {
  return 32000;
}

}  // namespace graphics::datatype
