#include <ut/faults.h>
#include <vcos/COSClass.h>
#include <vcos/COSPackage.h>
#include <vcos/COSTypeRepository.h>
#include <vcos/exceptions.h>

#include <boost/container/small_vector.hpp>
#include <cstring>
#include <string>
#include <string_view>
#include <unordered_map>

namespace vcos {

COSPackageInfo::~COSPackageInfo() = default;
bool COSPackageInfo::attemptToLoadSubPackage(const char*) {
  return false;
}
bool COSPackageInfo::attemptToLoadClass(const char*) {
  return false;
}
bool COSPackageInfo::attemptToLoadFunction(const char*) {
  return false;
}
bool COSPackageInfo::attemptToLoadType(const char*) {
  return false;
}
void* COSPackageInfo::getMethodSelector() {
  return nullptr;
}
bool COSPackageInfo::isDestructible() const {
  return true;
}
bool COSPackageInfo::isLocked() const {
  return true;
}

namespace {

using vghost::faults::countHostCall;

auto& packages() {
  static auto& byName = *new std::unordered_map<COSNameID, std::unique_ptr<COSPackage>>;
  return byName;
}

/// What follows on the last dot.
std::string_view lastPart(std::string_view name) {
  return name.substr(name.rfind('.') + 1);
}

COSPackage* find(COSNameID name) {
  const auto found = packages().find(name);
  return found == packages().end() ? nullptr : found->second.get();
}

}  // namespace

COSPackage::COSPackage(COSNameID name, std::unique_ptr<COSPackageInfo> info) noexcept
    : name_(name),
      info_(std::move(info)) {}

COSPackage::~COSPackage() = default;

void COSPackage::add(const COSPackage* parent, COSPackageInfo* info) {
  std::unique_ptr<COSPackageInfo> owner(info);
  countHostCall("addPackage");
  std::string path = parent ? std::string(parent->name_.c_str()) + "." : std::string();
  path += info->getPackageName();
  const COSNameID name(path.c_str());
  if (find(name)) throw COSMsgException("The package " + path + " is registered already.");
  std::unique_ptr<COSPackage> package(new COSPackage(name, std::move(owner)));
  COSPackage& added = *packages().emplace(name, std::move(package)).first->second;
  info->setOwningPackage(&added);
}

void COSPackage::addPackage(COSPackageInfo* info) {
  add(nullptr, info);
}

void COSPackage::addSubPackageInfo(COSPackageInfo* info) {
  add(this, info);
}

void COSPackage::addClass(COSClass* newClass) {
  classes_.push_back(newClass);
}

void COSPackage::addDataType(COSDataType* type) {
  countHostCall("addDataType");
  const std::string_view path = name_.c_str();
  const std::string_view leaf = type->getName();
  boost::container::small_vector<char, 128> name(path.begin(), path.end());
  name.push_back('.');
  name.insert(name.end(), leaf.begin(), leaf.end());
  name.push_back('\0');
  types_.push_back(type);
  try {
    COSTypeRepository::addType(COSNameID(name.data()), type);
  } catch (...) {
    types_.pop_back();
    throw;
  }
}

COSPackage* COSPackage::getPackage(COSNameID name) {
  countHostCall("getPackage");
  if (COSPackage* package = find(name)) return package;
  const char* leaf = std::strrchr(name.c_str(), '.');
  if (!leaf) return nullptr;
  const std::string parentName(name.c_str(), leaf);
  COSPackage* parent = getPackage(COSNameID(parentName.c_str()));
  return parent && parent->info_->attemptToLoadSubPackage(leaf + 1) ? find(name) : nullptr;
}

COSClass* COSPackage::getClass(COSNameID name) {
  const auto loaded = [&]() -> COSClass* {
    for (COSClass* candidate : classes_)
      if (candidate->getNameID() == name || lastPart(candidate->getName()) == name.c_str())
        return candidate;
    return nullptr;
  };
  if (COSClass* found = loaded()) return found;
  const std::string leaf(lastPart(name.c_str()));
  return info_->attemptToLoadClass(leaf.c_str()) ? loaded() : nullptr;
}

}  // namespace vcos
