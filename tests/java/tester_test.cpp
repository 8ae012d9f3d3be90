// How failures reach Java code that calls native entries.

#include "java/WatchedJava.h"
#include "support/FailingNew.h"
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
  explicit Tester(Work ownWork, bool ownIsOfText = true)
      : work(std::move(ownWork)),
        isOfText(ownIsOfText) {}
  jobject getter(JNIEnv* java, jobject) override { return work(java); }
  void setter(JNIEnv* java, jobject, jobject) override { work(java); }
  jobject doConvertToJavaFromString(JNIEnv* java, jobject caller,
                                    const std::string& text) const override {
    seen = text;
    jobject const result = work(java);
    return isOfText ? result : ConverterTester::doConvertToJavaFromString(java, caller, text);
  }
  Work work;
  bool isOfText;
  mutable std::string seen;
};

jobject leavePending(JNIEnv* java) {
  java->ThrowNew(WatchedJava::get().find("java/lang/Exception"), "before");
  return nullptr;
}

/// What is pending after a conversion from text, or after each of the two other operations.
std::string thrownBy(Tester tester, bool byText) {
  WatchedJava& watched = WatchedJava::get();
  return watched.aside([&](JNIEnv& java) {
    if (byText) {
      EXPECT_EQ(tester.convertToJavaFromString(&java, nullptr, watched.text(u"text")), nullptr);
      return watched.takePending();
    }
    EXPECT_EQ(tester.testGetter(&java, nullptr), nullptr);
    std::string thrown = watched.takePending();
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
    const Work works[] = {
        [&](JNIEnv*) -> jobject { throw HostError(std::make_shared<UserError>(text)); },
        [&](JNIEnv*) -> jobject { throw UserError(text); },
        [&](JNIEnv* java) { return leavePending(java) ? nullptr : throw UserError(text); },
    };
    for (const Work& work : works)
      for (const bool byText : {false, true})
        EXPECT_EQ(thrownBy(Tester(work), byText),
                  "java.lang.IllegalArgumentException: A:b " + text);
  }
}

TEST_F(TesterTest, OtherFailuresNameTheLine) {
  const Work works[] = {
      [](JNIEnv*) -> jobject { throw std::bad_alloc(); },
      [](JNIEnv*) -> jobject { throw vcos::COSOutOfMemoryException(); },
      [](JNIEnv* java) -> jobject { throw leavePending(java); },
  };
  for (const Work& work : works) {
    EXPECT_THAT(thrownBy(Tester(work), false),
                MatchesRegex("java.lang.RuntimeException: Unexpected exception in file "
                             "src/JavaConverterUtils line [0-9]+"));
    EXPECT_EQ(thrownBy(Tester(work), true),
              "java.lang.RuntimeException: Unexpected exception in file  in file "
              "src/JavaConverterUtils line 166");
  }
  for (const Work& work : {Work([](JNIEnv*) { return nullptr; }), Work(leavePending)})
    EXPECT_THAT(thrownBy(Tester(work, false), true),
                MatchesRegex("java.lang.UnsupportedOperationException: method "
                             "doConvertToJavaFromString\\(\\) is not implemented in file "
                             "src/JavaConverterUtils line [0-9]+"));
}

TEST_F(TesterTest, NothingLeavesAnEntryWhereMemoryFails) {
  using HostError = Lindgrove::System::utErrorException_DEPRECATED;
  const std::string text(100, 'x');
  const auto error = std::make_shared<UserError>(text);
  WatchedJava& watched = WatchedJava::get();
  watched.aside([&](JNIEnv& java) {
    jstring const given = watched.text(u"text");
    Tester tester([&](JNIEnv*) -> jobject { throw HostError(error); });
    std::string thrown;
    for (std::uint64_t nth = 1; !thrown.ends_with(text); ++nth)
      for (const bool byText : {false, true}) {
        test::failNew(nth, true);
        byText ? tester.convertToJavaFromString(&java, nullptr, given)
               : tester.testGetter(&java, nullptr);
        test::failNoNew();
        thrown = watched.takePending();
        EXPECT_NE(thrown, "");
        ASSERT_LT(nth, 100U);
      }
  });
}

TEST_F(TesterTest, WorksInScopesOfItsOwn) {
  vxSetErrorMode(vxERROR_MODE_REPORT);
  const std::size_t arrays = vghost::liveArrays();
  const std::size_t blocks = vghost::liveBlocks();
  for (const bool fails : {false, true})
    for (const bool byText : {false, true}) {
      const Work work = [&](JNIEnv*) -> jobject {
        EXPECT_EQ(vxSetErrorMode(vxERROR_MODE_RAISE), vxERROR_MODE_RAISE);
        EXPECT_NE(vxCreateDoubleScalar(1), vxMalloc(1));
        if (fails) throw UserError("text");
        return nullptr;
      };
      EXPECT_EQ(thrownBy(Tester(work), byText),
                fails ? "java.lang.IllegalArgumentException: A:b text" : "");
    }
  EXPECT_EQ(vxSetErrorMode(vxERROR_MODE_RAISE), vxERROR_MODE_REPORT);
  EXPECT_EQ(vghost::liveArrays(), arrays);
  EXPECT_EQ(vghost::liveBlocks(), blocks);
}

TEST_F(TesterTest, HandsTextsOnAndResultsBack) {
  WatchedJava& watched = WatchedJava::get();
  watched.aside([&](JNIEnv& java) {
    jstring const result = watched.text(u"result");
    Tester tester([=](JNIEnv*) { return result; });
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

}  // namespace
