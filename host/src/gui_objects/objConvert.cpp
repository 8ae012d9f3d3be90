#include <gui_objects/AutoPtr.h>
#include <gui_objects/exceptions.h>
#include <gui_objects/objConvert.h>
#include <vx/element_types.h>

#include <algorithm>

namespace vg::objConvert {

using gui_objects::Matrix4x4d;

vxArray* toVxArray(const Matrix4x4d& matrix) {
  gui_objects::AutoPtr<vxArray, gui_objects::VxArrayDtor> array(vxCreateDoubleMatrix(4, 4, vxREAL));
  std::ranges::copy(matrix.elements(), static_cast<double*>(vxGetWritableData(array.get())));
  return array.release();
}

Matrix4x4d toMatrix4x4d(const vxArray* array) {
  if (!array || !vxIsNumeric(array)) throw gui_objects::InvalidArrayClassException();
  if (vxGetNumberOfDimensions(array) != 2 || vxGetM(array) != 4 || vxGetN(array) != 4)
    throw gui_objects::InvalidArrayShapeException();
  const void* const data = vxGetData(array);
  if (!data) throw gui_objects::NullArrayException();
  Matrix4x4d::Elements elements{};
  vghost::withElementType(vxGetClassID(array), [&]<class T>(std::type_identity<T>) {
    std::transform(static_cast<const T*>(data), static_cast<const T*>(data) + elements.size(),
                   elements.begin(), [](T element) { return static_cast<double>(element); });
  });
  return Matrix4x4d(elements);
}

}  // namespace vg::objConvert
