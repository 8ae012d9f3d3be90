#include <gmock/gmock.h>
#include <sys/wait.h>

#include <cstdio>
#include <ostream>
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

void PrintTo(const Case& each, std::ostream* stream) {
  *stream << each.arguments;
}

class Program : public testing::TestWithParam<Case> {};

TEST_P(Program, EndsWithTheStatusAndSaysWhy) {
  const Outcome result = run(GetParam().arguments);
  EXPECT_EQ(result.status, GetParam().status) << result.output;
  EXPECT_THAT(result.output, HasSubstr(GetParam().output));
  EXPECT_THAT(result.output, Not(HasSubstr("\033"))) << "colour is for terminals";
}

INSTANTIATE_TEST_SUITE_P(
    Help, Program,
    testing::Values(Case{"--help", 0, "convert"}, Case{"--version", 0, "vgdt 0."},
                    Case{"types --help", 0, "vgdt types"}, Case{"describe --help", 0, "Examples"},
                    Case{"convert --help", 0, "--text"}, Case{"eval --version", 0, "vgdt 0."},
                    Case{"", 2, "SUBCOMMAND"}, Case{"nonesuch", 2, "nonesuch"},
                    Case{"--nonesuch", 2, "vgdt:"},
                    Case{"\"$(printf '\\033[31mboo')\"", 2, "no command \"\\x1b[31mboo\""},
                    Case{"types \"--$(printf '\\033')\"", 2, "--\\x1b"},
                    Case{"types extra", 2, "extra"}));

INSTANTIATE_TEST_SUITE_P(
    Types, Program,
    testing::Values(
        Case{"types", 0, "on_off                    logical     off             1      on, off"},
        Case{"types", 0, "AxisScale                 enumerated  linear          24     linear, "},
        Case{"types --json", 0, "\"NumericOrLogicalMatrix\",\"on_off\",\"OrderLayer\""},
        Case{"types --family enumerated", 0, "VG1DrawStyle"},
        Case{"types --family logical", 0, "on_off"}, Case{"types --family x", 2, "logical"},
        Case{"describe on_off", 0, "'of'            off\n"},
        Case{"describe on_off", 0, "onoffboolean:IncorrectValue"},
        Case{"describe Units", 0, "'c'             VORTIL:datatypes:InvalidEnumValue\n"},
        Case{"describe bool", 0, "on              on\n"},
        Case{"describe int", 0, "a whole number, -2147483648 to 2147483647"},
        Case{"describe on_off --json", 0, "{\"ok\":true,\"type\":{\"name\":\"on_off\""},
        Case{"describe \"$(printf '\\033')\"", 2, "\"\\x1b\""},
        Case{"describe \"$(printf '\\033')\" --json", 2, "\\u001b"},
        Case{"describe onoff", 2, "did you mean \"on_off\"?"},
        Case{"describe onoff --json", 2, "\"kind\":\"request\""}));

INSTANTIATE_TEST_SUITE_P(
    Convert, Program,
    testing::Values(Case{"convert on_off \"'ON'\"", 0, "array       'on'  (1x2 char)"},
                    Case{"convert on_off --text of", 0, "text        off"},
                    Case{"convert MarkerStyle \"'P'\"", 0, "text        pentagram\n"},
                    Case{"convert Units \"' P'\"", 1, "ambiguous   between points and pixels\n"},
                    Case{"convert UnitsWithData --text c", 1, "between centimeters and char"},
                    Case{"convert LightStyle --text ' LOCL'", 1, "did you mean \"local\"?"},
                    Case{"convert PaperUnits --text pix", 1, "normalized, points\n"},
                    Case{"convert 'uint8 scalar' --text 12", 1, "accepted    one character"},
                    Case{"convert double --text 1e", 1, "error       parse"},
                    Case{"convert bool --text on", 0, "0x0000000000000001"},
                    Case{"convert bool true", 2, "scalar"},
                    Case{"convert on_off \"'onn'\"", 1, "given       'onn'"},
                    Case{"convert on_off --text OFFF", 1, "did you mean \"off\"?"},
                    Case{"convert on_off -3", 1, "onoffboolean:IncorrectValue"},
                    Case{"convert on_off -- -3", 1, "given       -3"},
                    Case{"convert on_off -Inf --json", 1, "{\"ok\":false,"},
                    Case{"convert on_off --text -3", 1, "given       -3"},
                    Case{"convert on_off 3 --locale de", 1, "Der Wert muss ein Text sein"},
                    Case{"--locale de convert on_off 3", 1, "Der Wert muss ein Text sein"},
                    Case{"convert on_off '[1 2; 3'", 2, "[1 2; 3\n      ^\n"},
                    Case{"convert on_off '[1 2; 3' --json", 2, "\"kind\":\"request\""},
                    Case{"convert onoff 1", 2, "did you mean \"on_off\"?"},
                    Case{"convert Limits 'int8([27 65])'", 0, "text        [ \\x1b A ]\n"},
                    Case{"convert on_off \"'$(printf '\\302\\205\\033')'\"", 1, "'\\u0085\\x1b'"},
                    Case{"convert on_off \"'$(printf '\\033')' x\"", 2, "'\\x1b' x\n       ^\n"},
                    Case{"convert on_off", 2, "LITERAL"}, Case{"convert on_off 1 2", 2, "2"},
                    Case{"convert on_off 1 --text on", 2, "--text"},
                    Case{"convert on_off 1 --tetx on", 2, "--tetx"}));

INSTANTIATE_TEST_SUITE_P(
    Eval, Program,
    testing::Values(Case{"eval </dev/null", 0, ""}, Case{"eval /nonexistent", 2, "/nonexistent"},
                    Case{"eval /", 2, "cannot be read"},
                    Case{"eval --table </dev/null", 0, "outcome"},
                    Case{"eval </", 2, "vgdt: standard input cannot be read\n"},
                    Case{"types >/dev/full", 2, "cannot be written"}));

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
