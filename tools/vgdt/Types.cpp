#include "Types.h"

#include "Errors.h"
#include "text/Nearest.h"
#include "text/TextDisplay.h"

#include <fmt/format.h>
#include <graphics/datatype/VGTypedEnumStringType.h>
#include <vcos/COSPackage.h>

#include <algorithm>
#include <unordered_map>

namespace vgdt {
namespace {

constexpr const char* kPackage = "vortil.graphics.datatype";

/// Null before the library has started up.
const vcos::COSPackage* findPackage() {
  return vcos::COSPackage::getPackage(vcos::COSNameID(kPackage));
}

/// None for a type that lacks a conversion: nothing could be put through it.
std::optional<Type> asType(const vcos::COSDataType& dataType) {
  const std::string dottedName = fmt::format("{}.{}", kPackage, dataType.getName());
  const auto access = vcos::TypeAccess::find(vcos::COSNameID(dottedName.c_str()));
  if (!access || !access->textConversion() || !access->arrayConversion()) return std::nullopt;
  return Type{dataType.getName(), *access, false};
}

using TypesByName = std::unordered_map<std::string, Type>;

TypesByName typesOf(const vcos::COSPackage& package) {
  TypesByName types;
  for (const vcos::COSDataType* dataType : package.getDataTypes())
    if (const auto type = asType(*dataType)) types.emplace(type->name, *type);
  return types;
}

/// Looked up once, and again when the library has got another type.
const TypesByName& typesByName() {
  static TypesByName types;
  static std::size_t count = 0;
  static const vcos::COSPackage* package = nullptr;
  if (!package) package = findPackage();
  if (package && package->getDataTypes().size() != count) {
    types = typesOf(*package);
    count = package->getDataTypes().size();
  }
  return types;
}

std::optional<vcos::TypeAccess> findScalar(const std::string& name) {
  // A dotted name belongs to a package.
  if (name.find('.') != std::string::npos) return std::nullopt;
  const auto known = vcos::COSNameID::find(name);
  return known ? vcos::TypeAccess::find(*known) : std::nullopt;
}

/// The possible values of a type, each destroyed by whoever took it and the rest in the end.
class PossibleValues {
 public:
  explicit PossibleValues(const vcos::COSDataType& type)
      : type_(type),
        values_(type.getPossibleValues()) {}
  ~PossibleValues() {
    while (hasMore())
      type_.destroy(values_.nextElement());
  }
  PossibleValues(const PossibleValues&) = delete;
  PossibleValues& operator=(const PossibleValues&) = delete;

  bool hasMore() const { return values_.hasMoreElements(); }
  vcos::OwnedValue next() { return {type_, values_.nextElement()}; }

 private:
  const vcos::COSDataType& type_;
  vcos::Enumeration<vcos::COSValue> values_;
};

}  // namespace

std::vector<Type> libraryTypes() {
  std::vector<Type> types;
  for (const auto& [name, type] : typesByName())
    types.push_back(type);
  std::ranges::sort(types, {}, [](const Type& type) { return lowerCase(type.name); });
  return types;
}

std::vector<std::string> libraryTypeNames() {
  std::vector<std::string> names;
  for (const Type& type : libraryTypes())
    names.push_back(type.name);
  return names;
}

Type requireType(const std::string& name) {
  const TypesByName& types = typesByName();
  if (const auto found = types.find(name); found != types.end()) return found->second;
  if (const auto access = findScalar(name)) {
    if (access->textConversion()) return {name, *access, true};
    throw RequestError(fmt::format("the type \"{}\" has no text form", name));
  }
  const auto nearest = nearestName(name, libraryTypeNames());
  throw RequestError(fmt::format(
      "there is no type \"{}\"; {}", shortened(name),
      nearest ? fmt::format("did you mean \"{}\"?", *nearest) : "\"types\" lists those there are"));
}

bool isEnumerated(const Type& type) {
  return dynamic_cast<const graphics::datatype::VGTypedEnumStringType*>(&type.access.dataType());
}

std::vector<std::string> possibleValueTexts(const Type& type) {
  std::vector<std::string> texts;
  PossibleValues values(type.access.dataType());
  while (values.hasMore())
    texts.push_back(type.access.toText(values.next().get()).value_or(""));
  return texts;
}

std::vector<std::string> namesAbbreviatedBy(const std::string& text, const Type& type) {
  const std::string beginning = lowerCase(trimmed(text));
  if (!isEnumerated(type) || beginning.empty()) return {};
  std::vector<std::string> names = possibleValueTexts(type);
  std::erase_if(names, [&](const std::string& name) { return !name.starts_with(beginning); });
  return names;
}

const graphics::datatype::shaped::ShapedType* shapedRules(const Type& type) {
  return type.isScalar ? nullptr : graphics::datatype::shaped::findShapedType(type.name);
}

}  // namespace vgdt
