#include <graphics/datatype/limits.h>
#include <graphics/datatype/shaped_types.h>
#include <vg/ArrayDispatcher.h>

namespace graphics::datatype {
namespace {

bool readLimits(double* out, const vxArray* array) {
  using vg::TL::detail::ArrayDispatcherBase;
  using Dispatcher = vg::TL::ArrayDispatcher<limits::ConvertExecutor, vg::TL::NumericButDouble>;
  limits::ConvertExecutor executor;
  const vxClassID classID = ArrayDispatcherBase::getClassID(array);
  if (classID == vxDOUBLE_CLASS)
    executor.run<vg::MatrixTraits<vxDOUBLE_CLASS>>(array);
  else
    Dispatcher::dispatchHelper(array, classID, executor);
  executor.setData(out);
  return true;
}

}  // namespace

bool getLim(double* out, const Limits& limits) {
  return readLimits(out, limits.getPtr());
}

bool getLim(double* out, const LimitsWithInfs& limits) {
  return readLimits(out, limits.getPtr());
}

}  // namespace graphics::datatype
