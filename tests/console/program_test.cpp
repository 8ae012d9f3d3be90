#include <gmock/gmock.h>
#include <sys/wait.h>

#include <cstdio>
#include <string>

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

struct Outcome {
  int status;
  std::string output;  // both streams
};

/// Runs the program through the shell.
Outcome run(const std::string& arguments) {
  FILE* pipe = popen(("exec 2>&1; '" VGDT_PROGRAM "' " + arguments).c_str(), "r");
  std::string output;
  for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe))
    output.push_back(static_cast<char>(c));
  return {WEXITSTATUS(pclose(pipe)), output};
}

struct Case {
  const char* arguments;
  int status;
  const char* output;  // a part of it
};

constexpr Case kCases[] = {
    {"--help", 0, "convert"},
    {"--version", 0, "vgdt 0."},
    {"types --help", 0, "vgdt types"},
    {"describe --help", 0, "Examples"},
    {"convert --help", 0, "--text"},
    {"eval --version", 0, "vgdt 0."},
    {"", 2, "SUBCOMMAND"},
    {"nonesuch", 2, "nonesuch"},
    {"--nonesuch", 2, "vgdt:"},
    {"\"$(printf '\\033[31mboo')\"", 2, "no command \"\\x1b[31mboo\""},
    {"types \"--$(printf '\\033')\"", 2, "--\\x1b"},
    {"types extra", 2, "extra"},
    {"types", 0, "on_off                    logical     off             1      on, off"},
    {"types", 0, "AxisScale                 enumerated  linear          24     linear, "},
    {"types --json", 0, "\"NumericOrLogicalMatrix\",\"on_off\",\"OrderLayer\""},
    {"types --family enumerated", 0, "VG1DrawStyle"},
    {"types --family logical", 0, "on_off"},
    {"types --family x", 2, "logical"},
    {"describe on_off", 0, "'of'            off\n"},
    {"describe on_off", 0, "onoffboolean:IncorrectValue"},
    {"describe Units", 0, "'c'             VORTIL:datatypes:InvalidEnumValue\n"},
    {"describe bool", 0, "on              on\n"},
    {"describe int", 0, "a whole number, -2147483648 to 2147483647"},
    {"describe on_off --json", 0, "{\"ok\":true,\"type\":{\"name\":\"on_off\""},
    {"describe \"$(printf '\\033')\"", 2, "\"\\x1b\""},
    {"describe \"$(printf '\\033')\" --json", 2, "\\u001b"},
    {"describe onoff", 2, "did you mean \"on_off\"?"},
    {"describe onoff --json", 2, "\"kind\":\"request\""},
    {"convert on_off \"'ON'\"", 0, "array       'on'  (1x2 char)"},
    {"convert on_off --text of", 0, "text        off"},
    {"convert MarkerStyle \"'P'\"", 0, "text        pentagram\n"},
    {"convert Units \"' P'\"", 1, "ambiguous   between points and pixels\n"},
    {"convert UnitsWithData --text c", 1, "between centimeters and char"},
    {"convert LightStyle --text ' LOCL'", 1, "did you mean \"local\"?"},
    {"convert PaperUnits --text pix", 1, "normalized, points\n"},
    {"convert 'uint8 scalar' --text 12", 1, "accepted    one character"},
    {"convert double --text 1e", 1, "error       parse"},
    {"convert bool --text on", 0, "0x0000000000000001"},
    {"convert bool true", 2, "scalar"},
    {"convert on_off \"'onn'\"", 1, "given       'onn'"},
    {"convert on_off --text OFFF", 1, "did you mean \"off\"?"},
    {"convert on_off -3", 1, "onoffboolean:IncorrectValue"},
    {"convert on_off -- -3", 1, "given       -3"},
    {"convert on_off -Inf --json", 1, "{\"ok\":false,"},
    {"convert on_off --text -3", 1, "given       -3"},
    {"convert on_off 3 --locale de", 1, "Der Wert muss ein Text sein"},
    {"--locale de convert on_off 3", 1, "Der Wert muss ein Text sein"},
    {"convert on_off '[1 2; 3'", 2, "[1 2; 3\n      ^\n"},
    {"convert on_off '[1 2; 3' --json", 2, "\"kind\":\"request\""},
    {"convert onoff 1", 2, "did you mean \"on_off\"?"},
    {"convert Limits 'int8([27 65])'", 0, "text        [ \\x1b A ]\n"},
    {"convert on_off \"'$(printf '\\302\\205\\033')'\"", 1, "'\\u0085\\x1b'"},
    {"convert on_off \"'$(printf '\\033')' x\"", 2, "'\\x1b' x\n       ^\n"},
    {"convert on_off", 2, "LITERAL"},
    {"convert on_off 1 2", 2, "2"},
    {"convert on_off 1 --text on", 2, "--text"},
    {"convert on_off 1 --tetx on", 2, "--tetx"},
    {"eval </dev/null", 0, ""},
    {"eval /nonexistent", 2, "/nonexistent"},
    {"eval /", 2, "cannot be read"},
    {"eval --table </dev/null", 0, "outcome"},
    {"eval </", 2, "vgdt: standard input cannot be read\n"},
    {"types >/dev/full", 2, "cannot be written"}};

TEST(Program, EndsWithTheStatusAndSaysWhy) {
  for (const auto& [arguments, status, output] : kCases) {
    const Outcome result = run(arguments);
    EXPECT_EQ(result.status, status) << arguments << '\n' << result.output;
    EXPECT_THAT(result.output, HasSubstr(output)) << arguments;
    EXPECT_THAT(result.output, Not(HasSubstr("\033"))) << "colour is for terminals: " << arguments;
  }
}

TEST(Program, BlamesTheOutputWhereThatIsFull) {
  EXPECT_EQ(run("eval '" VGDT_PROGRAM "' >/dev/full").output,
            "vgdt: the output cannot be written\n");
}

TEST(Program, AnswersEachLineBeforeTheNextIsWritten) {
  // The shell writes the second request only after it has read the reply to the first.
  const Outcome result =
      run("eval < /dev/null; d=$(mktemp -d); mkfifo $d/in $d/out; '" VGDT_PROGRAM
          "' eval $d/in > $d/out & exec 9<$d/out 8>$d/in; echo '{\"id\":1}' >&8; read -r a <&9; "
          "echo '{\"id\":2}' >&8; read -r b <&9; exec 8>&-; wait; rm -r $d; echo \"$a $b\"");
  EXPECT_THAT(result.output, AllOf(HasSubstr("\"id\":1"), HasSubstr("\"id\":2")));
}

TEST(Program, OffersNoNameThatIsFarFromTheText) {
  EXPECT_THAT(run("convert on_off --text yes").output, Not(HasSubstr("did you mean")));
  EXPECT_THAT(run("convert on_off --text o").output, Not(HasSubstr("did you mean")));
  EXPECT_THAT(run("convert Units --text ''").output, Not(HasSubstr("ambiguous")));
}

}  // namespace
