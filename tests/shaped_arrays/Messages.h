#pragma once

#include <messages/BaseMsgID.h>
#include <boost/shared_ptr.hpp>

#include <set>
#include <string>
#include <string_view>

namespace test {

using MessagePtr = boost::shared_ptr<resource_core::BaseMsgID>;

/// The message that stands for a failure of a type: "ColorMapSize", "NaN(ColorMap)"; "" for "".
inline std::string messageOf(const std::string& type, const std::string& failure) {
  static const std::set<std::string> kNamingTheType = {"Sparse", "Complex", "NaN", "Inf"};
  if (failure.empty()) return {};
  return kNamingTheType.contains(failure) ? failure + "(" + type + ")" : type + failure;
}

/// A message in the same words; "" for none.
inline std::string wordsOf(const MessagePtr& message) {
  constexpr std::string_view kPrefix = "VORTIL:vg:shaped_arrays:";
  if (!message) return {};
  std::string words = message->definition().identifier;
  if (words.starts_with(kPrefix)) words.erase(0, kPrefix.size());
  for (const std::string& argument : message->arguments())
    words += "(" + argument + ")";
  return words;
}

}  // namespace test
