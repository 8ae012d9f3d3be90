// Font names that Java is asked about, with a Java machine that stands in for one.

#include "support/FakeJavaEnvironment.h"
#include "support/HostError.h"

#include <graphics/datatype/FontNameDataType.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using graphics::datatype::isFontNameValidIgnoreCase;

/// Answers what it is told to, writes down what it is asked, and where `failing` says gives null,
/// throws or does both. Any reference will do.
struct FontMachine : test::FakeJavaEnvironment {
  FontMachine() {
    table.FindClass = [](JNIEnv* env, const char* path) {
      return self(env).reference<jclass>("class", path);
    };
    table.NewString = [](JNIEnv* env, const jchar*, jsize length) {
      return self(env).reference<jstring>("text", std::to_string(length) + " units");
    };
    table.GetStaticMethodID = [](JNIEnv* env, jclass, const char* name, const char* signature) {
      return self(env).reference<jmethodID>("method", std::string(name) + signature);
    };
    table.CallStaticBooleanMethodV = [](JNIEnv* env, jclass, jmethodID, va_list) {
      self(env).reference<jobject>("call", "");
      return self(env).answer;
    };
    table.DeleteLocalRef = [](JNIEnv* env, jobject object) { self(env).deleted += object ? 1 : 0; };
  }
  static FontMachine& self(JNIEnv* env) { return static_cast<FontMachine&>(*env); }

  template <class Reference>
  Reference reference(const std::string& step, const std::string& asked) {
    calls += asked + " ";
    pending = failing == step || failing == "thrown " + step;
    const bool isNull = failing == step || failing == "null " + step;
    return isNull ? nullptr : reinterpret_cast<Reference>(this);
  }

  std::string failing;
  std::string calls;
  jboolean answer = JNI_TRUE;
  int deleted = 0;
};

TEST(FontNames, AreAllValidWhereNoJavaRunsButTheEmptyOne) {
  EXPECT_TRUE(isFontNameValidIgnoreCase("No Such Font"));
  EXPECT_FALSE(isFontNameValidIgnoreCase("") || isFontNameValidIgnoreCase(nullptr));
}

TEST(FontNames, AreWhatJavaSaysWhereItRuns) {
  FontMachine java;
  test::fakeJavaMachine.environment = &java;
  const char* const kAsked =
      "com/lindgrove/vg/types/VGFontName 5 units isFontNameValidIgnoreCase(Ljava/lang/String;)Z  ";
  EXPECT_TRUE(isFontNameValidIgnoreCase("Serif"));
  EXPECT_EQ(java.calls, kAsked);
  java.answer = 2;
  EXPECT_FALSE(isFontNameValidIgnoreCase("Serif"));
  java.calls.clear();
  isFontNameValidIgnoreCase("\xF0\x9D\x84\x9E\xC3\xA9");
  EXPECT_NE(java.calls.find(" 3 units "), std::string::npos);
  EXPECT_FALSE(isFontNameValidIgnoreCase(""));
  EXPECT_EQ(java.deleted, 6) << "each class and each text";
  java.answer = JNI_TRUE;
  for (const char* step : {"text", "method", "call"}) {
    java.failing = step;
    EXPECT_FALSE(isFontNameValidIgnoreCase("Serif") || java.pending) << step;
  }
  for (const char* step : {"class", "thrown class", "null class"}) {
    java.failing = step;
    EXPECT_EQ(test::identifierRaisedBy([] { isFontNameValidIgnoreCase("Serif"); }),
              "VORTIL:class:VORTILConversionError");
    EXPECT_EQ(std::string(test::lastError().text)
                  .find("JNI cannot find class com/lindgrove/vg/types/VGFontName in file "
                        "objects/FontNameDataTypeImpl line "),
              0U);
    EXPECT_FALSE(java.pending);
  }
  test::fakeJavaMachine.isAttached = false;
  EXPECT_TRUE(isFontNameValidIgnoreCase("Serif")) << "as without Java";
  test::fakeJavaMachine = {};
}

}  // namespace
