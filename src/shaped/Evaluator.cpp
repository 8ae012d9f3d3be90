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

/// Runs `use(elements, count)` for an array of a numeric class, and does nothing for others.
template <class Use>
struct ElementsExecutor {
  Use use;

  template <class Traits>
  void run(const vxArray* array) {
    using Element = typename Traits::ElementType;
    use(static_cast<const Element*>(vxGetData(array)), vxGetNumberOfElements(array));
  }
  void onError(vxClassID) {}
};

template <class Use>
void withElements(const vxArray* array, Use use) {
  using Executor = ElementsExecutor<Use>;
  Executor executor{use};
  vg::TL::ArrayDispatcher<Executor, Numeric>::dispatchHelper(
      array, ArrayDispatcherBase::getClassID(array), executor);
}

Failure checkScan(const ElementScan& scan, const vxArray* array) {
  Failure failure = Failure::kNone;
  withElements(array, [&](const auto* elements, std::size_t count) {
    failure = runScan(scan, elements, count);
  });
  return failure;
}

bool holdsRule(WholeArrayRule rule, const vxArray* array) {
  bool isKept = true;
  withElements(array, [&](const auto* elements, std::size_t count) {
    isKept = !findBreach(rule, elements, count);
  });
  return isKept;
}

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

bool fitsSize(const SizeRule& rule, const vxArray* array) {
  switch (rule.kind) {
    case SizeRule::Kind::kPair:
      return (vxGetM(array) == 1 || vxGetN(array) == 1) && vxGetM(array) * vxGetN(array) == 2;
    case SizeRule::Kind::kVector:
      return vxIsVector(array);
    case SizeRule::Kind::kDimensions:
      break;
  }
  // The host is not asked for what is open.
  const auto fits = [array](std::size_t wanted, auto size) {
    return wanted == SizeRule::kAny || wanted == size(array);
  };
  return fits(rule.numberOfDimensions, vxGetNumberOfDimensions) && fits(rule.m, vxGetM) &&
         fits(rule.n, vxGetN) &&
         fits(rule.third, [](const vxArray* a) { return vxGetDimensions(a)[2]; });
}

Failure check(const Predicate& predicate, const vxArray* array) {
  if (!array) return Failure::kSize;
  if (predicate.refusesSparse && vxIsSparse(array)) return Failure::kSparse;
  if (predicate.refusesComplex && isComplex(array)) return Failure::kComplex;
  Failure failure = fitsSize(predicate.size, array) ? Failure::kNone : Failure::kSize;
  if (!predicate.classes.contains(ArrayDispatcherBase::getClassID(array))) return Failure::kType;
  const bool isScanned =
      !predicate.scan.isEmpty() && !(predicate.scan.gated && failure != Failure::kNone);
  if (isScanned)
    if (const Failure found = checkScan(predicate.scan, array); found != Failure::kNone)
      failure = found;
  const bool isRuled = predicate.rule != WholeArrayRule::kNone;
  return isRuled && !holdsRule(predicate.rule, array) ? Failure::kPredicate : failure;
}

std::optional<std::size_t> findOffender(const Predicate& predicate, const vxArray* array) {
  std::optional<std::size_t> offender;
  if (ArrayBase::isEmpty(array) ||
      !predicate.classes.contains(ArrayDispatcherBase::getClassID(array)))
    return offender;
  withElements(array, [&](const auto* elements, std::size_t count) {
    const std::size_t failing = findFailing(predicate.scan, elements, count);
    offender = failing < count ? failing : findBreach(predicate.rule, elements, count);
  });
  return offender;
}

resource_core::BaseMsgID* Verdict::newMessage(const ShapedType& type) const {
  return newMessageFor(type, *lastFailed, failure);
}

Verdict tryPredicates(const ShapedType& type, const vxArray* array) {
  if (type.takesEmpty && ArrayBase::isEmpty(array)) return {true};
  Verdict verdict{.isValid = false, .lastFailed = type.predicates.data()};
  for (const Predicate& predicate : type.predicates) {
    const Failure failure = check(predicate, array);
    verdict.isValid = failure == Failure::kNone;
    if (verdict.isValid) break;
    verdict.lastFailed = &predicate;
    verdict.failure = failure;
  }
  return verdict;
}

bool holds(const ShapedType& type, const Predicate& predicate, const vxArray* array,
           MessagePtr& message) {
  const Failure failure = check(predicate, array);
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
