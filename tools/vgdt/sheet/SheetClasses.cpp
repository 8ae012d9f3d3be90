#include "sheet/SheetClasses.h"

#include "Classes.h"
#include "text/TypeWords.h"

#include <SampleClasses.h>

#include <utility>

namespace vgdt {
namespace {

vcos::COSPropInfo& propertyOf(const vcos::COSInterfacePtr& property) {
  return *vcos::COSPropInfoPtrHelper().getObject(property);
}

}  // namespace

SheetProperty::SheetProperty(vcos::COSPropInfo& property)
    : property_(property),
      type_(typeOf(property)) {}

const std::vector<std::string>& SheetProperty::accepted() {
  if (!accepted_) accepted_ = wordsOf(type_).values;
  return *accepted_;
}

bool SheetProperty::isMetAgain(std::uint64_t list) {
  return std::exchange(lastList_, list) == list;
}

SheetClass::SheetClass(const vcos::COSClass& sampleClass) : class_(sampleClass) {
  for (const vcos::COSInterfacePtr& property : sampleClass.properties()) {
    vcos::COSPropInfo& info = propertyOf(property);
    properties_.try_emplace(info.getName(), info);
  }
}

SheetProperty* SheetClass::find(std::string_view property) {
  const auto found = properties_.find(property);
  return found == properties_.end() ? nullptr : &found->second;
}

std::vector<std::string> SheetClass::propertyNames() const {
  return vgdt::propertyNames(class_);
}

SheetClasses::SheetClasses() {
  const auto& known = sample::classes();
  classes_.reserve(known.size());
  for (const vcos::COSClass* sampleClass : known) {
    SheetClass& added = classes_.emplace_back(*sampleClass);
    byName_.emplace(sample::shortName(*sampleClass), &added);
    byName_.emplace(sampleClass->getName(), &added);
  }
}

SheetClass* SheetClasses::find(std::string_view name) {
  const auto found = byName_.find(name);
  return found == byName_.end() ? nullptr : found->second;
}

}  // namespace vgdt
