#include "ShapedSupport.h"

#include "ElementScan.h"
#include "ShapedTable.h"

#include <graphics/datatype/ShapedValue.h>
#include <graphics/datatype/vxErrMsgWrapper.h>
#include <gui_objects/convert_from_string_utils.h>
#include <vg/ArrayDispatcher.h>
#include <vx/errors.h>

#include <string>

namespace graphics::datatype {
namespace shaped {
namespace {

using vcos::COSValue;
using vg::TL::detail::ArrayDispatcherBase;
using Numeric = vg::TL::Typelist<vg::MatrixTraits<vxDOUBLE_CLASS>, vg::TL::NumericButDouble>;

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

/// What came of trying the predicates of a type in turn.
struct Verdict {
  bool isValid;
  Failure failure = Failure::kNone;  ///< of the last predicate that failed, if any did
  const Predicate* lastFailed = nullptr;

  resource_core::BaseMsgID* newMessage(const ShapedType& type) const {
    return newMessageFor(type, *lastFailed, failure);
  }
};

/// Makes no message: most are never seen.
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

/// Changes nothing but the header.
void makeRow(vxArray* array, std::size_t count) {
  // The columns of an array without rows would become elements on the way.
  if (count == 0) vxSetN(array, 0);
  vxSetM(array, 1);
  vxSetN(array, count);
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

const ShapedType* findShapedType(std::string_view name) noexcept {
  const auto* type = std::ranges::find(kTypes, name, &ShapedType::name);
  return type == std::end(kTypes) ? nullptr : type;
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

COSValue valueFromText(const ShapedType& type, COSValue text, NewValue newValue) {
  namespace convert = gui_objects::convert_from_string_utils;
  if (text.isNull()) return {};
  try {
    const char* const characters = text.asPointer<const char>();
    const auto [rows, columns] = convert::parse_array_dimensions(characters);
    if (rows == 0 || columns == 0) return newValue(nullptr);
    const gui_objects::AutoPtr<vxArray, gui_objects::VxArrayDtor> array(
        convert::parse_mxn(rows, columns, type.storageClass, characters));
    return array ? newValue(array.get()) : COSValue();
  } catch (const convert::ParseException&) {
    const std::string identifier = std::string("datatypes:") + type.name + ":ParseException";
    vxErrMsgWrapper(identifier.c_str(), "Invalid String", type.name);
  }
}

COSValue textOf(COSValue value) {
  if (value.isNull()) return value;
  return COSValue::fromPointer(value.asPointer<const ArrayBase>()->convert_to_string());
}

COSValue arrayOf(const ShapedType& type, COSValue value) {
  const auto* const arrayBase = value.asPointer<const ArrayBase>();
  if (!arrayBase || !arrayBase->getPtr())
    return COSValue::fromPointer(vxCreateNumericMatrix(0, 0, type.storageClass, vxREAL));
  return COSValue::fromPointer(arrayBase->getSharedDataCopy().release());
}

}  // namespace shaped

ShapedValue::ShapedValue(const vxArray* array, const shaped::ShapedType& type) : ArrayBase(array) {
  const shaped::Verdict verdict = shaped::tryPredicates(type, array);
  if (!verdict.isValid) {
    const shaped::MessagePtr message(verdict.newMessage(type));
    vxErrMsgId(*message);
  }
  if (type.stored == shaped::Stored::kAsRow && array)
    shaped::makeRow(getPtr(), vxGetNumberOfElements(array));
}

std::size_t ShapedValue::getMaxNumberOfValuesToCompare() const {
  return 32000;
}

}  // namespace graphics::datatype
