#include "support/ChildProcess.h"
#include "support/FakeJavaEnvironment.h"
#include "support/HostError.h"

#include <dlfcn.h>
#include <gmock/gmock.h>
#include <graphics/datatype/OnOffBooleanDataType.h>
#include <graphics/datatype/registration.h>
#include <graphics/datatype/vgdatatypes.h>
#include <gui_objects/InitializationCallbackRegistrar.h>
#include <sv/features.h>
#include <ut/faults.h>
#include <vcos/COSPackage.h>
#include <vcos/COSTypeRepository.h>
#include <vcos/exceptions.h>
#include <vx/array.h>

#include <cstdlib>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

extern "C" {
JNIEXPORT void JNICALL Java_com_lindgrove_test_vg_types_Utils_initializeVgdatatypesLib(JNIEnv* env,
                                                                                       jclass);
JNIEXPORT void JNICALL Java_com_lindgrove_test_vg_types_Utils_cleanupVgdatatypesLib(JNIEnv* env,
                                                                                    jclass);
}

namespace {

using namespace graphics::datatype;
using test::identifierRaisedBy;
using test::inChildProcess;
using testing::ElementsAre;
using vcos::COSNameID;
using vcos::COSPackage;

/// While this is set the host finds no package, whatever was added.
bool packagesAreLost = false;

}  // namespace

/// Stands in front of the host's own operation of this name.
COSPackage* COSPackage::getPackage(COSNameID name) {
  using GetPackage = COSPackage* (*)(COSNameID);
  static const auto real = reinterpret_cast<GetPackage>(
      dlsym(RTLD_NEXT, "_ZN4vcos10COSPackage10getPackageENS_9COSNameIDE"));
  return packagesAreLost ? nullptr : real(name);
}

