#pragma once

#include "literal/LiteralValue.h"

#include <span>
#include <string_view>

namespace vgdt {

/// A function of the literal language with its arguments, such as zeros(2,3).
struct LiteralCall {
  std::string_view function;
  std::size_t position;
  std::span<LiteralValue> arguments;
};

bool isLiteralFunction(std::string_view name);

/// Evaluates the call; the arguments may be moved out of. LiteralError where they do not fit.
vcos::ArrayOwner evaluate(const LiteralCall& call);

}  // namespace vgdt
