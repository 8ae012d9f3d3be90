#include "PackageTexts.h"

#include <graphics/datatype/VGTypedEnumStringType.h>
#include <graphics/datatype/registration.h>
#include <vcos/COSTypeRepository.h>
#include <vcos/TypedEnumStringType.h>

#include <algorithm>
#include <boost/container/small_vector.hpp>
#include <cctype>
#include <cstdint>
#include <locale>
#include <string_view>

namespace graphics::datatype {

using vcos::COSDataTypePtr;
using vcos::COSNameID;
using vcos::COSTypeRepository;
using vcos::COSValue;

namespace {

constexpr const char* kPackageName = "vortil.graphics.enumstyletypes";

char lowerCased(char c) {
  return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
}

std::string lowerCased(std::string_view text) {
  std::string lowered(text);
  for (char& c : lowered)
    c = lowerCased(c);
  return lowered;
}

/// The character classes of the global locale. Looking them up takes longer than finding a name, so
/// they are kept until the locale changes; as all of the library, this is for one thread.
const std::ctype<char>& characterClasses() {
  struct Known {
    std::locale locale;
    const std::ctype<char>* classes = &std::use_facet<std::ctype<char>>(locale);
  };
  static Known known;
  if (const std::locale current; !(current == known.locale)) known = {current};
  return *known.classes;
}

/// In lower case, and then without white space at either end. White space that is cut off takes no
/// memory: only what is left becomes a string.
std::string normalized(const char* text) {
  boost::container::small_vector<char, 64> lowered;
  for (; *text; ++text)
    lowered.push_back(lowerCased(*text));
  const auto isSpace = [&classes = characterClasses()](char c) {
    return classes.is(std::ctype_base::space, c);
  };
  auto begin = lowered.begin();
  auto end = lowered.end();
  while (end != begin && isSpace(end[-1]))
    --end;
  while (begin != end && isSpace(*begin))
    ++begin;
  return {begin, end};
}

/// The place of a name's first character in the index.
std::size_t placeOf(const std::string& name) {
  return static_cast<unsigned char>(name[0]) % 128;
}

/// Byte by byte, which for texts this short is over before memcmp has begun.
bool begins(std::string_view beginning, std::string_view name) {
  return std::ranges::mismatch(beginning, name).in1 == beginning.end();
}

}  // namespace

VGTypedEnumStringType::VGTypedEnumStringType(const char* name) {
  constexpr std::size_t kUsualCount = 4;
  lowerCaseNames_.reserve(kUsualCount);
  register_package(kPackageName, noDescription, noDetails);
  const std::string fullName = std::string(kPackageName) + '.' + name;
  static const COSNameID baseTypeName("uint32 scalar");
  const COSDataTypePtr baseType = COSTypeRepository::getType(baseTypeName);
  const COSDataTypePtr known = COSTypeRepository::getType(COSNameID(fullName.c_str()));
  if (vcos::COSDataType* hostType = known.getObject()) {
    hostEnumType_ = dynamic_cast<vcos::TypedEnumStringType*>(hostType);
  } else {
    hostEnumType_ = vcos::TypedEnumStringType::createInstance(baseType, fullName.c_str(), nullptr);
    ownsHostType_ = true;
  }
}

VGTypedEnumStringType::~VGTypedEnumStringType() {
  if (ownsHostType_)
    vcos::TypedEnumStringType::destroyInstance(COSNameID(hostEnumType_->getName()));
}

void VGTypedEnumStringType::addElement(COSValue value, const char* name) {
  std::string lowered = lowerCased(name);
  if (!hostEnumType_ || hostEnumType_->isValidEnumName(lowered.c_str())) return;
  lowerCaseNames_.push_back(std::move(lowered));
  const std::string& added = lowerCaseNames_.back();
  try {
    hostEnumType_->addElement(value, added.c_str());
  } catch (...) {
    lowerCaseNames_.pop_back();
    throw;
  }
  std::uint8_t& first = firstPosition_[placeOf(added)];
  if (first == 0)
    first = static_cast<std::uint8_t>(std::min<std::size_t>(lowerCaseNames_.size(), UINT8_MAX));
}

std::size_t VGTypedEnumStringType::getEnumLength() const {
  return hostEnumType_ ? hostEnumType_->getEnumLength() : 0;
}

const char* VGTypedEnumStringType::getEnumString(COSValue value) const {
  return hostEnumType_ ? hostEnumType_->getEnumString(value) : nullptr;
}

COSValue VGTypedEnumStringType::getEnumValue(const char* name) const {
  return hostEnumType_ ? hostEnumType_->getEnumValue(findName(name)) : COSValue();
}

bool VGTypedEnumStringType::isValidEnumName(const char* name) const {
  return hostEnumType_ && hostEnumType_->isValidEnumName(findName(name));
}

bool VGTypedEnumStringType::isEnumNameAmbiguous(const char* name) const {
  return name && hostEnumType_ && hostEnumType_->isEnumNameAmbiguous(lowerCased(name).c_str());
}

bool VGTypedEnumStringType::getEnumVisibility(const char* name) const {
  return hostEnumType_ && hostEnumType_->getEnumVisibility(name);
}

bool VGTypedEnumStringType::isPossibleValuesFinite() const {
  return hostEnumType_ && hostEnumType_->isPossibleValuesFinite();
}

const std::vector<std::string>& VGTypedEnumStringType::getEnumStrings() const {
  return lowerCaseNames_;
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): the interface's signature
const char* VGTypedEnumStringType::getEnumFromPartialMatch(std::string name) const {
  // The empty text begins every name.
  const std::size_t first = name.empty() ? 1 : firstPosition_[placeOf(name)];
  if (first == 0) return nullptr;
  const std::string* match = nullptr;
  bool isAmbiguous = false;
  for (std::size_t i = first - 1; i < lowerCaseNames_.size(); ++i) {
    const std::string& candidate = lowerCaseNames_[i];
    if (!begins(name, candidate)) continue;
    if (candidate.size() == name.size()) return candidate.c_str();
    isAmbiguous = isAmbiguous || match;
    match = &candidate;
  }
  return match && !isAmbiguous ? match->c_str() : nullptr;
}

const char* VGTypedEnumStringType::findName(const char* text) const {
  return text ? getEnumFromPartialMatch(normalized(text)) : nullptr;
}

std::optional<COSValue> VGTypedEnumStringType::findEnumValue(const char* name) const {
  const char* found = findName(name);
  if (!found) return std::nullopt;
  const COSValue value = hostEnumType_->getEnumValue(found);
  // The null word is the value 0 or none at all, for a derived class may find what is no name.
  if (value.isNull() && !hostEnumType_->isValidEnumName(found)) return std::nullopt;
  return value;
}

}  // namespace graphics::datatype
