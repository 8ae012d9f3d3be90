// Expressions over whole arrays.

#include "PlainTests.h"

#include <Eigen/Core>

namespace arrays {
namespace {

template <class Rules>
using Elements = Eigen::Map<const Eigen::Array<typename Rules::Element, Eigen::Dynamic, 1>>;

bool allPass(ColorMapRules, const Elements<ColorMapRules>& elements) {
  return (!(elements < 0 || elements > 1)).all();
}
bool allPass(PrimitiveVertexDataRules, const Elements<PrimitiveVertexDataRules>& elements) {
  return elements.isFinite().all();
}
bool allPass(PrimitiveVertexIndicesRules, const Elements<PrimitiveVertexIndicesRules>& elements) {
  return (elements != 0U).all();
}
/// What is out of range has no whole number to become, and is not 1.
bool allPass(PatchFacesRules, const Elements<PatchFacesRules>& elements) {
  const auto isInRange = elements >= 1 && elements <= PatchFacesRules::kMax;
  const auto whole = isInRange.select(elements, 1).cast<int>().cast<double>();
  return (elements == whole || elements.isNaN()).all();
}

template <class Rules>
bool expression(const typename Rules::Element* elements, std::size_t count) {
  return allPass(Rules(), Elements<Rules>(elements, static_cast<Eigen::Index>(count)));
}

template <class Rules>
void addExpression() {
  plainTests<Rules>().push_back({"Eigen", expression<Rules>});
}

[[maybe_unused]] const bool added = [] {
  addExpression<ColorMapRules>();
  addExpression<PrimitiveVertexDataRules>();
  addExpression<PrimitiveVertexIndicesRules>();
  addExpression<PatchFacesRules>();
  return true;
}();

}  // namespace
}  // namespace arrays
