#pragma once

#include "Types.h"

#include <vcos/COSClass.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vgdt {

/// A property of a class, with what a check needs of it.
class SheetProperty {
 public:
  explicit SheetProperty(vcos::COSPropInfo& property);

  const Type& type() const { return type_; }
  /// Puts a value on an object of the class, through the array conversion of the property's type.
  void set(vcos::COSInterface* object, const vxArray* value) const {
    property_.setFromArray(object, value);
  }
  /// What its type takes, as people are told.
  const std::vector<std::string>& accepted();
  /// Whether it has been met in the list of that number before; from now on it has.
  bool isMetAgain(std::uint64_t list);

 private:
  vcos::COSPropInfo& property_;
  Type type_;
  std::optional<std::vector<std::string>> accepted_;
  std::uint64_t lastList_ = 0;
};

/// A class with its properties by name.
class SheetClass {
 public:
  explicit SheetClass(const vcos::COSClass& sampleClass);

  vcos::COSInterfacePtr createObject() const { return class_.createObject(); }
  /// Null if there is none of that name.
  SheetProperty* find(std::string_view property);
  std::vector<std::string> propertyNames() const;

 private:
  const vcos::COSClass& class_;
  std::unordered_map<std::string_view, SheetProperty> properties_;
};

/// The classes that a sheet may name, looked up once.
class SheetClasses {
 public:
  SheetClasses();
  SheetClasses(const SheetClasses&) = delete;
  SheetClasses& operator=(const SheetClasses&) = delete;

  /// By the short name or the whole dotted one; null if there is none.
  SheetClass* find(std::string_view name);
  /// For SheetProperty::isMetAgain().
  std::uint64_t newListNumber() { return ++lists_; }

 private:
  std::uint64_t lists_ = 0;
  std::vector<SheetClass> classes_;
  std::unordered_map<std::string_view, SheetClass*> byName_;
};

}  // namespace vgdt
