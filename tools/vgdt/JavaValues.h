#pragma once

#include "Errors.h"
#include "Types.h"

#include <vcos/COSTypeConversion.h>

#include <optional>
#include <string>

struct JNIEnv_;

namespace vgdt {

/// What there is to show of a value's Java object, and of the value that came back from it. It
/// outlives both and the present ArrayScope.
struct JavaForm {
  std::optional<Failure> failure;  ///< how the conversion to Java ended, if it raised: all there is
  std::optional<std::string> className;  ///< with dots; none for a null object
  std::optional<std::string> text;       ///< its toString(), or Arrays.toString() of an array
  std::optional<Failure> textFailure;    ///< how toString() ended, if it threw
  vcos::ArrayOwner array;
  std::optional<Failure> arrayFailure;  ///< how the way back ended, if it raised
  bool isEqual;                         ///< the value that came back, to the one that went
};

/// The way of a type's values to Java and back.
class JavaAccess {
 public:
  /// Starts Java unless it runs. RequestError if it cannot be started, or the type has no Java
  /// form.
  explicit JavaAccess(const Type& type);
  explicit JavaAccess(const Type&&) = delete;

  /// Leaves no reference behind, and no exception pending in Java.
  JavaForm formOf(vcos::COSValue word) const;

 private:
  const Type& type_;
  const vcos::JavaTypeConversion* conversion_;
  JNIEnv_& java_;
};

/// The dotted name of the class of a type's Java objects; none if it has no Java form. Java need
/// not run.
std::optional<std::string> javaClassOf(const Type& type);

}  // namespace vgdt
