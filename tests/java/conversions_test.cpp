// What the conversions to Java and back leave behind, whatever fails on the way.

#include "faults/Obstacles.h"
#include "java/WatchedJava.h"
#include "registry/RegisteredTypes.h"
#include "support/FakeJavaEnvironment.h"
#include "support/HostError.h"
#include "support/Objects.h"
#include "support/Outcomes.h"

#include <gmock/gmock.h>
#include <graphics/datatype/AbstractJavaConverter.h>
#include <graphics/datatype/ArrayBase.h>
#include <graphics/datatype/EnumBase.h>
#include <graphics/datatype/EnumStringType.h>
#include <graphics/datatype/vgdatatypes.h>
#include <java/environment.h>
#include <vcos/exceptions.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace test;
using graphics::datatype::ArrayBase;
using graphics::datatype::JavaEnvironment;
using graphics::datatype::VGTypedEnumStringType;
using testing::AnyOf;
using testing::StartsWith;
using vcos::COSNameID;
using vcos::COSValue;
using vcos::JavaTypeConversion;
using vcos::OwnedValue;

constexpr const char* kConversionError = "VORTIL:class:JavaConversionError";

JavaTypeConversion& javaConversionOf(const std::string& type) {
  return *JavaTypeConversion::getConversion(
      COSNameID(("vortil.graphics.datatype." + type).c_str()));
}

/// A value that crosses to Java.
struct Subject {
  Subject(const std::string& ownType, const vxArray* array)
      : name(ownType),
        access(accessOf(ownType)),
        type(access.dataType()),
        value(type, access.fromArray(array)),
        java(javaConversionOf(ownType)) {}

  COSValue toJava() const { return java.to(value.get()); }

  const std::string name;
  const vcos::TypeAccess access;
  const vcos::COSDataType& type;
  const OwnedValue value;
  JavaTypeConversion& java;
};

class Conversions : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    VLInitialize_vgdatatypes();
    java_ = &WatchedJava::get();
  }
  void TearDown() override {
    EXPECT_EQ(java().takePending(), "");
    EXPECT_THAT(java().references(), testing::IsEmpty());
  }

  static WatchedJava& java() { return *java_; }

  /// Calls `use` with a value of each type, and of each form that a type takes in Java.
  template <class Use>
  static void forEachValue(Use&& use) {
    const auto useOne = [&](const std::string& type, const ArrayOwner& array) {
      SCOPED_TRACE(type);
      const std::size_t arrays = vghost::liveArrays();
      use(Subject(type, array.get()));
      EXPECT_TRUE(java().settle([&] { return vghost::liveArrays() <= arrays; }));
    };
    const std::set<std::string> ofTwoNumbers{"DataBounds", "LimitsWithInfs", "TextPosition", "Tick",
                                             "TickLength"};
    for (const RegisteredType& row : registeredTypes())
      useOne(row.name, ofTwoNumbers.contains(row.name) ? array("1x2 double 1 2") : row.array());
    useOne("MarkerColor", array("1x3 double 0.5"));
    useOne("MeshColor", ArrayOwner(vxCreateString("flat")));
    useOne("MeshAlpha", array("1x1 double 0.5"));
    useOne("RGBAColor", ArrayOwner(vxCreateString("none")));
    useOne("NumericOrString", array("1x2 double 1 22"));
    useOne("Callback", ArrayOwner(vxCreateString("move")));
    useOne("HandleOrEmpty", ArrayOwner(omCreateVCOSScalar(numberedObject(1))));
  }

 private:
  static inline WatchedJava* java_ = nullptr;
};

constexpr Obstacle kCallOfJava{'j', "call of Java", WatchedJava::callCount, WatchedJava::failCall,
                               WatchedJava::failNoCall};

