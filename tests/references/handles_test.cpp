// Objects as numbers, beyond what sessions show of them. The root flag, the features and the
// tracked numbers are the process's, so every test has a process of its own.

#include "references/Samples.h"
#include "support/ChildProcess.h"
#include "support/HostError.h"

#include <gmock/gmock.h>
#include <sv/features.h>
#include <ut/class_numbers.h>
#include <vcos/COSIterator.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace test;
using namespace graphics::datatype;
using testing::ElementsAre;
using testing::HasSubstr;
using Handles = Samples;

bool isWhole(double number) {
  return std::trunc(number) == number;
}

TEST_F(Handles, LeadToObjectsWhileBothAreThere) {
  inChildProcess([] {
    EXPECT_FALSE(isWhole(numberOf(destroyed(sampleObject("Figure"))))) << "it wants no integer";
    for (const COSInterfacePtr& none : {vcos::createComposite({}), COSInterfacePtr()})
      EXPECT_EQ(numberOf(none), -1);
    COSInterfacePtr line = sampleObject("Line");
    const double first = numberOf(line);
    const double second = numberOf(line);
    vcos_destroy_handle(first);
    EXPECT_EQ(objectOf(second), line.get());
    assignFigureIntegerHandle(sampleObject("Figure"), 44);
    const std::unique_ptr<HandleRecord> displaced(handle2pointer(44));  // the library leaves it
    assignFigureIntegerHandle(line, 44);
    EXPECT_EQ(objectOf(44), line.get());
    Record other(line.get());
    other.classNumber = utRegisterObjectClass("other", -1, 0);
    EXPECT_EQ(objectOf(new_handle(&other, -1)), nullptr) << "a record of another class";
    line = {};
    for (const double none : {first, second, -1.0, 0.0, 0.3, 77.0, std::nan("")}) {
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
    EXPECT_FALSE(isWhole(numberOf(second)));
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
    EXPECT_FALSE(isWhole(numberOf(root)));
  });
}

TEST_F(Handles, AreWarnedOfWhileOneOfTwoFeaturesIsOn) {
  inChildProcess([] {
    const auto line = sampleObject("Line");
    const double number = numberOf(line);
    const auto warnings = [&] {
      const vghost::WarningCapture capture;
      for (const auto& each : {line, sampleObject("Plain"), COSInterfacePtr()})
        numberOf(each);
      identifierRaisedBy([] { numberOf(sampleObject("Root")); });
      objectOf(number);
      objectOf(-1);
      std::vector<std::string> texts;
      for (const vghost::Warning& warning : capture.messages())
        texts.push_back(warning.message);
      return texts;
    };
    const auto all = ElementsAre(HasSubstr("class vortil.graphics.Line was converted"),
                                 HasSubstr("class vortil.Plain "), HasSubstr("class graphics "),
                                 HasSubstr("class vortil.ui.Root "), HasSubstr("was used as a"));
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
    const COSInterfacePtr figure = sampleObject("Figure");
    const double before = numberOf(line);
    for (const bool isRootNew : {true, false}) {
      enableDoubleHandleTracking(true);
      const double made[] = {numberOf(line), numberOf(figure)};
      enableDoubleHandleTracking(true);
      EXPECT_EQ(objectOf(made[0]), line.get());
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
