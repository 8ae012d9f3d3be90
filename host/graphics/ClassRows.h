#pragma once

#include <vcos/COSClass.h>

#include <span>
#include <vector>

namespace sample {

struct PropertyRow {
  const char* name;
  const char* type;                      ///< the last part of its dotted name
  const char* defaultText = nullptr;     ///< for the text conversion; null for the type's default
  vcos::COSPropertyHook hook = nullptr;  ///< runs after the property was set
};

struct ClassRow {
  const char* name;
  const char* base;  ///< "" for none; a class that stands before
  std::vector<std::span<const PropertyRow>> properties;
  bool isAbstract = false;
};

/// All classes, each behind its base.
const std::vector<ClassRow>& classRows();

}  // namespace sample
