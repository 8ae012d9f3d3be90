#pragma once

#include <ut/export.h>
#include <vcos/COSDataType.h>
#include <vcos/COSNameID.h>

#include <memory>
#include <vector>

namespace vcos {

class COSClass;
class COSPackage;

/// The description of a package: its texts, and the hooks through which the class system asks for
/// members that are not there yet. The order of the virtual operations is part of the interface.
class VGHOST_API COSPackageInfo {
 public:
  virtual ~COSPackageInfo();

  /// The last component of the package's dotted name.
  virtual const char* getPackageName() const = 0;
  virtual const char* getPackageDescription() const = 0;
  virtual const char* getPackageDetails() const = 0;

  /// True when the member has been added. The base loads nothing.
  virtual bool attemptToLoadSubPackage(const char* name);
  virtual bool attemptToLoadClass(const char* name);
  virtual bool attemptToLoadFunction(const char* name);
  virtual bool attemptToLoadType(const char* name);

  virtual void* getMethodSelector();  ///< null unless overridden
  /// Told once, when the package has been made.
  virtual void setOwningPackage(COSPackage* package) = 0;
  virtual bool isDestructible() const;  ///< true unless overridden
  virtual bool isLocked() const;        ///< true unless overridden
};

/// A package: a named place for packages, classes and types. Packages live as long as the process.
class VGHOST_API COSPackage {
 public:
  virtual ~COSPackage();

  /// Adds a package below this one and takes the description over, also when it throws. A
  /// COSException if the name is taken.
  virtual void addSubPackageInfo(COSPackageInfo* info);
  /// Adds a class, which the caller keeps.
  virtual void addClass(COSClass* newClass);
  /// Adds a type, which the caller keeps, and makes it known to the repository under its full
  /// dotted name. A COSException if that is taken.
  virtual void addDataType(COSDataType* type);

  /// The package of a full dotted name, loaded through the hook of the package around it if
  /// necessary; null if it is unknown.
  static COSPackage* getPackage(COSNameID name);
  /// Adds a top-level package; ownership and errors as for addSubPackageInfo.
  static void addPackage(COSPackageInfo* info);

  /// The full dotted name.
  COSNameID getNameID() const noexcept { return name_; }
  COSPackageInfo& getInfo() const noexcept { return *info_; }
  /// In the order of adding.
  const std::vector<COSDataType*>& getDataTypes() const noexcept { return types_; }
  /// The class of that name, whole or only the part after the last dot, loaded through the hook if
  /// necessary; null if there is none.
  COSClass* getClass(COSNameID name);

 private:
  COSPackage(COSNameID name, std::unique_ptr<COSPackageInfo> info) noexcept;
  static void add(const COSPackage* parent, COSPackageInfo* info);

  COSNameID name_;
  std::unique_ptr<COSPackageInfo> info_;
  std::vector<COSClass*> classes_;
  std::vector<COSDataType*> types_;
};

}  // namespace vcos
