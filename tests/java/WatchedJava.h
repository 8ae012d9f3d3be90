#pragma once

#include <gtest/gtest.h>
#include <java/machine.h>
#include <java/references.h>
#include <jni.h>
#include <messages/ustring.h>
#include <vx/array.h>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

extern "C" [[gnu::weak]] void __lsan_disable();  // NOLINT: the name is the sanitizer's
extern "C" [[gnu::weak]] void __lsan_enable();   // NOLINT: likewise

namespace test {

/// What is allocated on this thread while this lives is no leak.
struct LeaksOfJava {
  LeaksOfJava() {
    if (__lsan_disable) __lsan_disable();
  }
  ~LeaksOfJava() {
    if (__lsan_enable) __lsan_enable();
  }
  LeaksOfJava(const LeaksOfJava&) = delete;
  LeaksOfJava& operator=(const LeaksOfJava&) = delete;
};

/// Java, with the calls of the thread that first asks for it going through a table of the test's
/// own. Those that may fail are counted, and the local references that are in use are known.
class WatchedJava {
 public:
  static WatchedJava& get() {
    static auto& java = *new WatchedJava;  // the table is used as long as the process
    return java;
  }

  /// The `nth` call from here does what failing calls do: it gives nothing and leaves an exception.
  static void failCall(std::uint64_t nth, bool fromThenOn) {
    get().firstToFail_ = get().calls_ + nth;
    get().lastToFail_ = fromThenOn ? kNever : get().firstToFail_;
  }
  static void failNoCall() { get().firstToFail_ = kNever; }
  static std::uint64_t callCount() { return get().calls_; }

  /// Classes whose path begins so cannot be found; all can for "-".
  void hide(const char* prefix) { hidden_ = prefix; }

  const std::vector<jobject>& references() const { return references_; }

  /// Does something that is not watched.
  template <class Work>
  auto aside(Work&& work) {
    const bool wasAside = std::exchange(isAside_, true);
    struct Restore {
      ~Restore() { flag = value; }
      bool& flag;
      const bool value;
    } const restore{isAside_, wasAside};
    return work(java_);
  }

  void release(jobject reference) { java_.DeleteLocalRef(reference); }
  bool isPending() {
    return aside([](JNIEnv& java) { return java.ExceptionCheck(); });
  }

  /// Class and text of the exception that is pending, which is cleared; "" if none is.
  std::string takePending() {
    return aside([this](JNIEnv& java) -> std::string {
      jthrowable const pending = java.ExceptionOccurred();
      if (!pending) return {};
      java.ExceptionClear();
      return textOf(call(pending, "toString", "()Ljava/lang/String;"));
    });
  }

  jclass find(const char* path) {
    return aside([=](JNIEnv& java) { return java.FindClass(path); });
  }
  jobject call(jobject object, const char* getter, const char* signature) {
    return aside([=](JNIEnv& java) {
      jobject const result = java.CallObjectMethod(
          object, java.GetMethodID(java.GetObjectClass(object), getter, signature));
      EXPECT_FALSE(java.ExceptionCheck());
      return result;
    });
  }
  jstring text(std::u16string_view units) {
    return aside([=](JNIEnv& java) {
      return java.NewString(reinterpret_cast<const jchar*>(units.data()),
                            static_cast<jsize>(units.size()));
    });
  }
  std::string textOf(jobject string) {
    return aside([=](JNIEnv& java) {
      auto* const text = static_cast<jstring>(string);
      fl::ustring units(static_cast<std::size_t>(java.GetStringLength(text)), 0);
      java.GetStringRegion(text, 0, java.GetStringLength(text), units.data());
      return fl::i18n::to_utf8(units.data(), units.size());
    });
  }

  /// Waits until Java has given up what nothing refers to any more; no longer once a test fails.
  template <class IsSettled>
  bool settle(IsSettled&& isSettled) {
    using namespace std::chrono;
    return aside([&](JNIEnv& java) {
      const auto patience = testing::Test::HasFailure() ? 0s : 10s;
      for (const auto end = steady_clock::now() + patience;;) {
        vghost::releaseGivenUpByJava();
        if (isSettled()) return true;
        if (steady_clock::now() >= end) return false;
        java.CallStaticVoidMethod(system_, java.GetStaticMethodID(system_, "gc", "()V"));
        java.ExceptionCheck();
        std::this_thread::sleep_for(1ms);
      }
    });
  }

