#include "ValueListEnumeration.h"

#include <ut/faults.h>
#include <vcos/TypedEnumStringType.h>
#include <vcos/exceptions.h>

#include <algorithm>
#include <memory>

namespace vcos {

EnumerationType::~EnumerationType() = default;

namespace {

constexpr std::size_t kUsualCount = 4;

/// The place of a name's first character in the index.
std::size_t placeOf(const char* name) noexcept {
  return static_cast<unsigned char>(*name) % 32;
}

/// Byte by byte: most names differ in the first one, before a call of strcmp would have begun.
bool areEqual(const char* a, const char* b) noexcept {
  for (; *a == *b; ++a, ++b)
    if (*a == '\0') return true;
  return false;
}

}  // namespace

TypedEnumStringType::TypedEnumStringType(COSDataTypePtr baseType, COSNameID typeName)
    : baseType_(std::move(baseType)),
      typeName_(typeName) {
  elements_.reserve(kUsualCount);
}

TypedEnumStringType::~TypedEnumStringType() = default;

TypedEnumStringType* TypedEnumStringType::createInstance(COSDataTypePtr baseType,
                                                         const char* typeName, const char*) {
  vghost::faults::countHostCall("TypedEnumStringType::createInstance");
  const COSNameID name(typeName);
  std::unique_ptr<TypedEnumStringType> type(new TypedEnumStringType(std::move(baseType), name));
  COSTypeRepository::addType(name, type.get());
  return type.release();
}

void TypedEnumStringType::destroyInstance(COSNameID typeName) {
  const COSDataTypePtr found = COSTypeRepository::findType(typeName);
  auto* type = dynamic_cast<TypedEnumStringType*>(found.getObject());
  if (!type) return;
  COSTypeRepository::removeType(typeName);
  delete type;
}

const TypedEnumStringType::Element* TypedEnumStringType::find(const char* name) const noexcept {
  if (!name) return nullptr;
  const std::size_t first = firstPosition_[placeOf(name)];
  if (first == 0) return nullptr;
  for (std::size_t i = first - 1; i < elements_.size(); ++i)
    if (areEqual(elements_[i].name.c_str(), name)) return &elements_[i];
  return nullptr;
}

void TypedEnumStringType::addElement(COSValue value, const char* name) {
  vghost::faults::countHostCall("TypedEnumStringType::addElement");
  if (const Element* known = find(name)) {
    elements_[static_cast<std::size_t>(known - elements_.data())].value = value;
    return;
  }
  elements_.push_back({name, value});
  std::uint8_t& first = firstPosition_[placeOf(name)];
  if (first == 0)
    first = static_cast<std::uint8_t>(std::min<std::size_t>(elements_.size(), UINT8_MAX));
}

std::size_t TypedEnumStringType::getEnumLength() const {
  return elements_.size();
}

const char* TypedEnumStringType::getEnumString(COSValue value) const {
  const auto found = std::ranges::find(elements_, value, &Element::value);
  return found == elements_.end() ? nullptr : found->name.c_str();
}

COSValue TypedEnumStringType::getEnumValue(const char* name) const {
  const Element* element = find(name);
  return element ? element->value : COSValue();
}

bool TypedEnumStringType::isValidEnumName(const char* name) const {
  return find(name) != nullptr;
}

bool TypedEnumStringType::isEnumNameAmbiguous(const char* name) const {
  if (!name || find(name)) return false;
  return std::ranges::count_if(elements_, [name](const Element& element) {
           return element.name.starts_with(name);
         }) > 1;
}

bool TypedEnumStringType::getEnumVisibility(const char* name) const {
  return isValidEnumName(name);
}

const char* TypedEnumStringType::getDeclarationName() const {
  return typeName_.c_str();
}
const char* TypedEnumStringType::getName() const {
  return typeName_.c_str();
}
bool TypedEnumStringType::isPossibleValuesFinite() const {
  return true;
}

Enumeration<COSValue> TypedEnumStringType::getPossibleValues() const {
  std::vector<COSValue> values;
  std::ranges::transform(elements_, std::back_inserter(values), &Element::value);
  return Enumeration<COSValue>(new ValueListEnumeration(std::move(values)));
}

COSValue TypedEnumStringType::getDefaultValue() const {
  return elements_.empty() ? COSValue() : elements_.front().value;
}

int TypedEnumStringType::getStorageType() const {
  return 0;
}
const char* TypedEnumStringType::getCategoryName() const {
  return "Enumeration";
}

std::size_t TypedEnumStringType::getSizeInBits() const {
  return 8 * getValueSizeInBytes(COSValue());
}

bool TypedEnumStringType::isEqual(COSValue a, COSValue b) const {
  return a == b;
}
int TypedEnumStringType::compare(COSValue a, COSValue b) const {
  return isEqual(a, b) ? 0 : 2;
}

std::size_t TypedEnumStringType::getValueSizeInBytes(COSValue value) const {
  const COSDataType* base = baseType_.getObject();
  return base ? base->getValueSizeInBytes(value) : sizeof(COSValue);
}

COSValue TypedEnumStringType::copy(COSValue value) const {
  return value;
}
void TypedEnumStringType::destroy(COSValue) const {}

}  // namespace vcos
