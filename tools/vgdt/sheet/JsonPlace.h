#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vgdt {

/// Where in a JSON text a value stands: the steps that lead to it. Costs nothing until somebody
/// wants the text.
class JsonPlace {
 public:
  JsonPlace() = default;
  /// A member, by its name as JsonCursor gives it. The place around it outlives this one.
  JsonPlace(const JsonPlace& around, std::string_view member) : around_(&around), member_(member) {}
  /// An element, counted from 0.
  JsonPlace(const JsonPlace& around, std::size_t element) : around_(&around), element_(element) {}

  /// The JSON Pointer, such as "/children/0/name".
  std::string pointer() const;

 private:
  const JsonPlace* around_ = nullptr;
  std::string_view member_ = {};  // null for an element
  std::size_t element_ = 0;
};

/// Numbers the lines of a text, whose places are asked for from front to back.
class LineCounter {
 public:
  explicit LineCounter(const char* text) : counted_(text) {}

  /// Counted from 1.
  std::size_t lineOf(const char* place);

 private:
  const char* counted_;
  std::size_t line_ = 1;
};

}  // namespace vgdt
