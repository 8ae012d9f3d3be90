#include "text/Faults.h"

#include "ArrayElements.h"
#include "text/TextDisplay.h"

#include <fmt/format.h>
#include <gui_objects/convert_from_string_utils.h>

#include <vector>

namespace vgdt {

namespace convert = gui_objects::convert_from_string_utils;

std::string classFault(const vxArray* array, std::string_view wanted) {
  return fmt::format("its class is {}, not {}", vxGetClassName(array), wanted);
}

std::string sizeFault(std::span<const std::size_t> size, std::string_view wanted) {
  return fmt::format("its size is {}, not {}", fmt::join(size, "-by-"), wanted);
}

std::optional<std::string> countFault(const vxArray* array, std::size_t least, std::size_t most) {
  const std::size_t count = vxGetNumberOfElements(array);
  if (count >= least && count <= most) return std::nullopt;
  return fmt::format("it has {} element{}, not {}{}", count, count == 1 ? "" : "s", least,
                     least == most ? "" : fmt::format(" or {}", most));
}

std::string placeOf(std::size_t index, const vxArray* array) {
  std::vector<std::size_t> place;
  for (const std::size_t size : dimensionsOf(array)) {
    place.push_back(index % size + 1);
    index /= size;
  }
  return fmt::format("({})", fmt::join(place, ","));
}

std::optional<std::array<std::size_t, 2>> sizeOfNumbers(const std::string& text) {
  try {
    const auto [rows, columns] = convert::parse_array_dimensions(text.c_str());
    return std::array{rows, columns};
  } catch (const convert::ParseException&) {
    return std::nullopt;
  }
}

std::optional<std::string> bracketsFault(const std::string& text) {
  if (trimmed(text).starts_with('[')) return "the brackets do not hold rows of numbers";
  if (sizeOfNumbers('[' + text + ']')) return "numbers stand in brackets";
  return std::nullopt;
}

}  // namespace vgdt