namespace {

vcos::COSTypeConversion* conversion(const char* outside, const char* inner) {
  return vcos::COSTypeRepository::getConversion(COSNameID(outside), COSNameID(inner));
}

vcos::COSDataType* typeNamed(const char* name) {
  return vcos::COSTypeRepository::getType(COSNameID(name)).getObject();
}

void startByJava(test::FakeJavaEnvironment& env) {
  Java_com_lindgrove_test_vg_types_Utils_initializeVgdatatypesLib(env.get(), nullptr);
}

constexpr const char* kOnOff = "vortil.graphics.datatype.on_off";
constexpr const char* kMultipleRegistry = "VORTIL:datatypes:onoffboolean:MultipleRegistry";

TEST(StartUp, LoadingAloneRegistersNothing) {
  inChildProcess([] {
    EXPECT_EQ(typeNamed(kOnOff), nullptr);
    EXPECT_EQ(conversion("string", "bool"), nullptr);
    EXPECT_EQ(svFindFeatureEntry("VG2DoubleConversionWarning"), nullptr);
  });
}

TEST(StartUp, RegistersFeaturePackagesTypeAndConversions) {
  inChildProcess([] {
    VLInitialize_vgdatatypes();
    const svFeatureEntry* feature = svFindFeatureEntry("VG2DoubleConversionWarning");
    ASSERT_NE(feature, nullptr);
    EXPECT_EQ(feature->state, 0);
    EXPECT_EQ(feature->onChange, nullptr);
    EXPECT_EQ(feature->command, nullptr);

    COSPackage* package = COSPackage::getPackage(COSNameID("vortil.graphics.datatype"));
    ASSERT_NE(package, nullptr);
    EXPECT_STREQ(package->getInfo().getPackageName(), "datatype");
    EXPECT_STREQ(package->getInfo().getPackageDescription(), "");
    EXPECT_STREQ(package->getInfo().getPackageDetails(), "no details");
    EXPECT_EQ(package->getInfo().getMethodSelector(), nullptr);
    EXPECT_TRUE(package->getInfo().isDestructible());
    EXPECT_TRUE(package->getInfo().isLocked());
    EXPECT_THAT(package->getDataTypes(), ElementsAre(OnOffBooleanDataType::getType()));

    EXPECT_EQ(typeNamed(kOnOff), OnOffBooleanDataType::getType());
    for (auto [outside, inner] : {std::pair{"any", kOnOff}, {"string", kOnOff}, {"string", "bool"}})
      EXPECT_NE(conversion(outside, inner), nullptr) << outside << " " << inner;
    EXPECT_EQ(conversion("any", "bool"), nullptr);
  });
}

TEST(StartUp, RunsOnceWhicheverEntryComesFirst) {
  for (const bool javaFirst : {false, true}) {
    inChildProcess([javaFirst] {
      test::FakeJavaEnvironment env;
      javaFirst ? startByJava(env) : VLInitialize_vgdatatypes();
      const vcos::COSTypeConversion* first = conversion("any", kOnOff);
      ASSERT_NE(first, nullptr);

      const std::uint64_t calls = vghost::faults::hostCallCount();
      VLInitialize_vgdatatypes();
      startByJava(env);
      VLTerminate_vgdatatypes();
      Java_com_lindgrove_test_vg_types_Utils_cleanupVgdatatypesLib(env.get(), nullptr);
      EXPECT_EQ(vghost::faults::hostCallCount(), calls);
      EXPECT_EQ(conversion("any", kOnOff), first);
      EXPECT_FALSE(env.pending());
    });
  }
}

TEST(StartUp, IsNotRetriedAfterAFailure) {
  inChildProcess([] {
    vghost::faults::failHostCall(1, vghost::faults::Repeat::Once);  // svRegisterFeature
    EXPECT_EQ(identifierRaisedBy(VLInitialize_vgdatatypes), "VORTIL:host:InjectedFailure");
    VLInitialize_vgdatatypes();
    EXPECT_EQ(svFindFeatureEntry("VG2DoubleConversionWarning"), nullptr);
    EXPECT_EQ(typeNamed(kOnOff), nullptr);
  });
}

TEST(StartUp, KeepsWhatWasRegisteredBeforeTheClassSystemRefuses) {
  inChildProcess([] {
    VLInitialize_vgdatatypes();
    // A second run meets a type that is known already.
    EXPECT_TRUE(init_datatypes_OnOffBooleanDataType());
    auto* registry = get_initialization_callback_registry();
    EXPECT_EQ(identifierRaisedBy([&] { registry->initialize(); }), kMultipleRegistry);
    EXPECT_EQ(typeNamed(kOnOff), OnOffBooleanDataType::getType());
  });
  class Taken final : public vcos::COSTypeConversion {
    vcos::COSValue to(vcos::COSValue value) const override { return value; }
    vcos::COSValue from(vcos::COSValue value) const override { return value; }
  };
  // The order in which the conversions are registered.
  constexpr std::pair<const char*, const char*> kPairs[] = {
      {"any", kOnOff}, {"string", kOnOff}, {"string", "bool"}};
  for (std::size_t refused = 0; refused < std::size(kPairs); ++refused) {
    inChildProcess([&] {
      auto* taken = new Taken;
      const auto [outside, inner] = kPairs[refused];
      vcos::COSTypeRepository::addConversion(COSNameID(outside), COSNameID(inner), taken);
      EXPECT_EQ(identifierRaisedBy(VLInitialize_vgdatatypes), kMultipleRegistry);
      EXPECT_EQ(typeNamed(kOnOff), OnOffBooleanDataType::getType());
      for (std::size_t i = 0; i < std::size(kPairs); ++i) {
        const vcos::COSTypeConversion* found = conversion(kPairs[i].first, kPairs[i].second);
        EXPECT_EQ(found != nullptr, i <= refused) << i;
        EXPECT_EQ(found == taken, i == refused) << i;
      }
    });
  }
}

TEST(StartUp, ReportsAPackageThatCannotBeFoundAfterItWasAdded) {
  inChildProcess([] {
    packagesAreLost = true;
    EXPECT_EQ(identifierRaisedBy(VLInitialize_vgdatatypes), "VORTIL:vg:VCOSPackageNotFound");
    packagesAreLost = false;
    VLInitialize_vgdatatypes();
    EXPECT_EQ(typeNamed(kOnOff), nullptr);
  });
}

TEST(StartUp, AnyFailingHostCallEitherPassesThroughOrIsReportedAsMultipleRegistry) {
  using vghost::faults::Failure;
  constexpr std::uint64_t kMoreCallsThanStartUpMakes = 40;
  struct Case {
    Failure failure;
    const char* expected;
  };
  for (const Case& each : {Case{Failure::HostError, "VORTIL:host:InjectedFailure"},
                           Case{Failure::ClassSystem, kMultipleRegistry}}) {
    for (std::uint64_t nth = 2; nth <= kMoreCallsThanStartUpMakes; ++nth) {
      inChildProcess([&] {  // the first call is svRegisterFeature, outside the handler
        const std::uint64_t before = vghost::faults::hostCallCount();
        vghost::faults::failHostCall(nth, vghost::faults::Repeat::Once, each.failure);
        const std::string identifier = identifierRaisedBy(VLInitialize_vgdatatypes);
        const bool failed = vghost::faults::hostCallCount() - before >= nth;
        EXPECT_EQ(identifier, failed ? each.expected : "") << "call " << nth;
        EXPECT_FALSE(failed && nth == kMoreCallsThanStartUpMakes);
      });
    }
  }
}

TEST(StartUp, JavaEntryTurnsNativeExceptionsIntoJavaOnes) {
  struct Case {
    void (*callback)();
    const char* text;
  };
  for (const Case& each : {Case{[] { throw std::runtime_error("broken"); },
                                "broken in file src/vgdatatypes_init line 91"},
                           Case{[] { throw 1; },
                                "Unknown exception in native code in file src/vgdatatypes_init "
                                "line 96"}}) {
    inChildProcess([&] {
      test::FakeJavaEnvironment env;
      env.setPending();  // is replaced
      get_initialization_callback_registry()->addCallback(each.callback);
      startByJava(env);
      EXPECT_TRUE(env.pending());
      EXPECT_EQ(env.thrownClass(), "java/lang/RuntimeException");
      EXPECT_EQ(env.text(), each.text);
    });
  }
}

TEST(ProcessEnd, ReleasesTheArraysThatOnOffKeeps) {
  inChildProcess([] {
    // Registered before the arrays are made, and so called after they have ended.
    ASSERT_EQ(std::atexit([] {
                if (vghost::liveArrays() != 0) _exit(1);
              }),
              0);
    const vcos::COSValue array = OnOffBooleanVC().to(vcos::COSValue::fromLogical(true));
    vxDestroyArray(array.asPointer<vxArray>());
    EXPECT_EQ(vghost::liveArrays(), 2U);
  });
}

std::vector<std::string> asked;
const char* askedDescription(const char* name) {
  asked.push_back(std::string("description of ") + name);
  return "described";
}
const char* askedDetails(const char* name) {
  asked.push_back(std::string("details of ") + name);
  return "detailed";
}

TEST(RegisterPackage, MakesMissingPackagesFromTheOutsideInAndAsksForTheWholeName) {
  inChildProcess([] {
    register_package("one", askedDescription, askedDetails);
    asked.clear();
    COSPackage* leaf = register_package("one.two.three", askedDescription, askedDetails);
    EXPECT_THAT(asked, ElementsAre("description of one.two", "details of one.two",
                                   "description of one.two.three", "details of one.two.three"));
    ASSERT_NE(leaf, nullptr);
    EXPECT_STREQ(leaf->getNameID().c_str(), "one.two.three");
    EXPECT_STREQ(leaf->getInfo().getPackageName(), "three");
    EXPECT_STREQ(leaf->getInfo().getPackageDescription(), "described");
    EXPECT_STREQ(leaf->getInfo().getPackageDetails(), "detailed");
    EXPECT_STREQ(COSPackage::getPackage(COSNameID("one"))->getInfo().getPackageName(), "one");

    asked.clear();
    EXPECT_EQ(register_package("one.two.three", askedDescription, askedDetails), leaf);
    EXPECT_TRUE(asked.empty());
  });
}

TEST(RegisterPackage, ThrowsWhereTheHostHasNoMemoryForTheDescription) {
  inChildProcess([] {
    vghost::faults::failAllocation(1, vghost::faults::Repeat::Once);
    EXPECT_THROW(register_package("one", askedDescription, askedDetails),
                 vcos::COSOutOfMemoryException);
    EXPECT_EQ(COSPackage::getPackage(COSNameID("one")), nullptr);
    EXPECT_NE(register_package("one", askedDescription, askedDetails), nullptr);
  });
}

TEST(FunctionTable, IsEmptyAndNamesTheBuild) {
  const VLFcnTableRecord* record = QueryVLFcnTable_vgdatatypes();
  EXPECT_EQ(record, QueryVLFcnTable_vgdatatypes());
  ASSERT_NE(record->functions, nullptr);
  EXPECT_EQ(record->functions[0], nullptr);
  EXPECT_STREQ(record->version, VGDT_TEST_VERSION);
  EXPECT_GT(record->buildTime, 1'700'000'000);
  EXPECT_EQ(record->reserved, nullptr);
  EXPECT_STRNE(record->buildDate, "");
}

}  // namespace
