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
    addColors();
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
                   "  vgdt convert on_off \"'On'\"\n  vgdt convert bool --text off");
    addTypeName(command);
    CLI::Option* literal = command->add_option("LITERAL", literal_, "The value as a host array");
    literal->type_name("");
    command->add_option("--text", text_, "The value as a text, for the text conversion")
        ->type_name("TEXT")
        ->excludes(literal);
    addJsonFlag(command);
    // A literal may begin with a minus sign; it then arrives among the unknown options.
    command->allow_extras();
    command->callback([this, command] { takeValue(command); });
  }

  void addEval() {
    CLI::App* command = addCommand("eval", "Serve requests: JSON Lines in, JSON Lines out",
                                   "  vgdt eval requests.jsonl\n"
                                   "  echo '{\"type\":\"on_off\",\"text\":\"on\"}' | vgdt eval");
    command->add_option("FILE", file_, "The requests; standard input without it")->type_name("");
    command->add_flag("--table", asTable_, "Print a table for people");
    command->callback([this] { chosen_ = [this] { return evaluate(console_, file_, asTable_); }; });
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

  void addTypeName(CLI::App* command) {
    command->add_option("TYPE", typeName_, "Name of a type")->type_name("")->required();
  }

  void takeValue(const CLI::App* command) {
    std::vector<std::string> rest = command->remaining();
    std::erase(rest, "--");
    if (!rest.empty()) {
      if (rest.size() > 1 || literal_ || text_ || rest.front().starts_with("--"))
        throw CLI::ExtrasError("convert", rest);
      literal_ = rest.front();
    }
    if (!literal_ && !text_) throw CLI::RequiredError("LITERAL or --text");
    const GivenValue given = text_ ? GivenValue{GivenValue::Route::Text, *text_}
                                   : GivenValue{GivenValue::Route::Array, *literal_};
    chosen_ = [this, given] { return convertValue(console_, typeName_, given, asJson_); };
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
  std::optional<std::string> page_;
  bool asJson_ = false;
  bool asTable_ = false;
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
