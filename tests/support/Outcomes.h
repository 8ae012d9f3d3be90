#pragma once

#include "support/Arrays.h"
#include "support/HostError.h"

#include <graphics/datatype/InvalidValueException.h>
#include <gui_objects/convert_from_string_utils.h>
#include <gui_objects/exceptions.h>

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

/// What becomes of what a type is given, in a word that tables can hold.
namespace test {

/// An identifier without the parts that most have in front.
inline std::string shortIdentifier(std::string identifier) {
  for (const std::string_view prefix : {"VORTIL:datatypes:", "VORTIL:vg:dt_conv:", "VORTIL:vg:"})
    if (identifier.starts_with(prefix)) return identifier.erase(0, prefix.size());
  return identifier;
}

/// The text of a value, or the short identifier of the host error that is raised in its place.
inline std::optional<std::string> textOrError(const vcos::TypeAccess& access,
                                              vcos::COSValue value) {
  std::optional<std::string> text;
  const std::string raised = identifierRaisedBy([&] { text = access.toText(value); });
  return raised.empty() ? text : shortIdentifier(raised);
}

/// The text of the value that `make` gives, "null" for a null word, or what is raised: a short
/// identifier, with "thrown " before one that is no host error, or the name of the exception.
template <class Make>
std::string outcomeOf(const vcos::TypeAccess& access, Make&& make) {
  std::string text;
  const auto tell = [&] {
    const vcos::OwnedValue value(access.dataType(), make(access));
    text = value.get().isNull() && access.dataType().getStorageType() != 0
               ? "null"
               : access.toText(value.get()).value_or("no text");
  };
  try {
    const std::string raised = identifierRaisedBy(tell);
    return raised.empty() ? text : shortIdentifier(raised);
  } catch (const graphics::datatype::InvalidValueException& error) {
    return "thrown " + shortIdentifier(error.identifier());
  } catch (const gui_objects::convert_from_string_utils::ParseException&) {
    return "ParseException";
  } catch (const gui_objects::GeometryException& error) {
    return error.what();
  }
}

inline std::string outcomeOfText(const vcos::TypeAccess& access, const char* text) {
  return outcomeOf(access, [text](const auto& type) { return type.fromText(text); });
}
inline std::string outcomeOfArray(const vcos::TypeAccess& access, const vxArray* array) {
  return outcomeOf(access, [array](const auto& type) { return type.fromArray(array); });
}

/// Calls `use` with words for an array, for each class where they say "numeric", "integer" or
/// "other", which is none of the numeric ones.
template <class Use>
void forEachClass(const std::string& words, Use&& use) {
  const auto useAll = [&](const std::string& kind, std::initializer_list<int> classes) {
    for (const int classID : classes)
      use(std::string(words).replace(words.find(kind), kind.size(),
                                     vxClassName(vxClassID(classID))));
  };
  if (words.find("numeric") != words.npos)
    return useAll("numeric", {6, 7, 8, 9, 10, 11, 12, 13, 14, 15});
  if (words.find("integer") != words.npos) return useAll("integer", {8, 9, 10, 11, 12, 13, 14, 15});
  if (words.find("other") != words.npos) return useAll("other", {1, 2, 3, 4, 17});
  use(words);
}

}  // namespace test
