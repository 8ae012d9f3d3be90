#include "shaped_arrays/Catalogue.h"
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

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <string>
#include <string_view>
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
constexpr const char* kLineStyle = "vortil.graphics.datatype.LineStyle";
constexpr const char* kDataTypes = "vortil.graphics.datatype";
constexpr const char* kTables = "vortil.graphics.enumstyletypes";
constexpr const char* kMultipleRegistry = "VORTIL:datatypes:onoffboolean:MultipleRegistry";
constexpr const char* kInjected = "VORTIL:host:InjectedFailure";

/// What start-up leaves of the stamped types, and of the tables of the enumerated ones.
struct Registered {
  std::size_t complete = 0;
  std::size_t partly = 0;
  std::size_t missing = 0;
  std::size_t tables = 0;

  friend bool operator==(const Registered&, const Registered&) = default;
  friend std::ostream& operator<<(std::ostream& out, const Registered& counts) {
    return out << counts.complete << " types, " << counts.partly << " more in part, "
               << counts.missing << " missing, " << counts.tables << " tables";
  }
};

Registered registeredTypes() {
  Registered counts;
  for (const std::string& name : test::stampedTypes()) {
    const int steps = test::registrationSteps(name);
    EXPECT_GE(steps, 0) << name;
    ++(steps == 3 ? counts.complete : steps == 0 ? counts.missing : counts.partly);
  }
  for (const test::EnumeratedType& type : test::kEnumeratedTypes)
    counts.tables += typeNamed(type.tableName().c_str()) != nullptr;
  return counts;
}

constexpr Registered kAll{79, 0, 0, 46};
constexpr Registered kNone{0, 0, 79, 0};

TEST(StartUp, LoadingAloneRegistersNothing) {
  inChildProcess([] {
    EXPECT_EQ(typeNamed(kOnOff), nullptr);
    EXPECT_EQ(registeredTypes(), kNone);
    for (const char* package : {kDataTypes, kTables, "vortil"})
      EXPECT_EQ(COSPackage::getPackage(COSNameID(package)), nullptr) << package;
    for (const char* scalar : {"bool", "int", "string"})
      EXPECT_EQ(conversion("string", scalar), nullptr) << scalar;
    EXPECT_EQ(svFindFeatureEntry("VG2DoubleConversionWarning"), nullptr);
  });
}

TEST(StartUp, RegistersFeaturePackagesTypesAndConversions) {
  inChildProcess([] {
    VLInitialize_vgdatatypes();
    const svFeatureEntry* feature = svFindFeatureEntry("VG2DoubleConversionWarning");
    ASSERT_NE(feature, nullptr);
    EXPECT_EQ(feature->state, 0);
    EXPECT_EQ(feature->onChange, nullptr);
    EXPECT_EQ(feature->command, nullptr);

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
    const auto& types = COSPackage::getPackage(COSNameID(kDataTypes))->getDataTypes();
    EXPECT_EQ(types.size(), 80U);
    EXPECT_THAT(types, testing::Contains(OnOffBooleanDataType::getType()));
    EXPECT_THAT(types, testing::Contains(LineStyleDataType::getType()));
    EXPECT_EQ(registeredTypes(), kAll);

    EXPECT_EQ(typeNamed(kOnOff), OnOffBooleanDataType::getType());
    EXPECT_EQ(test::registrationSteps(kOnOff), 3);
    EXPECT_NE(conversion("string", "bool"), nullptr);
    EXPECT_NE(conversion("string", "int"), nullptr);
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
    EXPECT_EQ(identifierRaisedBy(VLInitialize_vgdatatypes), kInjected);
    VLInitialize_vgdatatypes();
    EXPECT_EQ(svFindFeatureEntry("VG2DoubleConversionWarning"), nullptr);
    EXPECT_EQ(typeNamed(kOnOff), nullptr);
  });
}