/// Lets an obstacle get in the way of a value that crosses to Java, or of an object that crosses
/// back.
void expectCleanFailures(const Subject& subject, COSValue object, bool isToJava,
                         const Obstacle& obstacle, bool fromThenOn) {
  WatchedJava& java = WatchedJava::get();
  const bool isOfJava = obstacle.letter == kCallOfJava.letter;
  int successes = 0;
  const auto met = sweep(obstacle, fromThenOn, [&](const auto& meet) {
    const std::size_t arrays = vghost::liveArrays();
    const std::size_t references = java.references().size();
    COSValue result;
    vghost::clearLastError();
    const Outcome outcome =
        meet([&] { result = isToJava ? subject.toJava() : subject.java.from(object); });
    EXPECT_EQ(java.takePending(), "");
    EXPECT_EQ(java.references().size(), references + (isToJava && !result.isNull() ? 1 : 0));
    if (outcome == Outcome::kSucceeded) {
      ++successes;
    } else if (isOfJava) {
      EXPECT_STREQ(lastError().identifier, kConversionError);
    }
    isToJava ? java.release(result.asPointer<_jobject>())
             : vcos::destroyValue(subject.type, result);
    java.settle([&] { return vghost::liveArrays() <= arrays; });
  });
  EXPECT_TRUE(met > 0 || !isOfJava || !isToJava || object.isNull());
  // Where the object that comes closest cannot be made, none is the closest.
  EXPECT_TRUE(successes == 1 || subject.name == "JavaPeer") << "not each failure has shown";
}

TEST_F(Conversions, GiveTheSameBackAndFailCleanlyAtEveryCallOfJavaAndEveryAllocation) {
  // Floats, three numbers for two, and another object.
  const std::set<std::string> others{"ColorOrder", "TextPosition", "JavaPeer"};
  std::vector<Obstacle> obstacles{kCallOfJava};
  std::ranges::copy_if(kObstacles, std::back_inserter(obstacles),
                       [](const Obstacle& obstacle) { return obstacle.letter != 's'; });
  forEachValue([&](const Subject& subject) {
    const COSValue object = subject.toJava();
    const OwnedValue back(subject.type, subject.java.from(object));
    EXPECT_EQ(vcos::holdsNothing(subject.type, back.get()) ||
                  subject.type.isEqual(back.get(), subject.value.get()),
              !others.contains(subject.name));
    for (const Obstacle& obstacle : obstacles)
      for (const bool isToJava : {true, false})
        for (const bool fromThenOn : {false, true})
          expectCleanFailures(subject, object, isToJava, obstacle, fromThenOn);
    if (object.isNull()) return;
    java().aside([&](JNIEnv& env) {
      jobject const type = env.GetObjectClass(object.asPointer<_jobject>());
      EXPECT_EQ(java().textOf(java().call(type, "getTypeName", "()Ljava/lang/String;")),
                subject.java.getJavaDeclarationName());
    });
    java().release(object.asPointer<_jobject>());
  });
}

TEST_F(Conversions, TakeNullOrRefuseIt) {
  // Kept as they are, with their misspelling.
  const std::map<std::string, std::string> texts{
      {"ColorOrder", "NULL is not a valid value for ColorOrder"},
      {"TextPosition", "NULL is not a valid value fot TextPosition"},
      {"TickLength", "NULL is not a valid value fot TickLength"}};
  forEachValue([&](const Subject& subject) {
    const auto text = texts.find(subject.name);
    const bool isRefused = text != texts.end();
    EXPECT_EQ(
        identifierRaisedBy([&] { java().release(subject.java.to({}).asPointer<_jobject>()); }),
        isRefused ? kConversionError : "");
    if (isRefused) {
      EXPECT_THAT(lastError().text, StartsWith(text->second));
    }
    EXPECT_THAT(identifierRaisedBy([&] { OwnedValue(subject.type, subject.java.from({})); }),
                AnyOf("", kConversionError));
  });
}

TEST_F(Conversions, NeedTheirJarOnlyForItsClasses) {
  // Those that the host has found once are kept.
  const std::set<std::string> ofHost{"com.lindgrove.jvi.types.VLArrayRef",
                                     "com.lindgrove.jvi.bean.UDDObject"};
  forEachValue([&ofHost](const Subject& subject) {
    auto* const object = subject.toJava().asPointer<_jobject>();
    if (!object || ofHost.contains(subject.java.getJavaDeclarationName()))
      return java().release(object);
    java().hide("com/lindgrove/");
    const std::string dotted = subject.java.getJavaDeclarationName();
    const bool isOfJar = dotted.starts_with("com.lindgrove.");
    const auto expectOutcome = [&](const auto& work) {
      EXPECT_EQ(identifierRaisedBy(work), isOfJar ? kConversionError : "");
      EXPECT_EQ(java().takePending(), "");
    };
    expectOutcome(
        [&] { OwnedValue(subject.type, subject.java.from(COSValue::fromPointer(object))); });
    expectOutcome([&] { java().release(subject.toJava().asPointer<_jobject>()); });
    if (isOfJar) {
      EXPECT_THAT(lastError().text, StartsWith("JNI cannot find class com/lindgrove/"));
    }
    java().hide("-");
    java().release(object);
  });
}

