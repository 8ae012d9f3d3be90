#pragma once

/// What the Java conversions of the types derive from. A conversion crosses between a word of its
/// type and a Java object:
///
///     const PositionJC conversion;
///     const vcos::COSValue object = conversion.to(word);         // a local reference
///     const vcos::COSValue again = conversion.from(object);      // a new value of the caller's
///
/// Errors: "VORTIL:class:JavaConversionError" for what cannot cross: a class that Java cannot find,
/// an object of another class or a null where the type takes none, a method that is missing or that
/// throws, whose exception is cleared. A bad value raises what the type says of it. Nothing is left
/// pending, and no local reference but the result.

#include <graphics/datatype/export.h>
#include <java/environment.h>
#include <vcos/COSTypeConversion.h>

namespace graphics::datatype {

/// The environment in which a conversion works.
class VGDT_API JavaEnvironment {
 public:
  /// Fixes the environment, as tests do; null is that of the calling thread again.
  void setJNIEnv(JNIEnv* java) noexcept { env_ = java; }
  /// The one that is fixed, or the host's for the calling thread; null if no Java machine runs.
  JNIEnv* getJNIEnv() const;

 private:
  JNIEnv* env_ = nullptr;
};

class VGDT_API AbstractJavaConverter : public vcos::JavaTypeConversion, public JavaEnvironment {
 public:
  ~AbstractJavaConverter() override;
};

/// Between the words of a type and references to host arrays, com.lindgrove.jvi.types.VLArrayRef,
/// for a type that has no Java class of its own: by its array conversion and the host's.
class VGDT_API ArrayReferenceConverter : public AbstractJavaConverter {
 public:
  const char* getJavaDeclarationName() override;

 protected:
  /// A reference to the array that the conversion makes of a value.
  static vcos::COSValue arrayToJava(const vcos::COSTypeConversion& ofArrays, vcos::COSValue value);
  /// The value that the conversion makes of the array behind a reference.
  static vcos::COSValue arrayFromJava(const vcos::COSTypeConversion& ofArrays,
                                      vcos::COSValue object);
};

template <class ArrayConversion>
class ArrayJavaConverter : public ArrayReferenceConverter {
 public:
  vcos::COSValue to(vcos::COSValue value) const override {
    return arrayToJava(ArrayConversion(), value);
  }
  vcos::COSValue from(vcos::COSValue object) const override {
    return arrayFromJava(ArrayConversion(), object);
  }
};

}  // namespace graphics::datatype
