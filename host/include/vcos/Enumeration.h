#pragma once

#include <utility>

namespace vcos {

/// The implementation side of an enumeration. Whoever stores a pointer to it raises the count.
template <class T>
class EnumerationUtil {
 public:
  virtual ~EnumerationUtil() = default;
  virtual bool hasMoreElements() const = 0;
  /// The next element; only while hasMoreElements().
  virtual T nextElement() = 0;

  void addReference() noexcept { ++referenceCount_; }
  // Not inlined: g++ 12 would warn of a use after free that cannot happen.
  [[gnu::noinline]] void releaseReference() noexcept {
    if (--referenceCount_ == 0) delete this;
  }

 protected:
  EnumerationUtil() = default;
  EnumerationUtil(const EnumerationUtil&) = delete;
  EnumerationUtil& operator=(const EnumerationUtil&) = delete;

 private:
  int referenceCount_ = 0;
};

/// A sequence that is walked once. Copies share the place that the walk has reached. The empty
/// enumeration has a null inner pointer.
template <class T>
class Enumeration {
 public:
  Enumeration() noexcept = default;
  explicit Enumeration(EnumerationUtil<T>* implementation) noexcept : util_(implementation) {
    if (util_) util_->addReference();
  }
  Enumeration(const Enumeration& other) noexcept : Enumeration(other.util_) {}
  Enumeration& operator=(Enumeration other) noexcept {
    std::swap(util_, other.util_);
    return *this;
  }
  virtual ~Enumeration() {
    if (util_) util_->releaseReference();
  }

  bool hasMoreElements() const { return util_ && util_->hasMoreElements(); }
  /// Who owns an element is said by whoever gave the enumeration.
  T nextElement() { return util_->nextElement(); }

  const EnumerationUtil<T>* getUtil() const noexcept { return util_; }

 private:
  EnumerationUtil<T>* util_ = nullptr;
};

}  // namespace vcos
