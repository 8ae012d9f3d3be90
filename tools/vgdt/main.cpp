#include "commands/Commands.h"
#include "text/TextDisplay.h"

#include <fmt/format.h>
#include <graphics/datatype/vgdatatypes.h>
#include <messages/translation.h>
#include <unistd.h>
#include <CLI/CLI.hpp>

#include <functional>
#include <iostream>

namespace {

using namespace vgdt;

/// The command line: what was asked for ends up in `chosen_`.
class CommandLine {
 public:
  explicit CommandLine(const Console& console) : console_(console) {
    app_.require_subcommand(1);
    app_.failure_message(
        [this](const CLI::App*, const CLI::Error& error) { return failureText(error); });
    addCommonOptions(&app_);
    app_.footer("Exit status: 0 done, 1 a value was refused, 2 not understood.");
    addTypes();
    addDescribe();
    addConvert();
    addEval();
    addSession();
    addCheck();
    addColors();
    addUnits();
  }

  int run(int argc, char** argv) {
    if (argc < 2) {
      console_.errors << app_.help();
      return kNotUnderstood;
    }
    try {
      app_.parse(argc, argv);
      return start();
    } catch (const CLI::ParseError& error) {
      const int status = app_.exit(error, console_.output, console_.errors);
      return status == 0 ? kDone : kNotUnderstood;
    }
  }

 private:
  void addCommonOptions(CLI::App* app) {
    app->set_version_flag("--version", "vgdt " VGDT_VERSION, "Print the version and exit");
    app->add_option("--locale", locale_, "Language of error texts, such as de")
        ->type_name("LOCALE");
  }

  std::string commandNames() const {
    std::vector<std::string> names;
    for (const CLI::App* command : app_.get_subcommands({}))
      names.push_back(command->get_name());
    return fmt::format("{}", fmt::join(names, ", "));
  }

  std::string failureText(const CLI::Error& error) const {
    const std::vector<std::string> rest = app_.remaining();
    const bool isUnknownCommand =
        app_.get_subcommands().empty() && !rest.empty() && !rest.front().starts_with('-');
    return fmt::format(
        "{} {}\nRun with --help for more information.\n", console_.errorStyle.error("vgdt:"),
        onOneLine(isUnknownCommand ? fmt::format("there is no command \"{}\"; the commands are {}",
                                                 rest.front(), commandNames())
                                   : error.what()));
  }

  CLI::App* addCommand(const std::string& name, const std::string& description,
                       const std::string& examples) {
    CLI::App* command = app_.add_subcommand(name, description);
    addCommonOptions(command);
    command->footer("Examples:\n" + examples);
    return command;
  }

  CLI::Option* addJsonFlag(CLI::App* command) {
    return command->add_flag("--json", asJson_, "Print JSON, as a reply of eval");
  }

  void addTypes() {
    CLI::App* command =
        addCommand("types", "List the types", "  vgdt types\n  vgdt types --family logical");
    command->add_option("--family", family_, "Only the types of one family")->type_name("FAMILY");
    addJsonFlag(command);
    command->callback(
        [this] { chosen_ = [this] { return listTypes(console_, family_, asJson_); }; });
  }

  void addDescribe() {
    CLI::App* command = addCommand("describe", "Describe a type", "  vgdt describe on_off");
    addTypeName(command);
    addJsonFlag(command);
    command->callback(
        [this] { chosen_ = [this] { return describeType(console_, typeName_, asJson_); }; });
  }

  void addConvert() {
    CLI::App* command =
        addCommand("convert", "Convert a value",
                   "  vgdt convert on_off \"'On'\"\n  vgdt convert bool --text off\n"
                   "  vgdt convert Position \"[1 2 3 4]\" --java");
    addTypeName(command);
    CLI::Option* literal = command->add_option("LITERAL", literal_, "The value as a host array");
    literal->type_name("");
    command->add_option("--text", text_, "The value as a text, for the text conversion")
        ->type_name("TEXT")
        ->excludes(literal);
    command->add_flag("--java", withJava_,
                      "Show the value's Java object, too, and what comes back");
    addJsonFlag(command);
    command->allow_extras();
    command->callback([this, command] {
      takeLiteral(command, literal_, text_.has_value());
      if (!literal_ && !text_) throw CLI::RequiredError("LITERAL or --text");
      const GivenValue given = text_ ? GivenValue{GivenValue::Route::Text, *text_}
                                     : GivenValue{GivenValue::Route::Array, *literal_};
      chosen_ = [this, given] {
        return convertValue(console_, typeName_, given, {asJson_, withJava_});
      };
    });
  }

  void addEval() {
    CLI::App* command = addCommand("eval", "Serve requests: JSON Lines in, JSON Lines out",
                                   "  vgdt eval requests.jsonl\n"
                                   "  echo '{\"type\":\"on_off\",\"text\":\"on\"}' | vgdt eval");
    command->add_option("FILE", file_, "The requests; standard input without it")->type_name("");
    command->add_flag("--table", asTable_, "Print a table for people");
    command->callback([this] { chosen_ = [this] { return evaluate(console_, file_, asTable_); }; });
  }

