#pragma once

#include <handles/handle_table.h>
#include <vcos/COSClass.h>

#include <string>

namespace test {

inline vcos::COSPropInfo& propertyOf(const vcos::COSInterfacePtr& object, const std::string& name) {
  return *vcos::COSPropInfoPtr(object->findProperty(vcos::COSNameID(name.c_str()))).getObject();
}

/// A record of an object.
struct Record : HandleRecord {
  explicit Record(vcos::COSInterface* newObject) : HandleRecord{0, -1, 0, newObject} {}
  ~Record() { destroy_handle(handle); }
  Record(const Record&) = delete;
  Record& operator=(const Record&) = delete;
};

/// Sees an object end.
struct Watched : Record {
  explicit Watched(const vcos::COSInterfacePtr& newObject) : Record(newObject.get()) {
    new_handle(this, -1.0);
  }
  bool isAlive() const { return object != nullptr; }
};

}  // namespace test
