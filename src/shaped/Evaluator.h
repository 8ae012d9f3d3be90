#pragma once

/// Tests host arrays by the rules of a shaped array type.

#include <graphics/datatype/shaped_rules.h>
#include <messages/BaseMsgID.h>
#include <boost/shared_ptr.hpp>

namespace graphics::datatype::shaped {

using MessagePtr = boost::shared_ptr<resource_core::BaseMsgID>;

/// Whether an array can be a value of the type; `message` gets what ArrayBase::isValid() says.
bool isValid(const ShapedType& type, const vxArray* array, MessagePtr& message);

/// Whether one predicate of the type holds; if not, `message` gets the message of the last failure.
bool holds(const ShapedType& type, const Predicate& predicate, const vxArray* array,
           MessagePtr& message);

/// What came of trying the predicates of a type in turn.
struct Verdict {
  bool isValid;
  Failure failure = Failure::kNone;  ///< of the last predicate that failed, if any did
  const Predicate* lastFailed = nullptr;

  /// The message of that failure; the caller owns it.
  resource_core::BaseMsgID* newMessage(const ShapedType& type) const;
};

/// Makes no message: most are never seen.
Verdict tryPredicates(const ShapedType& type, const vxArray* array);

}  // namespace graphics::datatype::shaped
