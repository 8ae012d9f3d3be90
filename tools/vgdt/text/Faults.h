#pragma once

/// What is wrong with an array, or with a text of numbers, in words that types share. `wanted`
/// says what would be right.

#include <vx/array.h>

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace vgdt {

/// "its class is char, not numeric".
std::string classFault(const vxArray* array, std::string_view wanted);

/// "its size is 2-by-2, not 1-by-4".
std::string sizeFault(std::span<const std::size_t> size, std::string_view wanted);

/// "it has 1 element, not 3 or 4"; none if their number is from `least` to `most`.
std::optional<std::string> countFault(const vxArray* array, std::size_t least, std::size_t most);

/// "(2,3)", counted from 1, of an element's place in storage order.
std::string placeOf(std::size_t index, const vxArray* array);

constexpr const char* kEmptyText = "the text is empty";

/// Rows and columns of numbers in brackets; none for another text.
std::optional<std::array<std::size_t, 2>> sizeOfNumbers(const std::string& text);

/// Why a text, which is no numbers in brackets, is none although it looks like it; none if it does
/// not.
std::optional<std::string> bracketsFault(const std::string& text);

}  // namespace vgdt
