#include "PackageTexts.h"

#include <graphics/datatype/HostAllocated.h>
#include <graphics/datatype/registration.h>
#include <gui_objects/InitializationCallbackRegistrar.h>
#include <messages/catalog.h>
#include <vcos/COSPackage.h>
#include <vcos/exceptions.h>
#include <vx/errors.h>

#include <string>
#include <utility>

namespace graphics::datatype {
namespace {

using vcos::COSNameID;
using vcos::COSPackage;

constexpr const char* kPackageName = "vortil.graphics.datatype";

class VGPackageInfo final : public vcos::COSPackageInfo, public HostAllocated {
 public:
  VGPackageInfo(std::string name, const char* description, const char* details)
      : packageName_(std::move(name)),
        packageDescription_(description),
        packageDetails_(details) {}

  const char* getPackageName() const override { return packageName_.c_str(); }
  const char* getPackageDescription() const override { return packageDescription_.c_str(); }
  const char* getPackageDetails() const override { return packageDetails_.c_str(); }
  void setOwningPackage(COSPackage* package) override { ownerSlot_ = package; }

 private:
  [[maybe_unused]] COSPackage* ownerSlot_ = nullptr;
  std::string packageName_;
  std::string packageDescription_;
  std::string packageDetails_;
};

}  // namespace

gui_objects::InitializationCallbackRegistrar* get_initialization_callback_registry() {
  static constinit gui_objects::InitializationCallbackRegistrar* registry = nullptr;
  if (!registry) registry = new gui_objects::InitializationCallbackRegistrar;
  return registry;
}

COSPackage* register_package(const char* name, const char* (*description)(const char*),
                             const char* (*details)(const char*)) {
  if (COSPackage* package = COSPackage::getPackage(COSNameID(name))) return package;

  const std::string fullName = name;
  const std::size_t lastDot = fullName.rfind('.');
  COSPackage* parent = nullptr;
  if (lastDot != std::string::npos) {
    parent = register_package(fullName.substr(0, lastDot).c_str(), description, details);
    if (!parent) return nullptr;
  }
  const char* ownDescription = description(name);
  const char* ownDetails = details(name);
  // Without a dot lastDot + 1 is 0, and the whole name is the leaf.
  auto* info = new VGPackageInfo(fullName.substr(lastDot + 1), ownDescription, ownDetails);
  if (parent)
    parent->addSubPackageInfo(info);
  else
    COSPackage::addPackage(info);
  return COSPackage::getPackage(COSNameID(name));
}

void registerDatatype(vcos::COSDataType* type) {
  type->getName();  // kept: the result is not used, but types may rely on being asked first
  static const COSNameID packageName(kPackageName);
  if (!COSPackage::getPackage(packageName))
    register_package(kPackageName, noDescription, noDetails);
  COSPackage* package = COSPackage::getPackage(packageName);
  if (!package) vxErrMsgId(component_VORTIL::catalog_vg::key_VCOSPackageNotFound());
  package->addDataType(type);
}

}  // namespace graphics::datatype
