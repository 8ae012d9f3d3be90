#pragma once

#include <ut/export.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace resource_core {

/// One message of the catalogue, as its row states it.
struct MessageDefinition {
  const char* className;   ///< with its namespaces, "component_VORTIL::catalog_vg::key_..."
  const char* identifier;  ///< "VORTIL:vg:..."
  const char* english;     ///< an ICU message pattern with the arguments {0}, {1}, ...
  std::size_t arity;       ///< number of arguments
};

/// A message of the catalogue with its arguments. The texts are looked up when it is raised.
class VGHOST_API BaseMsgID {
 public:
  virtual ~BaseMsgID();

  const MessageDefinition& definition() const noexcept { return *definition_; }
  const std::vector<std::string>& arguments() const noexcept { return arguments_; }

 protected:
  BaseMsgID(const MessageDefinition& definition, std::vector<std::string> arguments);

 private:
  const MessageDefinition* definition_;
  std::vector<std::string> arguments_;
};

/// The identifier of a message class: its path without the prefixes "component_", "catalog_" and
/// "key_", joined with ":".
constexpr bool isIdentifierOf(std::string_view identifier, std::string_view space,
                              std::string_view name) {
  auto takePart = [&identifier](std::string_view part) {
    for (std::string_view prefix : {"component_", "catalog_", "key_"})
      if (part.starts_with(prefix)) {
        part.remove_prefix(prefix.size());
        break;
      }
    if (!identifier.starts_with(part)) return false;
    identifier.remove_prefix(part.size());
    return true;
  };
  while (!space.empty()) {
    const std::size_t end = std::min(space.find("::"), space.size());
    if (!takePart(space.substr(0, end)) || !identifier.starts_with(':')) return false;
    identifier.remove_prefix(1);
    space.remove_prefix(std::min(end + 2, space.size()));
  }
  return takePart(name) && identifier.empty();
}

}  // namespace resource_core
