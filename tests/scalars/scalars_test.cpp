#include "support/ChildProcess.h"
#include "support/FailingNew.h"
#include "support/GlobalLocale.h"

#include <gmock/gmock.h>
#include <graphics/datatype/StringConversion.h>
#include <graphics/datatype/vgdatatypes.h>
#include <gui_objects/convert_from_string_utils.h>
#include <ut/faults.h>
#include <ut/memory.h>
#include <vcos/COSTypeRepository.h>
#include <vcos/TypeAccess.h>
#include <vcos/exceptions.h>

#include <bit>
#include <cmath>
#include <iterator>
#include <limits>
#include <new>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

using gui_objects::convert_from_string_utils::ParseException;
using vcos::COSTypeConversion;
using vcos::COSValue;

vcos::TypeAccess accessOf(const char* inner) {
  return vcos::TypeAccess::find(vcos::COSNameID(inner)).value();
}

class Scalars : public testing::Test {
 protected:
  static void SetUpTestSuite() { VLInitialize_vgdatatypes(); }
};

/// The word of a text; none if it is refused.
std::optional<COSValue> wordOf(const char* inner, const char* text) {
  try {
    return accessOf(inner).fromText(text);
  } catch (const ParseException&) {
    return std::nullopt;
  }
}

std::string textOf(const char* inner, COSValue word) {
  return accessOf(inner).toText(word).value();
}

/// Texts that scalars read, each with what it prints as afterwards, and texts that they refuse.
struct Probe {
  const char* names;  ///< separated by commas
  const char* reads;  ///< "+7=7 -0=0"
  std::vector<const char*> refuses;
  const char* grouping = "";  ///< of the digits in the global locale
};

std::vector<std::string> split(const std::string& text, char separator) {
  std::vector<std::string> parts;
  std::istringstream stream(text);
  for (std::string part; std::getline(stream, part, separator);)
    parts.push_back(part);
  return parts;
}

void expectProbes(const std::vector<Probe>& probes) {
  for (const Probe& probe : probes) {
    const test::GlobalLocale locale(new test::Grouping(probe.grouping));
    for (const std::string& name : split(probe.names, ',')) {
      const char* inner = name.c_str();
      SCOPED_TRACE(name);
      for (const std::string& pair : split(probe.reads, ' ')) {
        const std::size_t equals = pair.find('=');
        const std::optional<COSValue> word = wordOf(inner, pair.substr(0, equals).c_str());
        EXPECT_EQ(word ? textOf(inner, *word) : "refused", pair.substr(equals + 1)) << pair;
      }
      for (const char* text : probe.refuses)
        EXPECT_FALSE(wordOf(inner, text)) << "'" << text << "'";
      EXPECT_FALSE(wordOf(inner, nullptr));
    }
  }
}

/// In the order in which they are registered.
constexpr const char* kNames[] = {
    "int8 scalar",    "int16 scalar",  "int32 scalar",  "int64 scalar",  "uint8 scalar",
    "uint16 scalar",  "uint32 scalar", "uint64 scalar", "single scalar", "double scalar",
    "logical scalar", "string",        "int",           "uint64_T",      "single",
    "float",          "double",        "logical"};

TEST(ScalarNames, AreRegisteredInOrderUntilOneIsTaken) {
  for (std::size_t taken = 0; taken <= std::size(kNames); ++taken) {
    test::inChildProcess([taken] {
      if (taken == std::size(kNames)) {
        VLInitialize_vgdatatypes();
      } else {
        vcos::COSTypeRepository::addConversion(vcos::COSNameID("string"),
                                               vcos::COSNameID(kNames[taken]),
                                               new graphics::datatype::StringStringConversion);
        EXPECT_THROW(VLInitialize_vgdatatypes(), vcos::COSException);
      }
      std::set<const COSTypeConversion*> objects;
      for (std::size_t i = 0; i < std::size(kNames); ++i) {
        EXPECT_EQ(accessOf(kNames[i]).textConversion() != nullptr, i <= taken) << kNames[i];
        EXPECT_EQ(objects.insert(accessOf(kNames[i]).textConversion()).second, i <= taken + 1)
            << kNames[i];
      }
    });
  }
}

