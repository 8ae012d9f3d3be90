#include "support/HostError.h"

#include <graphics/datatype/ErrorMessage.h>
#include <graphics/datatype/InvalidValueException.h>
#include <graphics/datatype/exceptions.h>
#include <graphics/datatype/vxErrMsgWrapper.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using namespace graphics::datatype;

TEST(Errors, TheWrapperHandsItsArgumentToTheFormatThatHasAPlaceForIt) {
  const auto textOf = [](const char* format, const char* argument) {
    EXPECT_EQ(test::identifierRaisedBy([&] { vxErrMsgWrapper("a:b", format, argument); }), "a:b");
    EXPECT_STREQ(test::lastError().identifier, "a:b");
    return std::string(test::lastError().text);
  };
  EXPECT_EQ(textOf("Invalid String", "ColorMap"), "Invalid String");
  EXPECT_EQ(textOf("value of %s", "100%s {0}"), "value of 100%s {0}");
}

TEST(Errors, ExceptionsOfTheLibraryAreCaughtApart) {
  EXPECT_THROW(throw GenericException(), Lindgrove::System::InternalException_DEPRECATED);
  try {
    throw MissingNameException();
  } catch (const AmbiguousNameException&) {
    FAIL();
  } catch (const MissingNameException&) {
  }
  try {
    throw InvalidValueException("a:b", "text");
  } catch (const std::exception&) {
    FAIL() << "it has no base class";
  } catch (const InvalidValueException& error) {
    EXPECT_EQ(error.identifier() + " " + error.text(), "a:b text");
  }
  const ErrorMessage message("a:b", "text");
  EXPECT_EQ(message.identifier() + " " + message.text(), "a:b text");
}

}  // namespace