  void addSession() {
    CLI::App* command = addCommand("session", "Make objects, set and show their properties",
                                   "  vgdt session\n  vgdt session figure.session\n"
                                   "  echo 'f = new Figure' | vgdt session --json");
    command->add_option("FILE", file_, "The commands; standard input without it")->type_name("");
    addJsonFlag(command);
    command->callback(
        [this] { chosen_ = [this] { return runSession(console_, file_, asJson_); }; });
  }

  void addCheck() {
    CLI::App* command = addCommand("check", "Check property sheets",
                                   "  vgdt check figure.json\n  vgdt check --json a.json b.json");
    command->add_option("FILE", files_, "The sheets; \"-\" is standard input")
        ->type_name("")
        ->required();
    command->add_flag("--json", asJson_, "Print a line of JSON for each refusal");
    command->callback([this] {
      chosen_ = [this] {
        return checkSheets(console_, files_, asJson_, isatty(STDERR_FILENO) != 0);
      };
    });
  }

  void addColors() {
    CLI::App* command = addCommand("colors", "List the colour names",
                                   "  vgdt colors\n  vgdt colors --html colours.html\n"
                                   "  vgdt colors --json");
    CLI::Option* page = command->add_option("--html", page_, "Write a page for a browser instead");
    page->type_name("FILE");
    addJsonFlag(command)->excludes(page);
    command->callback(
        [this] { chosen_ = [this] { return listColors(console_, page_, asJson_); }; });
  }

  void addUnits() {
    CLI::App* command = addCommand(
        "units", "Convert between units",
        "  vgdt units --what height --from inches --to centimeters 2\n"
        "  vgdt units --what position --from inches --to pixels --ppi 96 \"[1 1 2 2]\"\n"
        "  vgdt units --what point --from norm --to pix --reference \"[0 0 200 100]\" \"[0.5 1]\"");
    const auto addName = [command](const char* option, std::string& name, const char* description) {
      command->add_option(option, name, description)->type_name("NAME")->required();
    };
    const auto addNumbers = [command](const char* option, std::optional<std::string>& numbers,
                                      const char* description, const char* form) {
      command->add_option(option, numbers, description)->type_name(form);
    };
    addName("--what", units_.what, "What VALUE is: point, position, height or inset");
    addName("--from", units_.from, "Its unit; \"vgdt describe Units\" lists them");
    addName("--to", units_.to, "The unit to convert to");
    addNumbers("VALUE", units_.value, "A number or a row, such as \"[1 1 2 2]\"", "");
    addNumbers("--ppi", units_.ppi, "Pixels per inch; 72 without it", "NUMBER");
    addNumbers("--reference", units_.reference,
               "What normalized units are relative to, in pixels; only its size counts",
               "\"[LEFT BOTTOM WIDTH HEIGHT]\"");
    addNumbers("--char", units_.character, "Size of a character in points", "\"[WIDTH HEIGHT]\"");
    addNumbers("--origin", units_.origin, "Number of the first pixel; 0 without it", "NUMBER");
    addJsonFlag(command);
    command->allow_extras();
    command->callback([this, command] {
      takeLiteral(command, units_.value, false);
      if (!units_.value) throw CLI::RequiredError("VALUE");
      chosen_ = [this] { return convertUnits(console_, units_, asJson_); };
    });
  }

  void addTypeName(CLI::App* command) {
    command->add_option("TYPE", typeName_, "Name of a type")->type_name("")->required();
  }

  /// A literal that begins with a minus sign arrives among the unknown options.
  static void takeLiteral(const CLI::App* command, std::optional<std::string>& literal,
                          bool hasOther) {
    std::vector<std::string> rest = command->remaining();
    std::erase(rest, "--");
    if (rest.empty()) return;
    if (rest.size() > 1 || literal || hasOther || rest.front().starts_with("--"))
      throw CLI::ExtrasError(command->get_name(), rest);
    literal = rest.front();
  }

  int start() {
    vghost::messages::setLocale(locale_);
    VLInitialize_vgdatatypes();
    return chosen_();
  }

  const Console& console_;
  CLI::App app_{"Put values through the property data types of the graphics system.", "vgdt"};
  std::function<ExitStatus()> chosen_;
  std::string locale_ = "en";
  std::optional<std::string> family_;
  std::string typeName_;
  std::optional<std::string> literal_;
  std::optional<std::string> text_;
  std::optional<std::string> file_;
  std::vector<std::string> files_;
  std::optional<std::string> page_;
  UnitsArguments units_;
  bool asJson_ = false;
  bool asTable_ = false;
  bool withJava_ = false;
};

std::string textOf(const Failure& failure) {
  const std::string& text = failure.message.empty() ? nameOf(failure.kind) : failure.message;
  return failure.identifier.empty() ? text : fmt::format("{} ({})", text, failure.identifier);
}

}  // namespace

int main(int argc, char** argv) {
  // With buffers of their own, the streams are faster and tell a read error from the end.
  std::ios::sync_with_stdio(false);
  const Console console{std::cout, std::cerr, Style(colorDepth(STDOUT_FILENO)),
                        Style(colorDepth(STDERR_FILENO))};
  int status = kDone;
  const auto failure = failureOf([&] { status = CommandLine(console).run(argc, argv); });
  if (failure) {
    status = kNotUnderstood;
    reportProblem(console, textOf(*failure));
  }
  if (!std::cout.flush()) {
    status = kNotUnderstood;
    reportProblem(console, "the output cannot be written");
  }
  return status;
}
