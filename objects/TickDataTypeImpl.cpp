#include <graphics/datatype/TickData.h>
#include <graphics/datatype/shaped_types.h>
#include <vg/ArrayDispatcher.h>

#include <algorithm>

namespace graphics::datatype {
namespace {

struct ListingExecutor {
  std::vector<double> values;

  template <class Traits>
  void run(const vxArray* array) {
    const auto* const elements = static_cast<const typename Traits::ElementType*>(vxGetData(array));
    values.assign(elements, elements + vxGetNumberOfElements(array));
  }
  void onError(vxClassID) {}
};

}  // namespace

Tick convertVectorToTickData(const std::vector<double>& values) {
  if (values.empty()) return {};
  const gui_objects::AutoPtr<vxArray, gui_objects::VxArrayDtor> array(
      vxCreateNumericMatrix(1, values.size(), vxDOUBLE_CLASS, vxREAL));
  std::ranges::copy(values, static_cast<double*>(vxGetWritableData(array.get())));
  return Tick(array.get());
}

std::vector<double> convertTickDataToVector(const Tick& tick) {
  using Floats = vg::TL::ClassList<vxDOUBLE_CLASS, vxSINGLE_CLASS>;
  using vg::TL::detail::ArrayDispatcherBase;
  const vxArray* const array = tick.getPtr();
  if (!array) return {};
  ListingExecutor executor;
  vg::TL::ArrayDispatcher<ListingExecutor, Floats>::dispatchHelper(
      array, ArrayDispatcherBase::getClassID(array), executor);
  return executor.values;
}

}  // namespace graphics::datatype
