#include <graphics/datatype/PropertyDataType.h>

namespace graphics::datatype {

using vcos::COSValue;

const char* InheritedOperations::getDescription() const {
  return COSDataType::getDescription();
}
const char* InheritedOperations::getDetailedDescription() const {
  return COSDataType::getDetailedDescription();
}
const char* InheritedOperations::getPossibleValuesDescription() const {
  return COSDataType::getPossibleValuesDescription();
}
bool InheritedOperations::isPossibleValuesFinite() const {
  return COSDataType::isPossibleValuesFinite();
}
vcos::Enumeration<COSValue> InheritedOperations::getPossibleValues() const {
  return COSDataType::getPossibleValues();
}
void InheritedOperations::checkValue(COSValue value, bool allowNull) const {
  COSDataType::checkValue(value, allowNull);
}
COSValue InheritedOperations::copyInternal(COSValue value) const {
  return COSDataType::copyInternal(value);
}
void InheritedOperations::destroyInternal(COSValue value) const {
  COSDataType::destroyInternal(value);
}
std::size_t InheritedOperations::getHashCode(const COSValue& value) {
  return COSDataType::getHashCode(value);
}
bool InheritedOperations::canContainInterfaces() {
  return COSDataType::canContainInterfaces();
}
void InheritedOperations::getReference() {
  COSDataType::getReference();
}
void InheritedOperations::releaseReference() {
  COSDataType::releaseReference();
}
std::vector<vcos::COSInterfacePtr> InheritedOperations::getInterfaces(COSValue value) {
  return COSDataType::getInterfaces(value);
}
int InheritedOperations::getVatFormat() {
  return COSDataType::getVatFormat();
}
bool InheritedOperations::isVORTILArrayType() const {
  return COSDataType::isVORTILArrayType();
}

}  // namespace graphics::datatype