TEST_F(Conversions, LetGoOfAnObjectThatJavaGivesUp) {
  auto object = numberedObject(2);
  const Watched watched(object);
  {
    const Subject subject("HandleOrEmpty", ArrayOwner(omCreateVCOSScalar(object)).get());
    java().release(subject.toJava().asPointer<_jobject>());
  }
  object = {};
  EXPECT_TRUE(java().settle([&] { return !watched.isAlive(); }));
}

TEST_F(Conversions, LeaveNoThreadInJava) {
  const auto threads = [] {
    return java().aside([](JNIEnv& java) {
      const jclass type = java.FindClass("java/lang/Thread");
      const jint count =
          java.CallStaticIntMethod(type, java.GetStaticMethodID(type, "activeCount", "()I"));
      EXPECT_FALSE(java.ExceptionCheck());
      java.DeleteLocalRef(type);
      return count;
    });
  };
  const jint before = threads();
  std::thread([] { EXPECT_NE(GetJNIEnv(), nullptr); }).join();
  EXPECT_EQ(threads(), before);
}

TEST_F(Conversions, WorkInTheEnvironmentThatATestFixes) {
  for (const char* type : {"Position", "LineStyle"}) {
    FakeJavaEnvironment fake;
    const Subject subject(
        type, (accessOf(type).toArray(accessOf(type).dataType().getDefaultValue())).get());
    auto& environment = dynamic_cast<JavaEnvironment&>(subject.java);
    environment.setJNIEnv(&fake);
    EXPECT_EQ(environment.getJNIEnv(), &fake);
    EXPECT_EQ(identifierRaisedBy([&] { subject.toJava(); }), kConversionError) << type;
    environment.setJNIEnv(nullptr);
    EXPECT_EQ(environment.getJNIEnv(), GetJNIEnvR());
  }
}

TEST_F(Conversions, AreMadeForEachCallButForSixThatAreStatic) {
  const std::set<std::string> statics{"Tick",       "LimitsWithInfs", "TickLength",
                                      "DataBounds", "TextPosition",   "ColorOrder"};
  for (const RegisteredType& row : registeredTypes()) {
    if (row.family != Family::kShaped) continue;
    const auto& type = accessOf(row.name).dataType();
    const auto make = [&] {
      return ArrayBase::createJavaConverter(&type, row.dottedName().c_str());
    };
    JavaTypeConversion* const one = make();
    JavaTypeConversion* const other = make();
    EXPECT_EQ(one == other, statics.contains(row.name)) << row.name;
    // Both are taken over, and the static one stays.
    for (JavaTypeConversion* conversion : {one, one == other ? one : other})
      EXPECT_THROW(
          JavaTypeConversion::addConversion(COSNameID(row.dottedName().c_str()), conversion),
          vcos::COSException);
    EXPECT_EQ(&javaConversionOf(row.name) == one, one == other);
    EXPECT_STRNE(javaConversionOf(row.name).getJavaDeclarationName(), "");
  }
}

TEST_F(Conversions, ShowNamesWithoutALabelAsTheyAre) {
  struct Answer final : graphics::datatype::EnumBase {
    int getIntValue() const override { return 7; }
  } const answer;
  graphics::datatype::EnumStringType table("AnswerInJava");
  table.addEnumValue("none", 7);
  const vcos::COSDataType& lineStyle = accessOf("LineStyle").dataType();
  const auto labelIn = [&](const std::string& typeName) {
    const std::unique_ptr<JavaTypeConversion> conversion(
        VGTypedEnumStringType::createJavaConverter(&table, typeName.c_str()));
    const COSValue object = conversion->to(COSValue::fromPointer(&answer));
    EXPECT_EQ(identifierRaisedBy([&] { OwnedValue(lineStyle, conversion->from(object)); }),
              typeName.starts_with("vortil.graphics") ? "" : kConversionError);
    jobject const label =
        java().call(object.asPointer<_jobject>(), "getLabel", "()Ljava/lang/String;");
    java().release(object.asPointer<_jobject>());
    return java().textOf(label);
  };
  EXPECT_EQ(labelIn("vortil.test.Answer"), "none");
  EXPECT_EQ(labelIn("vortil.graphics.datatype.LineStyle"), "None");
  EXPECT_EQ(labelIn("vortil_graphics_datatype_LineStyle"), "None");
}

}  // namespace
