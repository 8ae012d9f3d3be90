#pragma once

#include <cstdarg>
#include <string>

namespace vghost {

/// What printf would print.
[[gnu::format(printf, 1, 0)]] std::string formatted(const char* format, std::va_list arguments);

}  // namespace vghost
