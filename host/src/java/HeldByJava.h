#pragma once

#include "Jni.h"

#include <atomic>
#include <map>
#include <mutex>
#include <optional>
#include <utility>

namespace vghost::java {

/// A Java class whose objects stand for something of the host's by a number in their field
/// "number", which their private constructor takes.
class NumberedClass {
 public:
  constexpr NumberedClass(const char* ownPath, const char* ownDottedName) noexcept
      : path(ownPath),
        dottedName(ownDottedName) {}

  const char* const path;
  const char* const dottedName;

  /// A new local reference; null if there is no such class, or if Java fails.
  Local<_jobject> create(JNIEnv& java, jlong number) const noexcept;
  /// None unless the object is of the class.
  std::optional<jlong> numberOf(JNIEnv& java, jobject object) const noexcept;
  /// The same, but raises "VORTIL:class:JavaConversionError".
  jlong requireNumberOf(JNIEnv& java, jobject object) const;
  /// Raises the same for an object that Java could not make.
  [[noreturn]] void raiseNotCreated(JNIEnv& java) const;

 private:
  /// What Java knows the class and its members by. A global reference keeps them valid.
  struct Found {
    jclass type;
    jmethodID constructor;
    jfieldID number;
  };

  /// Looked up until it is found, and then kept: it takes longer than all else that is done with
  /// an object. Null if there is no such class.
  const Found* find(JNIEnv& java) const noexcept;

  mutable std::atomic<const Found*> found_ = nullptr;
};

/// Raises "VORTIL:class:JavaConversionError" unless Java runs.
JNIEnv& requireJava();
/// Raises the same for a number that leads nowhere.
[[noreturn]] void raiseUnknownNumber(jlong number);

/// What Java holds, by numbers that are used only once: an object of Java's that outlives what it
/// stands for finds nothing. Threads of Java's may use it at once. What Java gives up stays until
/// the thread of the interpreter releases it.
template <class Held>
class HeldByJava {
 public:
  HeldByJava(const char* classPath, const char* dottedName) noexcept
      : class_(classPath, dottedName) {}

  const NumberedClass& javaClass() const noexcept { return class_; }

  jlong add(Held held) {
    const std::lock_guard lock(mutex_);
    held_.emplace_hint(held_.end(), next_, std::move(held));  // the largest number so far
    return next_++;
  }

  /// A Java object that stands for `held`; null if Java cannot make one.
  Local<_jobject> give(JNIEnv& java, Held held) {
    const jlong number = add(std::move(held));
    Local<_jobject> object = class_.create(java, number);
    if (!object) giveUp(number);
    releaseGivenUp();
    return object;
  }

  void giveUp(jlong number) noexcept {
    const std::lock_guard lock(mutex_);
    auto node = held_.extract(number);
    if (!node) return;
    givenUp_.insert(std::move(node));
    hasGivenUp_ = true;
  }

  void releaseGivenUp() noexcept {
    if (!hasGivenUp_) return;
    Table released;  // ends after the lock: what it destroys may come back here
    const std::lock_guard lock(mutex_);
    released.swap(givenUp_);
    hasGivenUp_ = false;
  }

  /// What `use` makes of the entries of these numbers, which stay during the call.
  template <class Use, class... Numbers>
  auto with(const Use& use, Numbers... numbers) {
    const std::lock_guard lock(mutex_);
    return use(at(numbers)...);
  }

 private:
  using Table = std::map<jlong, Held>;

  const Held& at(jlong number) const {
    const auto found = held_.find(number);
    if (found == held_.end()) raiseUnknownNumber(number);
    return found->second;
  }

  NumberedClass class_;
  std::mutex mutex_;
  Table held_;
  Table givenUp_;
  std::atomic<bool> hasGivenUp_ = false;  ///< written under the lock
  jlong next_ = 1;
};

}  // namespace vghost::java
