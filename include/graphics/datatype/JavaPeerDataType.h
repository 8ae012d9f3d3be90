#pragma once

#include <graphics/datatype/AbstractJavaConverter.h>
#include <graphics/datatype/HostAllocated.h>
#include <graphics/datatype/PropertyDataType.h>
#include <java/references.h>
#include <vcos/COSTypeConversion.h>

#include <boost/smart_ptr/shared_ptr.hpp>

namespace graphics::datatype {

/// A new global reference, deleted when the last sharer goes, on whatever thread. The object must
/// not be null. A vcos::COSOutOfMemoryException if Java gives no reference.
VGDT_API boost::shared_ptr<_jobject> makeNewSharedGlobalRef(jobject object);

/// A Java object, or none, held by a global reference; each copy has a reference of its own.
///
///     JavaPeer peer(local);              // the local reference stays the caller's
///     const auto object = peer.get_jobject();
class VGDT_API JavaPeer : public HostAllocated {
 public:
  JavaPeer() noexcept;
  explicit JavaPeer(jobject object);
  JavaPeer(const JavaPeer& other);
  /// As setJavaReference() with the object of the other.
  JavaPeer& operator=(const JavaPeer& other);
  virtual ~JavaPeer();

  /// Kept: null changes nothing, so that a peer that holds nothing leaves the old object in place.
  /// Errors: as makeNewSharedGlobalRef().
  void setJavaReference(jobject object);
  boost::shared_ptr<_jobject> get_jobject() const { return reference_; }

 private:
  boost::shared_ptr<_jobject> reference_;
};

/// The type "JavaPeer": null by default. Needs a thread that has a Java environment, other than for
/// null and for peers that hold nothing.
class VGDT_API JavaPeerDataType final : public PropertyDataType<JavaPeerDataType, JavaPeer> {
 public:
  static constexpr const char* kDottedName = "vortil.graphics.datatype.JavaPeer";

  vcos::COSValue getDefaultValue() const override;  ///< null
};

/// The type has no text form: both operations give null.
class VGDT_API JavaPeerSC final : public vcos::COSTypeConversion {
 public:
  vcos::COSValue to(vcos::COSValue value) const override;
  vcos::COSValue from(vcos::COSValue text) const override;
};

/// Between a host array and a word, by the host's conversions of Java objects.
class VGDT_API JavaPeerVC final : public vcos::COSTypeConversion {
 public:
  /// The array that comes closest to the object; 0-by-0 double for null. It is the caller's.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// A peer of the Java object that comes closest to the array, which holds nothing if there is
  /// none; null for null.
  vcos::COSValue from(vcos::COSValue array) const override;
};

/// Between a reference to a host array in Java and a word.
class VGDT_API JavaPeerJC final : public ArrayJavaConverter<JavaPeerVC> {};

/// Queues the registration of the type; runs at load.
VGDT_API bool init_VortilGraphicsDatatype_JavaPeerDataType();
/// Registers the type; does nothing if it is known.
VGDT_API void init_VortilGraphicsDatatype_JavaPeerDataType_callback();

}  // namespace graphics::datatype
