#pragma once

#include "support/Arrays.h"
#include "support/HostError.h"

#include <graphics/datatype/InvalidValueException.h>
#include <gui_objects/convert_from_string_utils.h>
#include <gui_objects/exceptions.h>

#include <initializer_list>
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

/// The arrays that words describe, where "numeric", "integer" and "other" stand for all classes
/// of that kind.
template <class Use>
void forEachArray(const std::string& words, const Numbers& numbers, Use&& use) {
  const std::pair<const char*, std::vector<vxClassID>> kinds[] = {
      {"numeric",
       {vxDOUBLE_CLASS, vxSINGLE_CLASS, vxINT8_CLASS, vxUINT8_CLASS, vxINT16_CLASS, vxUINT16_CLASS,
        vxINT32_CLASS, vxUINT32_CLASS, vxINT64_CLASS, vxUINT64_CLASS}},
      {"integer",
       {vxINT8_CLASS, vxUINT8_CLASS, vxINT16_CLASS, vxUINT16_CLASS, vxINT32_CLASS, vxUINT32_CLASS,
        vxINT64_CLASS, vxUINT64_CLASS}},
      {"other", {vxLOGICAL_CLASS, vxCHAR_CLASS, vxCELL_CLASS, vxSTRUCT_CLASS, vxOBJECT_CLASS}}};
  for (const auto& [kind, classes] : kinds) {
    const std::size_t at = words.find(kind);
    if (at == words.npos) continue;
    for (const vxClassID classID : classes)
      use(std::string(words).replace(at, std::string_view(kind).size(), vxClassName(classID)),
          numbers);
    return;
  }
  use(words, numbers);
}

}  // namespace test
