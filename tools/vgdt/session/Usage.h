#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace vgdt {

/// What stands in a command for the placeholders and choices of its usage, in their order.
using Arguments = std::vector<std::string_view>;

/// What a command looks like, such as "NAME = new CLASS [in PARENT]" or "track on|off". Words in
/// capitals are placeholders; from a bracket on everything may be left out, and a word of its own
/// in brackets, such as [saved], also if others follow: its argument is empty then. VALUE, NUMBER,
/// N, CODE, ID and TEXT stand for values. One that ends the usage goes up to the end of the
/// command; before others it has no blanks outside quotes and brackets.
class Usage {
 public:
  explicit constexpr Usage(const char* text) : text_(text) {}

  std::string_view text() const { return text_; }

  /// The arguments of a command; RequestError if something is missing, wrong or too much.
  /// `hasComment` tells that a comment followed.
  Arguments match(std::string_view command, bool hasComment) const;

  /// The word of the usage that comes next behind the beginning of a command, or whose value the
  /// beginning ends in; empty if there is none.
  struct Place {
    std::string_view word;
    Arguments before;
  };
  Place placeBehind(std::string_view beginning) const;

 private:
  struct Walk;
  Walk walk(std::string_view command) const;

  const char* text_;
};

/// The names of a choice, such as "on" and "off".
std::vector<std::string_view> choicesOf(std::string_view usageWord);

}  // namespace vgdt
