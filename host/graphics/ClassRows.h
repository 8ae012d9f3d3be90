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

struct EventRow {
  const char* name;
  const char* callback;  ///< the property whose callback it runs
  bool interruptibleAware;
  /// One of a class has no data for the callback.
  vcos::COSEventKind kind = vcos::COSEventKind::OfObject;
};

struct ClassRow {
  const char* name;
  const char* base;  ///< "" for none; a class that stands before
  std::vector<std::span<const PropertyRow>> properties;
  bool isAbstract = false;
};

/// The events of every class that has no base.
std::span<const EventRow> eventRows();

/// All classes, each behind its base.
const std::vector<ClassRow>& classRows();

}  // namespace sample
