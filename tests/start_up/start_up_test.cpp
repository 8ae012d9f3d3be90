#include "registry/RegisteredTypes.h"
#include "support/ChildProcess.h"
#include "support/FakeJavaEnvironment.h"
#include "support/HostError.h"

#include <dlfcn.h>
#include <gmock/gmock.h>
#include <graphics/datatype/OnOffBooleanDataType.h>
#include <graphics/datatype/enumerated_types.h>
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
#include <string>
#include <string_view>
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

/// The host finds no package whose name begins with this, whatever was added.
const char* lostPackages = nullptr;

}  // namespace

/// Stands in front of the host's own operation of this name.
COSPackage* COSPackage::getPackage(COSNameID name) {
  using GetPackage = COSPackage* (*)(COSNameID);
  static const auto real = reinterpret_cast<GetPackage>(
      dlsym(RTLD_NEXT, "_ZN4vcos10COSPackage10getPackageENS_9COSNameIDE"));
  const bool isLost = lostPackages && std::string_view(name.c_str()).starts_with(lostPackages);
  return isLost ? nullptr : real(name);
}

namespace {

void startByJava(test::FakeJavaEnvironment& env) {
  Java_com_lindgrove_test_vg_types_Utils_initializeVgdatatypesLib(&env, nullptr);
}

constexpr const char* kOnOff = "vortil.graphics.datatype.on_off";
constexpr const char* kLineStyle = "vortil.graphics.datatype.LineStyle";
constexpr const char* kDataTypes = "vortil.graphics.datatype";
constexpr const char* kTables = "vortil.graphics.enumstyletypes";

const std::size_t kTypes = test::registeredTypes().size();
const test::Progress kAll = {{"complete", kTypes}, {"in part", 0}, {"missing", 0}};
const test::Progress kNone = {{"complete", 0}, {"in part", 0}, {"missing", kTypes}};

TEST(StartUp, LoadingAloneRegistersNothing) {
  inChildProcess([] {
    EXPECT_EQ(test::progress(), kNone);
    for (const char* package : {kDataTypes, kTables, "vortil"})
      EXPECT_EQ(COSPackage::getPackage(COSNameID(package)), nullptr) << package;
    for (const char* scalar : {"bool", "int", "string"})
      EXPECT_EQ(test::conversion("string", scalar), nullptr) << scalar;
    EXPECT_EQ(svFindFeatureEntry("VG2DoubleConversionWarning"), nullptr);
  });
}

TEST(StartUp, RegistersFeaturePackagesTypesAndConversions) {
  inChildProcess([] {
    VLInitialize_vgdatatypes();
    const svFeatureEntry* feature = svFindFeatureEntry("VG2DoubleConversionWarning");
    ASSERT_NE(feature, nullptr);
    EXPECT_EQ(feature->state, 0);
    EXPECT_TRUE(!feature->onChange && !feature->command);

    for (const char* name : {kDataTypes, kTables}) {
      COSPackage* package = COSPackage::getPackage(COSNameID(name));
      ASSERT_NE(package, nullptr);
      EXPECT_EQ(std::string("vortil.graphics.") + package->getInfo().getPackageName(), name);
      EXPECT_STREQ(package->getInfo().getPackageDescription(), "");
      EXPECT_STREQ(package->getInfo().getPackageDetails(), "no details");
      EXPECT_EQ(package->getInfo().getMethodSelector(), nullptr);
      EXPECT_TRUE(package->getInfo().isDestructible());
      EXPECT_TRUE(package->getInfo().isLocked());
    }
    EXPECT_EQ(test::progress(), kAll);
    EXPECT_EQ(test::conversion("any", "bool"), nullptr);
  });
}

TEST(StartUp, RunsOnceWhicheverEntryComesFirst) {
  for (const bool javaFirst : {false, true}) {
    inChildProcess([javaFirst] {
      test::FakeJavaEnvironment env;
      javaFirst ? startByJava(env) : VLInitialize_vgdatatypes();
      const vcos::COSTypeConversion* first = test::conversion("any", kOnOff);
      ASSERT_NE(first, nullptr);

      const std::uint64_t calls = vghost::faults::hostCallCount();
      VLInitialize_vgdatatypes();
      startByJava(env);
      VLTerminate_vgdatatypes();
      Java_com_lindgrove_test_vg_types_Utils_cleanupVgdatatypesLib(&env, nullptr);
      EXPECT_EQ(vghost::faults::hostCallCount(), calls);
      EXPECT_EQ(test::conversion("any", kOnOff), first);
      EXPECT_FALSE(env.pending);
    });
  }
}

TEST(StartUp, ACallbackThatRunsAgainMeetsATypeThatIsKnown) {
  inChildProcess([] {
    VLInitialize_vgdatatypes();
    const auto types = COSPackage::getPackage(COSNameID(kDataTypes))->getDataTypes();
    const vcos::COSTypeConversion* array = test::conversion("any", kLineStyle);
    init_GraphicsDatatype_LineStyleDataType_callback();
    EXPECT_TRUE(init_GraphicsDatatype_LineStyleDataType());
    get_initialization_callback_registry()->initialize();
    EXPECT_EQ(test::conversion("any", kLineStyle), array);
    EXPECT_EQ(COSPackage::getPackage(COSNameID(kDataTypes))->getDataTypes(), types);
    EXPECT_TRUE(init_datatypes_OnOffBooleanDataType());
    EXPECT_EQ(identifierRaisedBy([] { get_initialization_callback_registry()->initialize(); }),
              "VORTIL:datatypes:onoffboolean:MultipleRegistry");
    EXPECT_EQ(vcos::COSTypeRepository::getType(COSNameID(kOnOff)).getObject(),
              OnOffBooleanDataType::getType());
  });
}

TEST(StartUp, ReportsAPackageThatCannotBeFoundAfterItWasAdded) {
  inChildProcess([] {
    lostPackages = kDataTypes;
    EXPECT_EQ(identifierRaisedBy(VLInitialize_vgdatatypes), "VORTIL:vg:VCOSPackageNotFound");
    lostPackages = nullptr;
    VLInitialize_vgdatatypes();
    EXPECT_EQ(test::progress(), kNone);
  });
  inChildProcess([] {
    lostPackages = "vortil";
    EXPECT_EQ(identifierRaisedBy([] { registerDatatype(OnOffBooleanDataType::getType()); }),
              "VORTIL:vg:VCOSPackageNotFound");
  });
}

TEST(StartUp, JavaEntryTurnsNativeExceptionsIntoJavaOnes) {
  const std::pair<void (*)(), std::string> cases[] = {
      {[] { throw std::runtime_error("what"); }, "what in file src/vgdatatypes_init line 91"},
      {[] { throw 1; }, "Unknown exception in native code in file src/vgdatatypes_init line 96"},
  };
  for (const auto& each : cases) {
    inChildProcess([&] {
      test::FakeJavaEnvironment env;
      env.pending = true;  // is replaced
      get_initialization_callback_registry()->addCallback(each.first);
      startByJava(env);
      EXPECT_TRUE(env.pending);
      EXPECT_EQ(env.thrown, "java/lang/RuntimeException: " + each.second);
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
    vghost::faults::failAllocation(1, vghost::faults::Repeat::Once);
    EXPECT_THROW(register_package("one", askedDescription, askedDetails),
                 vcos::COSOutOfMemoryException);
    EXPECT_NE(register_package("one", askedDescription, askedDetails), nullptr);
    asked.clear();
    COSPackage* leaf = register_package("one.two.three", askedDescription, askedDetails);
    EXPECT_THAT(asked, ElementsAre("description of one.two", "details of one.two",
                                   "description of one.two.three", "details of one.two.three"));
    ASSERT_NE(leaf, nullptr);
    EXPECT_STREQ(leaf->getInfo().getPackageName(), "three");
    EXPECT_STREQ(leaf->getInfo().getPackageDescription(), "described");
    EXPECT_STREQ(leaf->getInfo().getPackageDetails(), "detailed");
    EXPECT_STREQ(COSPackage::getPackage(COSNameID("one"))->getInfo().getPackageName(), "one");

    asked.clear();
    EXPECT_EQ(register_package("one.two.three", askedDescription, askedDetails), leaf);
    EXPECT_TRUE(asked.empty());
  });
}

TEST(FunctionTable, IsEmptyAndNamesTheBuild) {
  const VLFcnTableRecord* record = QueryVLFcnTable_vgdatatypes();
  EXPECT_EQ(record->functions[0], nullptr);
  EXPECT_STREQ(record->version, VGDT_TEST_VERSION);
  EXPECT_GT(record->buildTime, 1'700'000'000);
  EXPECT_EQ(record->reserved, nullptr);
  EXPECT_STRNE(record->buildDate, "");
}

}  // namespace
