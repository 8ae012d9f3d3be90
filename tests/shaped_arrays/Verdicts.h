#pragma once

#include "support/Arrays.h"
#include "support/HostError.h"

#include <graphics/datatype/ArrayBase.h>
#include <messages/catalog.h>
#include <vcos/TypeAccess.h>
#include <boost/shared_ptr.hpp>

#include <string>
#include <string_view>
#include <utility>

namespace test {

using MessagePtr = boost::shared_ptr<resource_core::BaseMsgID>;

/// What a test says of an array: whether it takes it, and the message that it leaves, as in
/// "ColorMapSize" or "NaN(ColorMap)"; "" where it leaves the one that was there.
using Verdict = std::pair<bool, std::string>;

/// Of `isValid(message)`.
template <class IsValid>
Verdict verdictOf(IsValid&& isValid) {
  constexpr std::string_view kPrefix = "VORTIL:vg:shaped_arrays:";
  const MessagePtr before(new VORTIL::vg::shaped_arrays::TickSize);
  MessagePtr message = before;
  const bool isTaken = isValid(message);
  if (message == before) return {isTaken, ""};
  std::string words = message->definition().identifier;
  if (words.starts_with(kPrefix)) words.erase(0, kPrefix.size());
  for (const std::string& argument : message->arguments())
    words += "(" + argument + ")";
  return {isTaken, words};
}

inline graphics::datatype::ArrayBase& valueIn(vcos::COSValue word) {
  return *word.asPointer<graphics::datatype::ArrayBase>();
}

/// Of a type; the array conversion has to raise the message of a refusal.
inline Verdict verdictOf(const std::string& type, const vxArray* array) {
  const vcos::TypeAccess access = accessOf(type);
  const vcos::OwnedValue any(access.dataType(), access.fromText("[]"));
  const Verdict verdict =
      verdictOf([&](MessagePtr& message) { return valueIn(any.get()).isValid(array, message); });
  const std::string raised = identifierRaisedBy(
      [&] { const vcos::OwnedValue value(access.dataType(), access.fromArray(array)); });
  const std::string expected = verdict.second.substr(0, verdict.second.find('('));
  EXPECT_EQ(raised.substr(raised.rfind(':') + 1), verdict.first ? "" : expected);
  return verdict;
}

}  // namespace test