class Taken final : public vcos::COSTypeConversion {
  vcos::COSValue to(vcos::COSValue value) const override { return value; }
  vcos::COSValue from(vcos::COSValue value) const override { return value; }
};

/// The pair of names has a conversion already; returns that.
const vcos::COSTypeConversion* take(const char* outside, const char* inner) {
  auto* taken = new Taken;
  vcos::COSTypeRepository::addConversion(COSNameID(outside), COSNameID(inner), taken);
  return taken;
}

TEST(StartUp, OnOffReportsThatTheClassSystemRefusesAndKeepsWhatWasRegisteredBefore) {
  inChildProcess([] {
    VLInitialize_vgdatatypes();
    // A second run meets a type that is known already.
    EXPECT_TRUE(init_datatypes_OnOffBooleanDataType());
    auto* registry = get_initialization_callback_registry();
    EXPECT_EQ(identifierRaisedBy([&] { registry->initialize(); }), kMultipleRegistry);
    EXPECT_EQ(typeNamed(kOnOff), OnOffBooleanDataType::getType());
  });
  // The order in which the conversions are registered.
  constexpr std::pair<const char*, const char*> kPairs[] = {
      {"any", kOnOff}, {"string", kOnOff}, {"string", "bool"}};
  for (std::size_t refused = 0; refused < std::size(kPairs); ++refused) {
    inChildProcess([&] {
      const auto* taken = take(kPairs[refused].first, kPairs[refused].second);
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

TEST(StartUp, AnEnumeratedTypeThatIsKnownEndsItsCallbackWithoutAWord) {
  inChildProcess([] {
    VLInitialize_vgdatatypes();
    const vcos::COSTypeConversion* array = conversion("any", kLineStyle);
    init_GraphicsDatatype_LineStyleDataType_callback();
    EXPECT_TRUE(init_GraphicsDatatype_LineStyleDataType());
    get_initialization_callback_registry()->initialize();
    EXPECT_EQ(conversion("any", kLineStyle), array);
    EXPECT_EQ(COSPackage::getPackage(COSNameID(kDataTypes))->getDataTypes().size(), 80U);
  });
}

TEST(StartUp, AnEnumeratedTypeKeepsWhatWasRegisteredBeforeARefusalAndTheOthersGoOn) {
  inChildProcess([] {
    const auto* taken = take("any", kLineStyle);
    VLInitialize_vgdatatypes();
    EXPECT_EQ(typeNamed(kLineStyle), LineStyleDataType::getType());
    EXPECT_EQ(conversion("any", kLineStyle), taken);
    EXPECT_EQ(conversion("string", kLineStyle), nullptr);
    EXPECT_EQ(registeredTypes(), (Registered{78, 1, 0, 46}));
    EXPECT_EQ(test::registrationSteps(kOnOff), 3);
  });
  inChildProcess([] {
    const auto* taken = take("string", kLineStyle);
    VLInitialize_vgdatatypes();
    EXPECT_EQ(typeNamed(kLineStyle), LineStyleDataType::getType());
    EXPECT_NE(conversion("any", kLineStyle), nullptr);
    EXPECT_EQ(conversion("string", kLineStyle), taken);
    EXPECT_EQ(registeredTypes(), kAll);
  });
  inChildProcess([] {
    vcos::COSDataType* other = OnOffBooleanDataType::getType();
    vcos::COSTypeRepository::addType(COSNameID(kLineStyle), other);
    VLInitialize_vgdatatypes();
    EXPECT_EQ(typeNamed(kLineStyle), other);
    EXPECT_EQ(conversion("any", kLineStyle), nullptr);
    EXPECT_EQ(registeredTypes(), (Registered{78, 1, 0, 46}));
  });
}

TEST(StartUp, ReportsAPackageThatCannotBeFoundAfterItWasAdded) {
  inChildProcess([] {
    lostPackages = kDataTypes;
    EXPECT_EQ(identifierRaisedBy(VLInitialize_vgdatatypes), "VORTIL:vg:VCOSPackageNotFound");
    lostPackages = nullptr;
    VLInitialize_vgdatatypes();
    EXPECT_EQ(registeredTypes().missing, 79U);
    EXPECT_EQ(typeNamed(kOnOff), nullptr);
  });
  inChildProcess([] {
    lostPackages = "vortil";
    EXPECT_EQ(identifierRaisedBy([] { registerDatatype(OnOffBooleanDataType::getType()); }),
              "VORTIL:vg:VCOSPackageNotFound");
  });
}

/// How start-up ends if one host call fails.
enum class Ending { Complete, Raised, MultipleRegistry, ClassSystem };

Ending start() {
  try {
    const std::string identifier = identifierRaisedBy(VLInitialize_vgdatatypes);
    if (identifier.empty()) return Ending::Complete;
    if (identifier == kMultipleRegistry) return Ending::MultipleRegistry;
    EXPECT_EQ(identifier, kInjected);
    return Ending::Raised;
  } catch (const vcos::COSException&) {
    return Ending::ClassSystem;
  }
}

/// What has to hold after the class system has refused one call.
void expectHandled(Ending ending) {
  const Registered types = registeredTypes();
  const bool onOffIsComplete =
      test::registrationSteps(kOnOff) == 3 && conversion("string", "bool") != nullptr;
  EXPECT_NE(ending, Ending::Raised);
  if (ending == Ending::Complete) {
    // Refused while a type was registered: only the rest of that type is lost.
    EXPECT_EQ(types.complete, 78U);
    EXPECT_EQ(types.tables, 46U);
    EXPECT_TRUE(onOffIsComplete);
  } else {
    // Refused to on_off, which says so; or before a type was registered, which ends the start-up.
    EXPECT_EQ(types.partly, 0U);
    EXPECT_EQ(types.tables, std::min(types.complete, kAll.tables));
    if (ending == Ending::MultipleRegistry)
      EXPECT_FALSE(onOffIsComplete);
    else
      EXPECT_LT(types.complete, 79U);
  }
}

TEST(StartUp, AFailingHostCallEndsItBarWhatTheClassSystemRefusesToAType) {
  using vghost::faults::Failure;
  // All calls of the first types and, by a stride that comes to each step of a type, the rest.
  constexpr std::uint64_t kAllUpTo = 100;
  constexpr std::uint64_t kStride = 7;
  constexpr std::uint64_t kMoreThanStartUpMakes = 10'000;
  for (const Failure failure : {Failure::HostError, Failure::ClassSystem}) {
    bool isOver = false;
    for (std::uint64_t nth = 1; !isOver && nth < kMoreThanStartUpMakes;
         nth += nth < kAllUpTo ? 1 : kStride) {
      SCOPED_TRACE(testing::Message() << "call " << nth);
      int ends[2];
      ASSERT_EQ(pipe(ends), 0);
      inChildProcess([&] {
        const std::uint64_t before = vghost::faults::hostCallCount();
        vghost::faults::failHostCall(nth, vghost::faults::Repeat::Once, failure);
        const Ending ending = start();
        isOver = vghost::faults::hostCallCount() - before < nth;
        vghost::faults::disarm();
        ASSERT_EQ(write(ends[1], &isOver, sizeof isOver), ssize_t{sizeof isOver});
        if (isOver) {
          EXPECT_EQ(ending, Ending::Complete);
          EXPECT_EQ(registeredTypes(), kAll);
        } else if (failure == Failure::HostError) {
          EXPECT_EQ(ending, Ending::Raised);
          EXPECT_LE(registeredTypes().partly, 1U);
        } else {
          expectHandled(ending);
        }
      });
      ASSERT_EQ(read(ends[0], &isOver, sizeof isOver), ssize_t{sizeof isOver});
      close(ends[0]);
      close(ends[1]);
    }
    EXPECT_TRUE(isOver);
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
