#include "CaseFolding.h"
#include "PackageTexts.h"

#include <graphics/datatype/VGTypedEnumStringType.h>
#include <graphics/datatype/registration.h>
#include <vcos/COSTypeRepository.h>
#include <vcos/TypedEnumStringType.h>
#include <vcos/exceptions.h>

#include <algorithm>
#include <array>
#include <locale>
#include <memory>
#include <new>
#include <span>
#include <string_view>
#include <utility>

namespace graphics::datatype {

using vcos::COSDataTypePtr;
using vcos::COSNameID;
using vcos::COSTypeRepository;
using vcos::COSValue;

namespace {

constexpr const char* kPackageName = "vortil.graphics.enumstyletypes";

using CharacterClasses = std::ctype<char>;

/// Looking up the classes of a locale takes longer than finding a name, so those of the classic
/// locale, which is the usual one, are kept.
const CharacterClasses& characterClasses(const std::locale& locale) {
  struct Classic {
    const std::locale& locale = std::locale::classic();
    const CharacterClasses& classes = std::use_facet<CharacterClasses>(locale);
  };
  static const Classic classic;
  return locale == classic.locale ? classic.classes : std::use_facet<CharacterClasses>(locale);
}

std::string inLowerCase(std::string_view text) {
  std::string lowered(text);
  for (char& c : lowered)
    c = lowerCased(c);
  return lowered;
}

/// In lower case, and then without white space at either end. White space that is cut off takes no
/// memory.
std::string normalized(std::string_view text) {
  const std::locale locale;
  const auto isSpace = [&classes = characterClasses(locale)](char c) {
    return classes.is(std::ctype_base::space, lowerCased(c));
  };
  while (!text.empty() && isSpace(text.back()))
    text.remove_suffix(1);
  while (!text.empty() && isSpace(text.front()))
    text.remove_prefix(1);
  return inLowerCase(text);
}

/// Byte by byte, which for texts this short is over before memcmp has begun.
bool begins(std::string_view beginning, std::string_view name) {
  return std::ranges::mismatch(beginning, name).in1 == beginning.end();
}

}  // namespace

/// The names that a table added itself, and an index, so that not every name has to be compared.
struct VGTypedEnumStringType::Names {
  std::vector<std::string> list;

  void add(std::string name) {
    list.push_back(std::move(name));
    Range& range = ranges_[placeOf(list.back().c_str()[0])];
    if (range.end == 0) range.begin = list.size() - 1;
    range.end = list.size();
  }
  /// The name's range keeps its length, and candidates() cuts it.
  void removeLast() { list.pop_back(); }

  /// All names that begin with a text are among these.
  std::span<const std::string> candidates(const std::string& text) const {
    if (text.empty()) return list;  // which begins every name
    return candidates(text.front());
  }
  std::span<const std::string> candidates(char first) const {
    const Range& range = ranges_[placeOf(first)];
    return {list.data() + range.begin, std::min(range.end, list.size()) - range.begin};
  }

 private:
  struct Range {
    std::size_t begin = 0;
    std::size_t end = 0;
  };
  static constexpr std::size_t kPlaces = 64;

  static std::size_t placeOf(char first) { return static_cast<unsigned char>(first) % kPlaces; }

  /// For the first character of a name (several share a place), where the names that begin so are.
  std::array<Range, kPlaces> ranges_;
};

VGTypedEnumStringType::VGTypedEnumStringType(const char* name) {
  register_package(kPackageName, noDescription, noDetails);
  std::string fullName;
  fullName.reserve(64);  // most names fit, and take one block of memory then
  fullName.append(kPackageName).append(".").append(name);
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

// Where a name cannot be added, the destructor runs and destroys the host type: an object is
// complete as soon as the constructor that this one calls has returned.
VGTypedEnumStringType::VGTypedEnumStringType(const char* name, NameRows rows)
    : VGTypedEnumStringType(name) {
  if (!ownsHostType_) {
    for (const EnumeratedName& row : rows)
      addElement(COSValue::fromInteger(row.value), row.name);
    return;
  }
  for (const EnumeratedName& row : rows)
    hostEnumType_->addElement(COSValue::fromInteger(row.value), row.name);
  rows_ = rows;
}

VGTypedEnumStringType::~VGTypedEnumStringType() {
  delete names_.load();
  if (ownsHostType_)
    vcos::TypedEnumStringType::destroyInstance(COSNameID(hostEnumType_->getName()));
}

VGTypedEnumStringType::Names& VGTypedEnumStringType::names() const {
  Names* const known = names_.load(std::memory_order_acquire);
  return known ? *known : makeNames();
}

/// Threads that ask at the same time make the names more than once, and agree on those that were
/// there first.
VGTypedEnumStringType::Names& VGTypedEnumStringType::makeNames() const try {
  auto made = std::make_unique<Names>();
  made->list.reserve(rows_.size());
  for (const EnumeratedName& row : rows_)
    made->add(row.name);
  Names* first = nullptr;
  return names_.compare_exchange_strong(first, made.get()) ? *made.release() : *first;
} catch (const std::bad_alloc&) {
  throw vcos::COSOutOfMemoryException();
}

void VGTypedEnumStringType::addElement(COSValue value, const char* name) {
  std::string lowered = inLowerCase(name);
  if (!hostEnumType_ || hostEnumType_->isValidEnumName(lowered.c_str())) return;
  Names& own = names();
  own.add(std::move(lowered));
  try {
    hostEnumType_->addElement(value, own.list.back().c_str());
  } catch (...) {
    own.removeLast();
    throw;
  }
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
  return name && hostEnumType_ && hostEnumType_->isEnumNameAmbiguous(inLowerCase(name).c_str());
}

bool VGTypedEnumStringType::getEnumVisibility(const char* name) const {
  return hostEnumType_ && hostEnumType_->getEnumVisibility(name);
}

bool VGTypedEnumStringType::isPossibleValuesFinite() const {
  return hostEnumType_ && hostEnumType_->isPossibleValuesFinite();
}

const std::vector<std::string>& VGTypedEnumStringType::getEnumStrings() const {
  return names().list;
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): the interface's signature
const char* VGTypedEnumStringType::getEnumFromPartialMatch(std::string name) const {
  const std::string* match = nullptr;
  bool isAmbiguous = false;
  for (const std::string& candidate : names().candidates(name)) {
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

COSValue VGTypedEnumStringType::numberOf(const std::string& name) const {
  return hostEnumType_ ? hostEnumType_->getEnumValue(name.c_str()) : COSValue();
}

bool VGTypedEnumStringType::mayStandForName(const char* text) const {
  if (!text) return false;
  const char first = lowerCased(*text);
  const bool isVisible = first > ' ' && first < 0x7F;
  return !isVisible || !names().candidates(first).empty();
}

std::optional<COSValue> VGTypedEnumStringType::findEnumValue(const char* name) const {
  const char* found = findName(name);
  if (!found || !hostEnumType_) return std::nullopt;
  const COSValue value = hostEnumType_->getEnumValue(found);
  // The host returns the null word for the value 0, and for what is no name: a derived class may
  // find such a thing.
  if (value.isNull() && !hostEnumType_->isValidEnumName(found)) return std::nullopt;
  return value;
}

}  // namespace graphics::datatype
