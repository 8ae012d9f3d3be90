// Messages, and the errors and warnings that carry them.

#include "support/ChildProcess.h"
#include "support/HostError.h"

#include <dlfcn.h>
#include <gmock/gmock.h>
#include <messages/MessageCatalog.h>
#include <messages/catalog.h>
#include <messages/translation.h>
#include <unicode/resbund.h>
#include <unicode/uclean.h>
#include <unicode/uloc.h>
#include <ut/console.h>
#include <vx/errors.h>

#include <cstdlib>
#include <filesystem>
#include <new>
#include <set>
#include <string>
#include <tuple>

namespace {

using resource_core::MessageDefinition;
using testing::HasSubstr;
namespace messages = vghost::messages;

/// A message of any definition with any arguments.
struct AnyMessage final : resource_core::BaseMsgID {
  AnyMessage(const MessageDefinition& definition, std::vector<std::string> arguments)
      : BaseMsgID(definition, std::move(arguments)) {}
};

TEST(MessageCatalog, EveryTextHasPlacesForExactlyTheArgumentsOfItsMessage) {
  for (const MessageDefinition* message : messages::catalog()) {
    std::vector<std::string> arguments;
    for (std::size_t i = 0; i < message->arity; ++i)
      arguments.push_back(std::to_string(1000 + i));
    for (const char* locale : {"en", "de"}) {
      SCOPED_TRACE(testing::Message() << message->identifier << " in " << locale);
      const std::string text = messages::text(AnyMessage(*message, arguments), locale);
      EXPECT_NE(text, "");
      EXPECT_THAT(text, Not(HasSubstr("{"))) << "a place without an argument, or a broken pattern";
      for (const std::string& argument : arguments)
        EXPECT_THAT(text, HasSubstr(argument));
    }
  }
}

/// Of the bundles beside the library.
std::string hostDirectory() {
  Dl_info library{};
  dladdr(reinterpret_cast<void*>(&messages::pattern), &library);
  const std::string path = library.dli_fname;
  return path.substr(0, path.rfind('/') + 1) + "vghost/";
}

TEST(MessageCatalog, EveryTranslationBelongsToAMessage) {
  const std::string directory = hostDirectory() + "messages";
  UErrorCode status = U_ZERO_ERROR;
  icu::ResourceBundle bundle(directory.c_str(), icu::Locale("de"), status);
  std::set<std::string> orphans;
  while (bundle.hasNext())
    orphans.insert(bundle.getNext(status).getKey());
  ASSERT_FALSE(orphans.empty());
  for (const MessageDefinition* message : messages::catalog())
    orphans.erase(message->identifier);
  EXPECT_THAT(orphans, testing::IsEmpty());
}

/// The text in a catalogue of a library.
fl::ustring find(const char* id, const char* locale, const char* key) {
  return fl::i18n::MessageCatalog::openCatalog(id, fl::i18n::VwLocale(locale))->lookup(key);
}

TEST(Translation, TheLocaleAloneDecidesTheLanguage) {
  const std::string before = uloc_getDefault();
  UErrorCode status = U_ZERO_ERROR;
  uloc_setDefault("de_DE", &status);
  const VORTIL::datatypes::onoffboolean::UnknownOnOffBooleanValue message;
  for (const char* locale : {"en", "en_GB", "fr", "fr_DE", "", "no such locale"})
    EXPECT_EQ(messages::text(message, locale), "The value has to be \"on\" or \"off\".") << locale;
  for (const char* locale : {"de", "de_CH", "de-AT"})
    EXPECT_EQ(messages::text(message, locale), "Der Wert muss \"on\" oder \"off\" sein.") << locale;
  const std::string folder = hostDirectory() + "catalogs/messages_test";
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder);
  std::filesystem::create_directory_symlink("../../messages", folder + "/German");
  const char* const id = "messages_test::German";
  const char* const key = message.definition().identifier;
  for (const char* locale : {"de", "de_CH", "de-AT", "de_DE.UTF-8"})
    EXPECT_EQ(find(id, locale, key), fl::i18n::to_ustring(messages::pattern(key, "de"))) << locale;
  using fl::i18n::MessageCatalog;
  for (const char* locale : {"", "en", "fr_DE", "../German/de"})
    EXPECT_THROW(find(id, locale, key), MessageCatalog::MessageNotFound) << locale;
  for (const char* bad :
       {"", "no::such", "messages_test/German", "messages_test::..::..::messages"})
    EXPECT_THROW(find(bad, "de", key), MessageCatalog::MessageNotFound) << bad;
  EXPECT_THROW(find(id, "de", "VORTIL:no:Such"), MessageCatalog::MessageNotFound);
  std::filesystem::remove_all(folder);
  uloc_setDefault(before.c_str(), &status);
  // What is missing falls back to English, and then to the identifier.
  const VORTIL::host::InjectedFailure untranslated("createArray");
  EXPECT_EQ(messages::text(untranslated, "de"), "createArray was told to fail.");
  EXPECT_EQ(messages::pattern("VORTIL:no:Such", "de"), "VORTIL:no:Such");
}

