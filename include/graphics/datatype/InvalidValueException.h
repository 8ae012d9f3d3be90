#pragma once

#include <graphics/datatype/export.h>

#include <string>

namespace graphics::datatype {

/// A value class was given a number that it refuses. It has no base class: only a handler that
/// names it catches it.
///
///     try {
///       value.set(number);
///     } catch (const InvalidValueException& error) {
///       vxErrMsgIdAndTxt(error.identifier().c_str(), "%s", error.text().c_str());
///     }
class VGDT_API InvalidValueException {
 public:
  InvalidValueException(const char* identifier, const char* text)
      : identifier_(identifier),
        text_(text) {}

  const std::string& identifier() const noexcept { return identifier_; }
  const std::string& text() const noexcept { return text_; }

 private:
  std::string identifier_;
  std::string text_;
};

}  // namespace graphics::datatype