 private:
  static constexpr std::uint64_t kNever = UINT64_MAX;

  /// What native code does wrong is printed.
  static JNIEnv& startChecked() {
    const LeaksOfJava mayLeak;
    setenv("JAVA_TOOL_OPTIONS", "-Xcheck:jni", 0);
    return vghost::startJava();
  }

  WatchedJava() : java_(startChecked()), real_(*java_.functions), table_(real_) {
    references_.reserve(100);
    failure_ = static_cast<jclass>(java_.NewGlobalRef(find("java/lang/IllegalStateException")));
    system_ = static_cast<jclass>(java_.NewGlobalRef(find("java/lang/System")));
    using Table = JNINativeInterface_;
    watch<&Table::GetMethodID, &Table::GetStaticMethodID, &Table::GetFieldID, &Table::NewObjectV,
          &Table::CallStaticObjectMethodV, &Table::CallObjectMethodV, &Table::CallBooleanMethodV,
          &Table::CallIntMethodV, &Table::CallDoubleMethodV, &Table::NewString,
          &Table::NewStringUTF, &Table::GetStringRegion, &Table::NewObjectArray,
          &Table::NewDoubleArray, &Table::NewIntArray, &Table::GetObjectArrayElement,
          &Table::SetObjectArrayElement, &Table::GetDoubleArrayRegion, &Table::SetDoubleArrayRegion,
          &Table::GetFloatArrayRegion, &Table::SetIntArrayRegion>();
    table_.FindClass = [](JNIEnv*, const char* path) {
      const bool isHidden = !get().isAside_ && std::string_view(path).starts_with(get().hidden_);
      return get().pass(&Table::FindClass, isHidden, path);
    };
    table_.DeleteLocalRef = [](JNIEnv* java, jobject reference) {
      if (!get().isAside_ && reference) {
        EXPECT_EQ(std::erase(get().references_, reference), 1U) << "no local reference in use";
      }
      get().real_.DeleteLocalRef(java, reference);
    };
    java_.functions = &table_;
  }

  template <auto... entries>
  void watch() {
    (put<entries>(entries), ...);
  }
  template <auto entry, class Result, class... Parameters>
  void put(Result (*JNINativeInterface_::*)(JNIEnv*, Parameters...)) {
    table_.*entry = [](JNIEnv*, Parameters... parameters) {
      return get().pass(entry, false, parameters...);
    };
  }

  template <class Result, class... Parameters, class... Arguments>
  Result pass(Result (*JNINativeInterface_::*entry)(JNIEnv*, Parameters...), bool mustFail,
              Arguments... arguments) {
    const LeaksOfJava mayLeak;
    if (isAside_) return (real_.*entry)(&java_, arguments...);
    ++calls_;
    if (mustFail || (firstToFail_ <= calls_ && calls_ <= lastToFail_)) {
      real_.ThrowNew(&java_, failure_, "on purpose");
      return Result();
    }
    // What Java itself calls on the way is not watched.
    const auto call = [&](JNIEnv& java) { return (real_.*entry)(&java, arguments...); };
    if constexpr (std::is_convertible_v<Result, jobject>) {
      const Result made = aside(call);
      if (made) references_.push_back(made);
      return made;
    } else {
      return aside(call);
    }
  }

  JNIEnv& java_;
  const JNINativeInterface_ real_;
  JNINativeInterface_ table_;
  jclass failure_ = nullptr;
  jclass system_ = nullptr;
  bool isAside_ = false;
  std::uint64_t calls_ = 0;
  std::uint64_t firstToFail_ = kNever;
  std::uint64_t lastToFail_ = kNever;
  std::string_view hidden_ = "-";
  std::vector<jobject> references_;  ///< never grows, which might fail as part of what is tested
};

}  // namespace test
