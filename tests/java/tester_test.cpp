// How failures reach Java code that calls native entries.

#include "java/WatchedJava.h"
#include "support/HostError.h"

#include <gmock/gmock.h>
#include <graphics/datatype/ConverterTester.h>
#include <graphics/datatype/vgdatatypes.h>
#include <ut/memory.h>
#include <vcos/exceptions.h>
#include <vx/scopes.h>

#include <functional>
#include <memory>
#include <string>

namespace {

using test::WatchedJava;
using testing::MatchesRegex;

/// An error whose text no printf makes.
struct UserError : fl::except::IUserException {
  explicit UserError(std::string ownText) : text(std::move(ownText)) {}
  const char* GetID() const override { return "A:b"; }
  fl::ustring GetUnicodeMessageTxt() const override { return fl::i18n::to_ustring(text); }
  std::string GetMessageTxt() const override { return text; }
  UserError* clone() const override { return new UserError(*this); }
  void rethrow() const override { throw *this; }
  std::string text;
};

using Work = std::function<jobject(JNIEnv*)>;

struct Tester : graphics::datatype::ConverterTester {
  explicit Tester(Work ownWork) : work(std::move(ownWork)) {}
  jobject getter(JNIEnv* java, jobject) override { return work(java); }
  void setter(JNIEnv* java, jobject, jobject) override { work(java); }
  Work work;
};

struct TextTester : Tester {
  using Tester::Tester;
  jobject doConvertToJavaFromString(JNIEnv* java, jobject, const std::string& text) const override {
    seen = text;
    return work(java);
  }
  mutable std::string seen;
};

struct PendingTester : Tester {
  using Tester::Tester;
  jobject doConvertToJavaFromString(JNIEnv* java, jobject caller,
                                    const std::string& text) const override {
    work(java);
    return ConverterTester::doConvertToJavaFromString(java, caller, text);
  }
};

jobject leavePending(JNIEnv* java) {
  java->ThrowNew(WatchedJava::get().find("java/lang/Exception"), "before");
  return nullptr;
}

/// What the three operations leave pending when all they run is `work`.
std::string thrownBy(const Work& work, bool byText = false) {
  WatchedJava& watched = WatchedJava::get();
  return watched.aside([&](JNIEnv& java) {
    TextTester tester(work);
    if (byText) {
      EXPECT_EQ(tester.convertToJavaFromString(&java, nullptr, watched.text(u"text")), nullptr);
      return watched.takePending();
    }
    EXPECT_EQ(tester.testGetter(&java, nullptr), nullptr);
    const std::string thrown = watched.takePending();
    tester.testSetter(&java, nullptr, nullptr);
    EXPECT_EQ(watched.takePending(), thrown);
    return thrown;
  });
}

class TesterTest : public testing::Test {
 protected:
  static void SetUpTestSuite() { VLInitialize_vgdatatypes(); }
};

TEST_F(TesterTest, HostErrorsAreIllegalArguments) {
  using HostError = Lindgrove::System::utErrorException_DEPRECATED;
  for (const std::string& text : {std::string("%s {0} %n"), std::string("a\0b", 3),
                                  std::string("\xF0\x9F\x98\x80 \xC3\xA9"), std::string()}) {
    const std::string expected = "java.lang.IllegalArgumentException: A:b " + text;
    for (const bool byText : {false, true}) {
      const Work wrapped = [&](JNIEnv*) -> jobject {
        throw HostError(std::make_shared<UserError>(text));
      };
      EXPECT_EQ(thrownBy(wrapped, byText), expected);
      EXPECT_EQ(thrownBy([&](JNIEnv*) -> jobject { throw UserError(text); }, byText), expected);
      EXPECT_EQ(thrownBy([&](JNIEnv* java) { return leavePending(java), wrapped(java); }, byText),
                expected);
    }
  }
}

TEST_F(TesterTest, OtherExceptionsAreOfTheMachineAtRunTime) {
  const Work works[] = {
      [](JNIEnv*) -> jobject { throw std::bad_alloc(); },
      [](JNIEnv*) -> jobject { throw 1; },
      [](JNIEnv*) -> jobject { throw vcos::COSOutOfMemoryException(); },
      [](JNIEnv* java) -> jobject { throw leavePending(java); },
  };
  for (const Work& work : works) {
    EXPECT_THAT(thrownBy(work), MatchesRegex("java.lang.RuntimeException: Unexpected exception in "
                                             "file src/JavaConverterUtils line [0-9]+"));
    EXPECT_EQ(thrownBy(work, true),
              "java.lang.RuntimeException: Unexpected exception in file  in "
              "file src/JavaConverterUtils line 166");
  }
}

TEST_F(TesterTest, WorksInScopesOfItsOwn) {
  vxSetErrorMode(vxERROR_MODE_REPORT);
  const std::size_t arrays = vghost::liveArrays();
  const std::size_t blocks = vghost::liveBlocks();
  for (const bool fails : {false, true})
    for (const bool byText : {false, true})
      EXPECT_EQ(thrownBy(
                    [&](JNIEnv*) -> jobject {
                      EXPECT_EQ(vxSetErrorMode(vxERROR_MODE_REPORT), vxERROR_MODE_RAISE);
                      EXPECT_NE(vxCreateDoubleScalar(1), vxMalloc(1));
                      if (fails) throw UserError("text");
                      vxSetErrorMode(vxERROR_MODE_RAISE);
                      return nullptr;
                    },
                    byText),
                fails ? "java.lang.IllegalArgumentException: A:b text" : "");
  EXPECT_EQ(vxSetErrorMode(vxERROR_MODE_RAISE), vxERROR_MODE_REPORT);
  EXPECT_EQ(vghost::liveArrays(), arrays);
  EXPECT_EQ(vghost::liveBlocks(), blocks);
}

TEST_F(TesterTest, HandsTextsOnAndResultsBack) {
  WatchedJava& watched = WatchedJava::get();
  watched.aside([&](JNIEnv& java) {
    jstring const result = watched.text(u"result");
    TextTester tester([=](JNIEnv*) { return result; });
    EXPECT_EQ(tester.testGetter(&java, nullptr), result);
    EXPECT_EQ(tester.convertToJavaFromString(&java, nullptr, nullptr), nullptr);
    EXPECT_EQ(tester.seen, "");
    EXPECT_EQ(
        tester.convertToJavaFromString(&java, nullptr, watched.text({u"%s\0\U0001F600\xD800", 6})),
        result);
    EXPECT_EQ(tester.seen, "%s\xEF\xBF\xBD\xF0\x9F\x98\x80\xEF\xBF\xBD");
    EXPECT_EQ(watched.takePending(), "");
  });
}

TEST_F(TesterTest, HasNoTextsUnlessATesterDoes) {
  WatchedJava& watched = WatchedJava::get();
  watched.aside([&](JNIEnv& java) {
    for (const Work& work : {Work([](JNIEnv*) { return nullptr; }), Work(leavePending)}) {
      EXPECT_EQ(PendingTester(work).convertToJavaFromString(&java, nullptr, watched.text(u"text")),
                nullptr);
      EXPECT_THAT(watched.takePending(),
                  MatchesRegex("java.lang.UnsupportedOperationException: method "
                               "doConvertToJavaFromString\\(\\) is not implemented in file "
                               "src/JavaConverterUtils line [0-9]+"));
    }
  });
}

}  // namespace
