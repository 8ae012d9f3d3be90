#include <ut/console.h>
#include "format.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>

namespace {

constinit thread_local vghost::ConsoleCapture* innermost = nullptr;

}  // namespace

void utPrintf(const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  const std::string text = vghost::formatted(format, arguments);
  va_end(arguments);
  if (innermost)
    innermost->text_ += text;
  else
    std::fwrite(text.data(), 1, text.size(), stdout);
}

namespace vghost {

ConsoleCapture::ConsoleCapture() : outer_(innermost) {
  innermost = this;
}

ConsoleCapture::~ConsoleCapture() {
  innermost = outer_;
}

std::vector<std::string> ConsoleCapture::lines() const {
  std::vector<std::string> result;
  for (std::size_t start = 0; start < text_.size();) {
    const std::size_t end = std::min(text_.find('\n', start), text_.size());
    result.emplace_back(text_, start, end - start);
    start = end + 1;
  }
  return result;
}

std::vector<std::string> ConsoleCapture::takeLines() {
  std::vector<std::string> taken = lines();
  text_.clear();
  return taken;
}

std::string formatted(const char* format, std::va_list arguments) {
  std::va_list again;
  va_copy(again, arguments);
  const int length = std::vsnprintf(nullptr, 0, format, arguments);
  std::string text(length > 0 ? static_cast<std::size_t>(length) : 0, '\0');
  std::vsnprintf(text.data(), text.size() + 1, format, again);
  va_end(again);
  return text;
}

}  // namespace vghost
