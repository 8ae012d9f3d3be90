#include "sheet/JsonPlace.h"

#include "sheet/JsonCursor.h"

#include <algorithm>
#include <utility>

namespace vgdt {

std::string JsonPlace::pointer() const {
  if (!around_) return {};
  std::string text = around_->pointer() + '/';
  if (!member_.data()) return text + std::to_string(element_);
  const JsonText name(member_);
  for (const char c : name.utf8()) {
    if (c == '~')
      text += "~0";
    else if (c == '/')
      text += "~1";
    else
      text += c;
  }
  return text;
}

std::size_t LineCounter::lineOf(const char* place) {
  const char* const begin = std::exchange(counted_, place);
  line_ += static_cast<std::size_t>(std::count(begin, place, '\n'));
  return line_;
}

}  // namespace vgdt
