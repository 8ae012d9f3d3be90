#pragma once

#include <ut/export.h>
#include <vx/array.h>

#include <cstddef>

/// What a user has assigned to a callback property: code, a function, or a function with arguments.
/// Copies share the content, which never changes.
///
/// It stands on a heap of its own; where that has no room, it is a vcos::COSOutOfMemoryException.
class VGHOST_API VCallback {
 public:
  /// Of a char row or an empty char array (code), a function handle, or a cell array that is not
  /// empty and begins with one of these, whose other elements are the arguments. The array stays
  /// the caller's. Anything else, also null, is a gui_objects::ArrayException.
  explicit VCallback(const vxArray* array);
  VCallback(const VCallback& other) noexcept;
  VCallback& operator=(const VCallback&) = delete;
  ~VCallback();

  static void* operator new(std::size_t size);
  static void operator delete(void* storage) noexcept;

  /// A new callback of a string of code. Null is a gui_objects::NullArrayException.
  [[nodiscard]] static VCallback* createFromString(const char* code);

  /// Whether both have the same form and content, down to the bits of numbers. Empty codes are the
  /// same whatever their dimensions.
  bool isEqual(const VCallback* other) const;
  /// The form as a host array: a new one, which is the caller's, or the callback's own.
  [[nodiscard]] vxArray* convertToVortilArray(bool isNew) const;

  /// Forgets the last error and runs the callback: the installed evaluator does. Other than 0 if it
  /// failed. Without an evaluator nothing happens. What the evaluator throws passes through.
  int execute(vxArray* source, vxArray* eventData) const;
  /// Whether execute(), when it ran last, failed by an exception that the host has saved, so that
  /// nobody else need report it.
  bool wasExceptionCaughtAndSaved() const noexcept { return wasSaved_; }

 private:
  struct Content;
  friend VGHOST_API VCallback* GetVCallbackReference(VCallback* callback);
  friend VGHOST_API void DestroyVCallback(VCallback* reference) noexcept;

  explicit VCallback(Content& content) noexcept : content_(&content) {}

  Content* content_;
  mutable bool wasSaved_ = false;
};

/// Counts a reference to the content of a callback, which stays whatever becomes of the callback
/// itself until the reference is given back.
[[nodiscard]] VGHOST_API VCallback* GetVCallbackReference(VCallback* callback);
/// Gives a reference back. Null does nothing.
VGHOST_API void DestroyVCallback(VCallback* reference) noexcept;

namespace vghost {

/// How a callback has ended.
struct CallbackOutcome {
  bool hasFailed = false;
  bool wasSaved = false;  ///< the failure was an exception that is saved
};

/// Runs callbacks.
class VGHOST_API CallbackEvaluator {
 public:
  virtual ~CallbackEvaluator();
  /// `callback` is in one of the three forms. The arrays stay the caller's, and `eventData` may be
  /// null.
  virtual CallbackOutcome run(const vxArray* callback, const vxArray* source,
                              const vxArray* eventData) = 0;
};

/// Lets `evaluator` run all callbacks from now on, or none if it is null. Returns the one before.
VGHOST_API CallbackEvaluator* installCallbackEvaluator(CallbackEvaluator* evaluator) noexcept;

/// How many references have not been given back.
VGHOST_API std::size_t callbackReferences() noexcept;

}  // namespace vghost
