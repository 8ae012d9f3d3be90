#include <vcos/COSDataType.h>
#include <vcos/exceptions.h>

#include <functional>

namespace vcos {

namespace {

constexpr int kPointerStorage = 7;

}  // namespace

COSDataType::~COSDataType() = default;

const char* COSDataType::getDescription() const {
  return nullptr;
}
const char* COSDataType::getDetailedDescription() const {
  return nullptr;
}
const char* COSDataType::getPossibleValuesDescription() const {
  return nullptr;
}
bool COSDataType::isPossibleValuesFinite() const {
  return false;
}
Enumeration<COSValue> COSDataType::getPossibleValues() const {
  return {};
}

void COSDataType::checkValue(COSValue value, bool allowNull) const {
  if (value.isNull() && !allowNull && getStorageType() == kPointerStorage)
    throw COSMsgException(std::string("A value of ") + getName() + " must not be null.");
}

COSValue COSDataType::copyInternal(COSValue value) const {
  return copy(value);
}
void COSDataType::destroyInternal(COSValue value) const {
  destroy(value);
}

std::size_t COSDataType::getHashCode(const COSValue& value) {
  return std::hash<std::uint64_t>{}(value.bits());
}

bool COSDataType::canContainInterfaces() {
  return false;
}
void COSDataType::getReference() {}
void COSDataType::releaseReference() {}
std::vector<COSInterfacePtr> COSDataType::getInterfaces(COSValue) {
  return {};
}
int COSDataType::getVatFormat() {
  return 0;
}
bool COSDataType::isVORTILArrayType() const {
  return false;
}

}  // namespace vcos
