#pragma once

#include <string>
#include <utility>

namespace graphics::datatype {

/// Why a validator refuses a value: `bool isValid(value, ErrorMessage*)` fills it, unless the
/// pointer is null, and returns false.
///
///     ErrorMessage why("", "");
///     if (!isValid(value, &why)) std::cerr << why.identifier() << ": " << why.text();
class ErrorMessage {
 public:
  ErrorMessage(std::string identifier, std::string text)
      : identifier_(std::move(identifier)),
        text_(std::move(text)) {}

  const std::string& identifier() const noexcept { return identifier_; }
  const std::string& text() const noexcept { return text_; }

 private:
  std::string identifier_;
  std::string text_;
  [[maybe_unused]] int reserved_ = 1;  // part of the layout that callers know
};

}  // namespace graphics::datatype