TEST(Translation, TextOfAUserArrivesUnchanged) {
  const char* const texts[] = {"{0}", "{", "it's", "''", "'{1}'", "%s%n", "\u00FC\U0001F600"};
  for (const std::string text : texts) {
    const component_VORTIL::catalog_datatypes::key_InvalidValue message(text);
    EXPECT_EQ(messages::text(message, "en"), "An empty text is not a value of " + text + ".");
    EXPECT_EQ(messages::text(message, "de"), "Ein leerer Text ist kein Wert von " + text + ".");
  }
}

TEST(Errors, CarryTheirIdentifierAndTextToWhoeverCatchesThem) {
  const std::tuple<const char*, void (*)(), const char*, const char*> rows[] = {
      {"en", [] { vxErrMsgId(VORTIL::array::IndexOutOfRange("5", "3")); },
       "VORTIL:array:IndexOutOfRange", "Element 5 does not exist in an array of 3 elements."},
      {"de", [] { vxErrMsgId(component_VORTIL::catalog_vg::key_VCOSPackageNotFound()); },
       "VORTIL:vg:VCOSPackageNotFound",
       "Das Paket der Grafik-Datentypen war nach dem Anlegen nicht zu finden."},
      {"en", [] { vxErrMsgIdAndTxt("a:b", "%s has %d %%", "\u00FC%s{0}\U0001F600", 3); }, "a:b",
       "\u00FC%s{0}\U0001F600 has 3 %"},
      {"en", [] { vxErrMsg(17); }, "VORTIL:host:NumberToText",
       "A number could not be converted to text."},
      {"en", [] { vxErrMsg(18); }, "VORTIL:host:TooManyFields",
       "A struct has at most 2147483647 fields."},
      {"en", [] { vxErrMsg(19); }, "VORTIL:host:UnknownMessage", "Error number 19."},
  };
  for (const auto& [locale, raise, identifier, text] : rows) {
    messages::setLocale(locale);
    try {
      raise();
      ADD_FAILURE() << identifier;
    } catch (const Lindgrove::System::utErrorException_DEPRECATED& error) {
      EXPECT_STREQ(error.what(), text);
      EXPECT_EQ(test::identifierRaisedBy([&] { throw error; }), identifier);
    }
    EXPECT_STREQ(test::lastError().identifier, identifier);
    EXPECT_STREQ(test::lastError().text, text);
  }
  messages::setLocale("en");
}

TEST(WarningsAndReports, GoToTheInnermostCaptureAndWithoutOneToTheConsole) {
  const VORTIL::host::UnknownMessage warning("%s {0}");
  const vghost::ConsoleCapture console;
  {
    const vghost::WarningCapture outer;
    const vghost::ReportCapture outerReports;
    {
      const vghost::WarningCapture inner;
      const vghost::ReportCapture reports;
      vxWarningMsgId(warning);
      Lindgrove::VException::PrintErrorMessage("some:id", "%s %d", "report", 1);
      ASSERT_EQ(std::pair(inner.messages().size(), reports.messages().size()), std::pair(1UL, 1UL));
      EXPECT_EQ(inner.messages()[0].message, "Error number %s {0}.");
      EXPECT_EQ(reports.messages()[0].message + reports.messages()[0].identifier,
                "report 1some:id");
    }
    EXPECT_TRUE(outer.messages().empty() && outerReports.messages().empty());
  }
  EXPECT_TRUE(console.lines().empty());
  vxWarningMsgId(warning);
  Lindgrove::VException::PrintErrorMessage("", "report");
  utPrintf("%d\n\nlast", 2);
  EXPECT_EQ(console.lines(),
            (std::vector<std::string>{"Warning: Error number %s {0}.", "report", "2", "", "last"}));
}

TEST(Messages, AreWholeOrSayThatMemoryHasRunOutForALongText) {
  test::inChildProcess([] {
    static int left = 0;  // how many large blocks there still are
    static constexpr std::size_t kLarge = 4000;
    const auto allocate = [](const void*, std::size_t size) -> void* {
      return size > kLarge && left-- <= 0 ? nullptr : std::malloc(size);
    };
    const auto reallocate = [](const void*, void* block, std::size_t size) {
      return size > kLarge && left-- <= 0 ? nullptr : std::realloc(block, size);
    };
    const component_VORTIL::catalog_datatypes::key_InvalidEnumValue message(std::string(5000, 'x'),
                                                                            "Units");
    const std::string whole = messages::text(message, "en");
    UErrorCode status = U_ZERO_ERROR;
    u_setMemoryFunctions(
        nullptr, allocate, reallocate, [](const void*, void* block) { std::free(block); }, &status);
    int failures = 0;
    for (int before = 0; before < 10; ++before) {
      left = before;
      try {
        EXPECT_EQ(messages::text(message, "en"), whole) << before;
      } catch (const std::bad_alloc&) {
        ++failures;
      }
    }
    EXPECT_GT(failures, 1);
  });
}

}  // namespace
