#include "support/HostError.h"

#include <graphics/datatype/ErrorMessage.h>
#include <graphics/datatype/InvalidValueException.h>
#include <graphics/datatype/exceptions.h>
#include <graphics/datatype/vxErrMsgWrapper.h>
#include <gtest/gtest.h>

#include <string>
#include <type_traits>

namespace {

using namespace graphics::datatype;

static_assert(std::is_base_of_v<Lindgrove::System::InternalException_DEPRECATED, GenericException>);
static_assert(!std::is_base_of_v<AmbiguousNameException, MissingNameException>);
static_assert(!std::is_base_of_v<std::exception, InvalidValueException>);

TEST(Errors, TheWrapperHandsItsArgumentToTheFormatThatHasAPlaceForIt) {
  const auto textOf = [](const char* format, const char* argument) {
    EXPECT_EQ(test::identifierRaisedBy([&] { vxErrMsgWrapper("a:b", format, argument); }), "a:b");
    return std::string(test::lastError().text);
  };
  EXPECT_EQ(textOf("Invalid String", "ColorMap"), "Invalid String");
  EXPECT_EQ(textOf("value of %s", "100%s {0}"), "value of 100%s {0}");
}

TEST(Errors, CarryWhatTheyAreGiven) {
  EXPECT_THROW(throw MissingNameException(), MissingNameException);
  const ErrorMessage message("a:b", "text");
  EXPECT_EQ(message.identifier() + " " + message.text(), "a:b text");
}

}  // namespace