TEST_F(Scalars, IntegersTakeASignAndDigitsAloneWithinTheirLimits) {
  expectProbes({
      {"int16 scalar,uint16 scalar,int32 scalar,uint32 scalar,int64 scalar,uint64 scalar",
       "+7=7 -0=0 00000000000000000000000000000012=12",
       {"", "-", "+", "--1", "+-1", "1-", " 1", "1 ", " 00001", "\t1", "1\n", "1,000", ",1", "0x1",
        "1e2", "1.0", "a", "1a", "\xB2"}},
      {"int16 scalar", "-32768=-32768 32767=32767", {"-32769", "32768"}},
      {"uint16 scalar", "-65535=1 65535=65535", {"-65536", "65536"}},
      {"int32 scalar,int",
       "-2147483648=-2147483648 2147483647=2147483647",
       {"-2147483649", "2147483648"}},
      {"uint32 scalar", "-4294967295=1 4294967295=4294967295", {"-4294967296", "4294967296"}},
      {"int64 scalar",
       "-9223372036854775808=-9223372036854775808 9223372036854775807=9223372036854775807",
       {"-9223372036854775809", "9223372036854775808"}},
      {"uint64 scalar,uint64_T",
       "-18446744073709551615=1 18446744073709551615=18446744073709551615",
       {"-18446744073709551616", "18446744073709551616"}},
  });
  EXPECT_EQ(wordOf("uint32 scalar", "-1")->asInteger<unsigned>(), 0xFFFF'FFFFU);
  EXPECT_EQ(wordOf("int64 scalar", "-2")->asInteger<long>(), -2);
}

TEST_F(Scalars, OnlyTheLowBytesOfAWordAreAnInteger) {
  const COSValue word = COSValue::fromInteger(0xFEDC'BA98'FFFF'8041U);
  std::vector<std::string> printed;
  for (std::size_t i = 0; i < 8; ++i)
    printed.push_back(textOf(kNames[i], word));
  EXPECT_THAT(printed, testing::ElementsAre("A", "-32703", "-32703", "-81985526906781631", "A",
                                            "32833", "4294934593", "18364758546802769985"));
}

TEST_F(Scalars, IntegersFollowTheGroupingOfTheGlobalLocale) {
  expectProbes({
      {"int16 scalar", "-32,768=-32,768", {}, "\3"},
      {"uint16 scalar", "-65,535=1", {}, "\3"},
      {"int32 scalar",
       "1234567=1,234,567 1234,567=1,234,567 +999=999",
       {",234", "-,234", "234,", "1,,234", "12,34", "1,234567", "1,23", ",", "1.234",
        "9,999,999,999"},
       "\3"},
      {"int64 scalar", "-9,223,372,036,854,775,808=-9,223,372,036,854,775,808", {}, "\3"},
      {"uint64 scalar", "18,446,744,073,709,551,615=18,446,744,073,709,551,615", {}, "\3"},
      {"uint16 scalar", "1,23,4=1,23,4", {}, "\1\2"},
      {"int32 scalar", "1,23,45,6=1,23,45,6", {"1,234"}, "\1\2"},
      {"uint32 scalar", "123,4=1,23,4", {}, "\1\2"},
      // The longest text that there is.
      {"int64 scalar", "-9223372036854775808=-9,2,2,3,3,7,2,0,3,6,8,5,4,7,7,5,8,0,8", {}, "\1"},
      {"uint64 scalar", "18446744073709551615=1,8,4,4,6,7,4,4,0,7,3,7,0,9,5,5,1,6,1,5", {}, "\1"},
  });
}

TEST_F(Scalars, EightBitIntegersAreCharacters) {
  for (const char* inner : {"int8 scalar", "uint8 scalar"}) {
    for (unsigned code = 1; code < 256; ++code) {
      const std::string text(1, static_cast<char>(code));
      EXPECT_EQ(wordOf(inner, text.c_str()).value().asInteger<unsigned char>(), code) << inner;
      EXPECT_EQ(textOf(inner, COSValue::fromInteger(code)), text);
    }
    EXPECT_EQ(textOf(inner, COSValue::fromInteger(0)), "");
  }
  expectProbes({{"int8 scalar,uint8 scalar", "B=B", {"", "ab", "65", "-1", "\xC3\xA9"}}});
}

TEST_F(Scalars, FloatsAreDecimalNumbersOrSpecialWordsInOneCase) {
  constexpr const char* kAll = "single scalar,single,float,double scalar,double";
  expectProbes({
      {kAll,
       "1e5=100000 -1.5E+2=-150 +.5=0.5 2.=2 -0=-0 1e-999=0",
       {"",     "-",    "+",     ".",   "e5",    "1e",    "1E",    "1e+", "1e-",
        "1E+",  "1+",   "--1",   "+-1", " 1",    "1 ",    "1\n",   "1x",  "1.5.2",
        "1e5.", "0x10", "0x1p3", "1d5", "1,000", "1e999", "-1e999"}},
      {kAll,
       "nan=nan NAN=nan +nan=nan -nan=-nan -NAN=-nan nan()=nan -nan(Thing)=-nan NAN(x)=nan inf=inf "
       "INF=inf +inf=inf -INF=-inf infinity=inf -INFINITY=-inf",
       {"Inf",    "iNF",      "inF",      "NaN",      "Nan",   "nAN",     "-NaN",
        "NaN(x)", "Infinity", "INFinity", "infinitY", "infi",  "infinit", "infinityx",
        "inf ",   " inf",     "+-inf",    "na",       "nanx",  "nan(",    "nan)",
        "nan(x",  "nan(x)y",  "i",        "n",        "inf(x)"}},
      {"single scalar", "1,234.5=1234.5", {"3.5e38"}, "\3"},
      {"double scalar", "1,234.5=1234.5 1234567=1234567", {"12,34", ",234"}, "\3"},
  });
  EXPECT_EQ(textOf("double", *wordOf("double", "-nan(Some Thing)")), "-nan");
  for (const char* inner : {"single", "double"}) {
    EXPECT_TRUE(std::signbit(wordOf(inner, "-nan")->asDouble())) << inner;
    EXPECT_FALSE(std::signbit(wordOf(inner, "nan")->asDouble())) << inner;
  }
}

template <class T>
void expectRoundTrips(const char* inner) {
  using Limits = std::numeric_limits<T>;
  for (const T value : {T(0.1), T(1) / 3, T(-0.0), Limits::max(), Limits::lowest(), Limits::min(),
                        Limits::denorm_min(), Limits::min() - Limits::denorm_min(),
                        std::nextafter(T(1), T(2)), T(123456789)}) {
    const COSValue word = COSValue::fromDouble(value);
    EXPECT_EQ(wordOf(inner, textOf(inner, word).c_str()), word) << inner << " " << value;
  }
}

TEST_F(Scalars, FloatsPrintTheDigitsThatReadBackTheSameBits) {
  expectRoundTrips<double>("double scalar");
  expectRoundTrips<float>("single scalar");
  EXPECT_EQ(textOf("double", COSValue::fromDouble(0.1)), "0.10000000000000001");
  EXPECT_EQ(textOf("single", COSValue::fromDouble(0.1)), "0.100000001");
  EXPECT_EQ(textOf("double", COSValue::fromDouble(-std::numeric_limits<double>::max())),
            "-1.7976931348623157e+308");
  // A single travels as the bits of a double, and the double keeps what the float has.
  EXPECT_EQ(wordOf("float", "0.1")->bits(), std::bit_cast<std::uint64_t>(double{0.1F}));
  EXPECT_EQ(textOf("float", COSValue::fromDouble(1e300)), "inf");
}

TEST_F(Scalars, LogicalsAreTrueAndFalse) {
  expectProbes({{"logical scalar,logical",
                 "true=true false=false",
                 {"", "TRUE", "True", "t", "tru", "truee", " true", "true ", "1", "0", "on",
                  "FALSE", "fals"}}});
  EXPECT_EQ(wordOf("logical scalar", "true"), COSValue::fromLogical(true));
  EXPECT_EQ(textOf("logical", COSValue::fromInteger(0x100)), "true");
  EXPECT_EQ(textOf("logical", COSValue()), "false");
}

TEST_F(Scalars, StringsAreCopied) {
  const COSTypeConversion& strings = *accessOf("string").textConversion();
  for (const char* text : {"", "some text", "\xC3\xA9 "}) {
    const COSValue word = COSValue::fromPointer(text);
    for (const COSValue copy : {strings.from(word), strings.to(word)}) {
      EXPECT_NE(copy, word);
      EXPECT_STREQ(copy.asPointer<char>(), text);
      utFree(copy.asPointer<char>());
    }
  }
  EXPECT_TRUE(strings.from(COSValue()).isNull());
  EXPECT_TRUE(strings.to(COSValue()).isNull());
}

TEST_F(Scalars, AllocateTheTextThatTheyGiveAndNothingElse) {
  const test::GlobalLocale locale(new test::Grouping("\3"));
  const std::pair<const char*, const char*> cases[] = {
      {"int8 scalar", "A"},        {"int16 scalar", "-32,768"}, {"uint32 scalar", "4,294,967,295"},
      {"int64 scalar", "-1"},      {"single scalar", "-nan"},   {"double scalar", "infinity"},
      {"logical scalar", "false"},
  };
  for (const auto& [inner, text] : cases) {
    const COSTypeConversion& scalar = *accessOf(inner).textConversion();
    const std::uint64_t news = test::newCount();
    const std::uint64_t allocations = vghost::faults::allocationCount();
    const COSValue word = scalar.from(COSValue::fromPointer(text));
    EXPECT_EQ(vghost::faults::allocationCount(), allocations) << inner;
    utFree(scalar.to(word).asPointer<char>());
    EXPECT_EQ(vghost::faults::allocationCount(), allocations + 1) << inner;
    EXPECT_EQ(test::newCount(), news) << inner;
    vghost::faults::failAllocation(1, vghost::faults::Repeat::Once);
    EXPECT_THROW(scalar.to(word), vcos::COSOutOfMemoryException) << inner;
  }

  // Where the stream's own memory fails the text is not to blame.
  test::failNew(1);
  EXPECT_THROW(accessOf("double scalar").textConversion()->from(COSValue::fromPointer("1.5")),
               std::bad_alloc);
}

}  // namespace
