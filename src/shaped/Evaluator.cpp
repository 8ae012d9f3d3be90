#include "shaped/Evaluator.h"

#include "shaped/ElementScan.h"

#include <graphics/datatype/ArrayBase.h>
#include <messages/catalog.h>
#include <vg/ArrayDispatcher.h>

namespace graphics::datatype::shaped {
namespace {

using vg::TL::Numeric;
using vg::TL::detail::ArrayDispatcherBase;

bool isComplex(const vxArray* array) {
  return vxIsComplex(array) && vxGetImagData(array) != nullptr;
}

/// The host is asked only about the dimensions that the rule restricts.
bool fitsSize(const SizeRule& rule, const vxArray* array) {
  const auto fits = [array](std::size_t wanted, auto size) {
    return wanted == SizeRule::kAny || wanted == size(array);
  };
  switch (rule.kind) {
    case SizeRule::Kind::kPair:
      return (vxGetM(array) == 1 || vxGetN(array) == 1) && vxGetM(array) * vxGetN(array) == 2;
    case SizeRule::Kind::kVector:
      return vxIsVector(array);
    case SizeRule::Kind::kDimensions:
      break;
  }
  return fits(rule.numberOfDimensions, vxGetNumberOfDimensions) && fits(rule.m, vxGetM) &&
         fits(rule.n, vxGetN) && fits(rule.third, [](const vxArray* a) {
           return vxGetNumberOfDimensions(a) > 2 ? vxGetDimensions(a)[2] : SizeRule::kAny;
         });
}

/// Tests the elements of an array whose class fits, and adds to what was found of its size.
struct ElementsExecutor {
  const Predicate& predicate;
  Finding& finding;

  template <class Traits>
  void run(const vxArray* array) {
    const auto* const elements = static_cast<const typename Traits::ElementType*>(vxGetData(array));
    const std::size_t count = vxGetNumberOfElements(array);
    const ElementScan& scan = predicate.scan;
    if (!scan.isEmpty() && (finding.fitsSize || !scan.gated)) {
      const ScanFinding found = runScan(scan, elements, count);
      if (found.failure != Failure::kNone) note(found.failure, found.first, found.deciding);
      // What ends a scan at once ends the tests of the predicate.
      if (found.failure != Failure::kNone && found.failure != Failure::kRange) return;
    }
    if (predicate.rule == WholeArrayRule::kNone) return;
    if (const auto breach = findBreach(predicate.rule, elements, count)) {
      const bool isElement = *breach < count;
      note(Failure::kPredicate, isElement ? breach : std::nullopt,
           isElement ? breach : std::nullopt);
    }
  }
  /// Logical elements are not tested.
  void onError(vxClassID) {}

 private:
  void note(Failure failure, std::optional<std::size_t> first,
            std::optional<std::size_t> deciding) {
    finding.failure = failure;
    if (!finding.firstElement) finding.firstElement = first;
    finding.decidingElement = deciding;
  }
};

resource_core::BaseMsgID* newMessageFor(const ShapedType& type, const Predicate& predicate,
                                        Failure failure) {
  namespace messages = VORTIL::vg::shaped_arrays;
  switch (failure) {
    case Failure::kSparse:
      return new messages::Sparse(type.name);
    case Failure::kComplex:
      return new messages::Complex(type.name);
    case Failure::kNaN:
      return new messages::NaN(type.name);
    case Failure::kInf:
      return new messages::Inf(type.name);
    case Failure::kSize:
      return type.newSizeMessage();
    case Failure::kType:
      return type.newTypeMessage();
    case Failure::kRange:
    case Failure::kPredicate:
      return predicate.newOwnMessage();
    case Failure::kNone:
      break;
  }
  return nullptr;
}

}  // namespace

Finding examine(const Predicate& predicate, const vxArray* array) {
  if (!array) return {.failure = Failure::kSize, .fitsSize = false};
  if (predicate.refusesSparse && vxIsSparse(array)) return {.failure = Failure::kSparse};
  if (predicate.refusesComplex && isComplex(array)) return {.failure = Failure::kComplex};
  const vxClassID classID = ArrayDispatcherBase::getClassID(array);
  Finding finding;
  finding.fitsSize = fitsSize(predicate.size, array);
  finding.fitsClass = predicate.classes.contains(classID);
  if (!finding.fitsSize) finding.failure = Failure::kSize;
  if (!finding.fitsClass) {
    finding.failure = Failure::kType;
  } else if (!predicate.scan.isEmpty() || predicate.rule != WholeArrayRule::kNone) {
    ElementsExecutor executor{predicate, finding};
    vg::TL::ArrayDispatcher<ElementsExecutor, Numeric>::dispatchHelper(array, classID, executor);
  }
  return finding;
}

resource_core::BaseMsgID* Verdict::newMessage(const ShapedType& type) const {
  return newMessageFor(type, *lastFailed, failure);
}

Verdict tryPredicates(const ShapedType& type, const vxArray* array) {
  if (type.takesEmpty && ArrayBase::isEmpty(array)) return {true};
  Verdict verdict{.isValid = false, .lastFailed = type.predicates.data()};
  for (const Predicate& predicate : type.predicates) {
    const Failure failure = examine(predicate, array).failure;
    verdict.isValid = failure == Failure::kNone;
    if (verdict.isValid) break;
    verdict.lastFailed = &predicate;
    verdict.failure = failure;
  }
  return verdict;
}

bool holds(const ShapedType& type, const Predicate& predicate, const vxArray* array,
           MessagePtr& message) {
  const Failure failure = examine(predicate, array).failure;
  if (failure == Failure::kNone) return true;
  message.reset(newMessageFor(type, predicate, failure));
  return false;
}

bool isValid(const ShapedType& type, const vxArray* array, MessagePtr& message) {
  const Verdict verdict = tryPredicates(type, array);
  if (verdict.failure != Failure::kNone) message.reset(verdict.newMessage(type));
  return verdict.isValid;
}

}  // namespace graphics::datatype::shaped
