// Objects as numbers. The root flag, the features and the tracked numbers are the process's, so
// every test has a process of its own.

#include "references/Samples.h"
#include "support/ChildProcess.h"
#include "support/HostError.h"

#include <gmock/gmock.h>
#include <handles/handle_table.h>
#include <sv/features.h>
#include <ut/class_numbers.h>
#include <vcos/COSIterator.h>

#include <cmath>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace test;
using namespace graphics::datatype;
using testing::ElementsAre;
using Handles = Samples;

enum class Kind { kNone, kInteger, kOther };

Kind kindOf(double number) {
  if (number == -1) return Kind::kNone;
  return std::trunc(number) == number ? Kind::kInteger : Kind::kOther;
}

COSInterfacePtr figure(const char* integerHandle) {
  const COSInterfacePtr made = sampleObject("Figure");
  propertyOf(made, "IntegerHandle").setFromText(made.get(), integerHandle);
  return made;
}

COSInterfacePtr destroyed(const COSInterfacePtr& object) {
  vcos::COSClass::destroyObject(object);
  return object;
}

TEST_F(Handles, AreOfTheKindOfTheObjectAndNewAtEachCall) {
  inChildProcess([] {
    COSInterfacePtr line = sampleObject("Line");
    const std::pair<COSInterfacePtr, Kind> rows[] = {
        {sampleObject("Figure"), Kind::kInteger},
        {figure("off"), Kind::kOther},
        {line, Kind::kOther},
        {destroyed(sampleObject("Line")), Kind::kOther},
        {destroyed(figure("on")), Kind::kOther},
        {sampleObject("Plain"), Kind::kNone},
        {vcos::createComposite({}), Kind::kNone},
        {COSInterfacePtr(), Kind::kNone},
    };
    for (const auto& [object, kind] : rows) {
      SCOPED_TRACE(&object - &rows[0].first);
      const double first = numberOf(object);
      const double second = numberOf(object);
      EXPECT_EQ(kindOf(first), kind);
      EXPECT_EQ(kindOf(second), kind);
      if (kind == Kind::kNone) continue;
      EXPECT_NE(first, second);
      vcos_destroy_handle(first);
      EXPECT_EQ(objectOf(first), nullptr);
      EXPECT_EQ(objectOf(second), object.get());
    }
    assignFigureIntegerHandle(line, 44);
    EXPECT_EQ(objectOf(44), line.get());
    HandleRecord other{utRegisterObjectClass("other", -1, 0), -1, 0, line.get()};
    EXPECT_EQ(objectOf(new_handle(&other, -1)), nullptr) << "a record of another class";
    destroy_handle(other.handle);
    line = sampleObject("Line");
    const double number = numberOf(line);
    line = {};
    for (const double none : {number, -1.0, 0.0, 0.3, 77.0, std::nan("")}) {
      EXPECT_EQ(objectOf(none), nullptr) << none;
      vcos_destroy_handle(none);
    }
  });
}

TEST_F(Handles, OfTheRootIsZeroOnceTheFeatureIsOn) {
  inChildProcess([] {
    static constexpr const char* kFeature = "VORTILUsingSingleGraphics";
    const COSInterfacePtr root = sampleObject("Root");
    const COSInterfacePtr second = sampleObject("Root");
    for (const bool isRegistered : {false, true}) {
      if (isRegistered) svRegisterFeature(kFeature, 0, nullptr, nullptr);
      EXPECT_EQ(identifierRaisedBy([&] { numberOf(root); }), "VORTIL:vg:root:InvalidRootCast");
      EXPECT_EQ(objectOf(0), nullptr);
    }
    svSetFeatureState(kFeature, 1);
    EXPECT_EQ(numberOf(root), 0);
    svSetFeatureState(kFeature, 0);
    EXPECT_EQ(numberOf(root), 0);
    EXPECT_EQ(objectOf(0), root.get());
    EXPECT_EQ(kindOf(numberOf(second)), Kind::kOther);
    vcos_destroy_handle(0);
    for (const COSInterfacePtr& each : {root, second}) {
      try {
        numberOf(each);
        ADD_FAILURE() << "0 names nothing";
      } catch (const InvalidDoubleHandleException& error) {
        const std::unique_ptr<fl::except::IUserException> copy(error.clone());
        EXPECT_STREQ(copy->GetID(), "VORTIL:vg:dt_conv:Matrix_to_HObject:BadHandle");
        EXPECT_EQ(copy->GetMessageTxt(), "Invalid object handle");
        EXPECT_THROW(copy->rethrow(), InvalidDoubleHandleException);
      }
    }
    assignFigureIntegerHandle(second, 0);
    EXPECT_EQ(numberOf(second), 0);
    EXPECT_EQ(kindOf(numberOf(root)), Kind::kOther);
  });
}

std::string toNumber(const std::string& className) {
  return "An object of class " + className + " was converted to a number.";
}

TEST_F(Handles, AreWarnedOfWhileOneOfTwoFeaturesIsOn) {
  inChildProcess([] {
    const auto line = sampleObject("Line");
    const double number = numberOf(line);
    const auto warnings = [&] {
      const vghost::WarningCapture capture;
      numberOf(line);
      numberOf(sampleObject("Plain"));
      numberOf({});
      identifierRaisedBy([] { numberOf(sampleObject("Root")); });
      objectOf(number);
      objectOf(-1);
      std::vector<std::string> texts;
      for (const vghost::Warning& warning : capture.warnings())
        texts.push_back(warning.message);
      return texts;
    };
    const auto all = ElementsAre(toNumber("vortil.graphics.Line"), toNumber("vortil.Plain"),
                                 toNumber("graphics"), toNumber("vortil.ui.Root"),
                                 "A number was used as a handle of an object.");
    EXPECT_THAT(warnings(), ElementsAre()) << "start-up registers one, which is off";
    svSetFeatureState("VG2DoubleConversionWarning", 1);
    EXPECT_THAT(warnings(), all);
    svSetFeatureState("VG2DoubleConversionWarning", 2);
    EXPECT_THAT(warnings(), ElementsAre());
    svRegisterFeature("VG2EarlyWarnings", 1, nullptr, nullptr);
    EXPECT_THAT(warnings(), all);
  });
}

TEST_F(Handles, ThatAreTrackedAreSweptAway) {
  using graphics::datatype::test::enableDoubleHandleTracking;
  inChildProcess([] {
    svRegisterFeature("VORTILUsingSingleGraphics", 1, nullptr, nullptr);
    const COSInterfacePtr root = sampleObject("Root");
    const COSInterfacePtr line = sampleObject("Line");
    const COSInterfacePtr numbered = figure("on");
    enableDoubleHandleTracking(false);
    const double before = numberOf(line);
    for (const bool isRootNew : {true, false}) {
      enableDoubleHandleTracking(true);
      const double made[] = {numberOf(line), numberOf(numbered)};
      enableDoubleHandleTracking(true);  // keeps them
      EXPECT_EQ(numberOf(sampleObject("Plain")), -1);
      EXPECT_EQ(numberOf(root), 0);
      enableDoubleHandleTracking(false);
      for (const double number : made)
        EXPECT_EQ(objectOf(number), nullptr) << number;
      EXPECT_EQ(objectOf(0), isRootNew ? nullptr : root.get()) << "tracked the first time only";
      if (isRootNew) assignFigureIntegerHandle(root, 0);
      const double after = numberOf(line);
      enableDoubleHandleTracking(false);
      EXPECT_EQ(objectOf(after), line.get());
    }
    EXPECT_EQ(objectOf(before), line.get());
  });
}

}  // namespace
