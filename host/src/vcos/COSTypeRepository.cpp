#include "../java/ReferenceConversions.h"
#include "BuiltInTypes.h"
#include "CountedObject.h"
#include "PermanentMemory.h"

#include <dlfcn.h>
#include <ut/faults.h>
#include <vcos/COSPackage.h>
#include <vcos/COSTypeRepository.h>
#include <vcos/exceptions.h>

#include <cstring>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace vcos {

COSTypeConversion::~COSTypeConversion() = default;
JavaTypeConversion::~JavaTypeConversion() = default;

namespace {

using vghost::faults::countHostCall;

/// What a COSDataTypePtr points to.
class TypeObject final : public CountedObject {
 public:
  TypeObject(COSNameID ownName, COSDataType* ownType) : name(ownName), type(ownType) {}

  bool isDestroyed() const override { return type == nullptr; }

  static void* operator new(std::size_t size) { return PermanentMemory::allocate(size); }
  static void operator delete(void*) noexcept {}

  COSNameID name;
  COSDataType* type;
};

struct NamePair {
  COSNameID outside;
  COSNameID inner;
  friend bool operator==(const NamePair&, const NamePair&) noexcept = default;
};

struct NamePairHash {
  std::size_t operator()(const NamePair& pair) const noexcept {
    const std::hash<COSNameID> hash;
    return hash(pair.outside) * 31 + hash(pair.inner);
  }
};

/// Entries are seldom removed: those that are leave their place unused.
template <class Key, class Value, class Hash = std::hash<Key>>
using Table = std::unordered_map<Key, Value, Hash, std::equal_to<>,
                                 PermanentAllocator<std::pair<const Key, Value>>>;

constexpr std::size_t kUsualTypes = 256;

/// Java conversions that are static stay as they are.
struct DestroyUnlessStatic {
  void operator()(JavaTypeConversion* conversion) const noexcept {
    // What is not part of a loaded file is on the heap.
    if (Dl_info file; dladdr(conversion, &file) == 0) delete conversion;
  }
};
using JavaConversionOwner = std::unique_ptr<JavaTypeConversion, DestroyUnlessStatic>;

struct Repository {
  std::vector<std::unique_ptr<COSDataType>> builtInTypes;
  Table<COSNameID, COSDataTypePtr> types{kUsualTypes};
  Table<NamePair, std::unique_ptr<COSTypeConversion>, NamePairHash> conversions{kUsualTypes};
  Table<COSNameID, JavaConversionOwner> javaConversions;
};

[[noreturn]] void throwTaken(const std::string& what) {
  throw COSMsgException(what + " is registered already.");
}

void add(Repository& repository, COSNameID name, COSDataType* type) {
  if (repository.types.contains(name)) throwTaken(std::string("The type ") + name.c_str());
  COSDataTypePtr object(COSInterfacePtr(new TypeObject(name, type)));
  repository.types.emplace(name, std::move(object));
}

std::unique_ptr<Repository> createRepository() {
  auto repository = std::make_unique<Repository>();
  repository->builtInTypes = makeBuiltInTypes();
  for (const auto& type : repository->builtInTypes)
    add(*repository, COSNameID(type->getName()), type.get());
  repository->conversions.try_emplace({COSNameID("any"), COSNameID("string")},
                                      makeArrayStringConversion());
  auto& javaConversions = repository->javaConversions;
  javaConversions.try_emplace(COSNameID("any"),
                              JavaConversionOwner(vghost::java::makeArrayConversion().release()));
  javaConversions.try_emplace(COSNameID("handle scalar"),
                              JavaConversionOwner(vghost::java::makeObjectConversion().release()));
  return repository;
}

/// Made on first use, complete with the host's own types, and kept for good.
Repository& repository() {
  static Repository& instance = *createRepository().release();
  return instance;
}

/// Lets the package around a dotted name load the type.
bool loadType(COSNameID name) {
  const char* leaf = std::strrchr(name.c_str(), '.');
  if (!leaf) return false;
  const auto packageName = COSNameID::find({name.c_str(), leaf});
  COSPackage* package = packageName ? COSPackage::getPackage(*packageName) : nullptr;
  return package && package->getInfo().attemptToLoadType(leaf + 1);
}

}  // namespace

COSDataType* COSDataTypePtrHelper::getObject(const COSInterfacePtr& type) const noexcept {
  const TypeObject* const object = exactCast<TypeObject>(type.get());
  return object ? object->type : nullptr;
}

COSNameID COSDataTypePtr::getID() const {
  const TypeObject* const object = exactCast<TypeObject>(get());
  return object ? object->name : COSNameID();
}

COSDataTypePtr COSTypeRepository::findType(COSNameID name) {
  const auto& types = repository().types;
  const auto found = types.find(name);
  return found == types.end() ? COSDataTypePtr() : found->second;
}

COSDataTypePtr COSTypeRepository::getType(COSNameID name) {
  countHostCall("getType");
  COSDataTypePtr type = findType(name);
  return !type && loadType(name) ? findType(name) : type;
}

void COSTypeRepository::addType(COSNameID name, COSDataType* type) {
  add(repository(), name, type);
}

void COSTypeRepository::removeType(COSNameID name) {
  auto& types = repository().types;
  const auto found = types.find(name);
  if (found == types.end()) return;
  static_cast<TypeObject*>(found->second.get())->type = nullptr;
  types.erase(found);
}

void COSTypeRepository::addConversion(COSNameID outside, COSNameID inner,
                                      COSTypeConversion* conversion) {
  std::unique_ptr<COSTypeConversion> owner(conversion);
  countHostCall("addConversion");
  if (!repository().conversions.try_emplace({outside, inner}, std::move(owner)).second)
    throwTaken(std::string("The conversion between ") + outside.c_str() + " and " + inner.c_str());
}

COSTypeConversion* COSTypeRepository::getConversion(COSNameID outside, COSNameID inner) {
  const auto& conversions = repository().conversions;
  const auto found = conversions.find({outside, inner});
  return found == conversions.end() ? nullptr : found->second.get();
}

void JavaTypeConversion::addConversion(COSNameID inner, JavaTypeConversion* conversion) {
  JavaConversionOwner owner(conversion);
  countHostCall("JavaTypeConversion::addConversion");
  if (!repository().javaConversions.try_emplace(inner, std::move(owner)).second)
    throwTaken(std::string("The Java conversion of ") + inner.c_str());
}

JavaTypeConversion* JavaTypeConversion::getConversion(COSNameID inner) {
  const auto& conversions = repository().javaConversions;
  const auto found = conversions.find(inner);
  return found == conversions.end() ? nullptr : found->second.get();
}

}  // namespace vcos
