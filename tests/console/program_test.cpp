#include <gmock/gmock.h>
#include <sys/wait.h>

#include <cstdio>
#include <string>
#include <vector>

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

struct Outcome {
  int status;
  std::string output;  // both streams
};

/// Runs the program through the shell.
Outcome run(const std::string& command) {
  FILE* pipe = popen(("exec 2>&1; '" VGDT_PROGRAM "' " + command).c_str(), "r");
  std::string output;
  for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe))
    output.push_back(static_cast<char>(c));
  return {WEXITSTATUS(pclose(pipe)), output};
}

struct Case {
  int status;
  std::vector<const char*> commands;
  const char* output;  // a part of it
};

// No Java machine starts with an option that it does not know.
#define WITHOUT_JAVA "JAVA_TOOL_OPTIONS=-nonesuch '" VGDT_PROGRAM "' "

const Case kCases[] = {
    {0, {"--help"}, "convert"},
    {0, {"convert --help"}, "Examples"},
    {0, {"--version", "eval --version"}, "vgdt 0."},
    {2, {""}, "SUBCOMMAND"},
    {2, {"--nonesuch"}, "vgdt:"},
    {2, {"\"$(printf '\\033[31mboo')\""}, "no command \"\\x1b[31mboo\""},
    {2, {"types extra", "convert on_off 1 2", "convert on_off --tetx"}, "not expected"},
    {0, {"types"}, "on_off                    logical     off                   1      on, off"},
    {0, {"types"}, "AxisScale                 enumerated  linear                24     linear, "},
    {0, {"types --json"}, "\"NumericOrString\",\"on_off\",\"OrderLayer\""},
    {0, {"types --family logical | sed 1d | wc -l"}, "1\n"},
    {2, {"types --family x"}, "logical"},
    {0, {"describe on_off"}, "'of'            off\n"},
    {0, {"describe on_off"}, "onoffboolean:IncorrectValue"},
    {0, {"describe Units"}, "'c'             VORTIL:datatypes:InvalidEnumValue\n"},
    {0, {"describe bool"}, "on              on\n"},
    {0, {"describe int"}, "a whole number, -2147483648 to 2147483647"},
    {0, {"describe on_off --json"}, "{\"ok\":true,\"type\":{\"name\":\"on_off\""},
    {2, {"describe \"$(printf '\\033')\""}, "\"\\x1b\""},
    {2, {"describe onoff", "convert onoff 1"}, "did you mean \"on_off\"?"},
    {2, {"describe onoff --json", "convert on_off '[1 2; 3' --json"}, "\"kind\":\"request\""},
    {0, {"convert on_off \"'ON'\""}, "array       'on'  (1x2 char)"},
    {0, {"convert on_off --text of"}, "text        off"},
    {0, {"convert MarkerStyle \"'P'\""}, "text        pentagram\n"},
    {0, {"describe Tick"}, "  Java class  double[]\n"},
    {0,
     {"convert Tick --text '[2]' --java"},
     "text   [2.0]\n  came back   2  (1x1 double)\n  equal"},
    {2, {"types | grep x; " WITHOUT_JAVA "convert Tick 2 --java"}, "vgdt: the Java machine in /"},
    {2,
     {"types | grep x; " WITHOUT_JAVA "convert Tick 2 --java --json"},
     "{\"ok\":false,\"error\":{\"kind\":\"request\",\"id\":\"\",\"message\":\"the Java machine in"},
    {1, {"convert Units \"' P'\""}, "ambiguous   between points and pixels\n"},
    {1, {"convert UnitsWithData --text c"}, "between centimeters and char"},
    {1, {"convert LightStyle --text '   LOCL'"}, "did you mean \"local\"?"},
    {1, {"convert PaperUnits --text pix"}, "normalized, points\n"},
    {1, {"convert 'uint8 scalar' --text 12"}, "accepted    one character"},
    {1, {"convert double --text 1e"}, "error       parse"},
    {0, {"convert bool --text on"}, "0x0000000000000001"},
    {2, {"convert bool true"}, "scalar"},
    {1, {"convert on_off -3"}, "onoffboolean:IncorrectValue"},
    {1,
     {"convert on_off -3", "convert on_off -- -3", "convert on_off --text -3"},
     "given       -3"},
    {1, {"convert on_off -Inf --json"}, "{\"ok\":false,"},
    {1, {"convert on_off 3 --locale de", "--locale de convert on_off 3"}, "Der Wert muss ein Text"},
    {2, {"convert on_off '[1 2; 3'"}, "[1 2; 3\n      ^\n"},
    {0, {"convert Limits 'int8([27 65])'"}, "text        [ \\x1b A ]\n"},
    {1, {"convert on_off \"'$(printf '\\302\\205\\033')'\""}, "'\\u0085\\x1b'"},
    {2, {"convert on_off"}, "LITERAL"},
    {2, {"convert on_off 1 --text on"}, "excludes"},
    {0, {"colors"}, "gray                 0.5  0.5    0.5   #808080\n"},
    {0, {"colors --json"}, "{\"ok\":true,\"colors\":[{\"name\":\"b\",\"rgb\":[0,0,1]},"},
    {0, {"colors --html /dev/stdout", "colors --html -"}, "</html>\n"},
    {2, {"colors --html /dev/full", "colors --html /nonexistent/x"}, "cannot be written: No s"},
    {2, {"colors --json --html x"}, "excludes"},
    {0, {"types --family color | wc -l"}, "6\n"},
    {0, {"convert PositivePoint3 --text x"}, "  value       null\n  text        \n"},
    {0, {"types --family text | wc -l"}, "8\n"},
    {0, {"convert NLineStyles --text '-|--'"}, "['- ';\n               '--']  (2x2 char)\n"},
    {0,
     {"convert TextString --text \"$(printf 'a\\nb')\""},
     "array       char([97 10 98])  (1x3 char)\n  escaped     a\\nb\n"},
    {0, {"convert TextString \"{'a';char([98 9])}\""}, "escaped     a\n              b\\t\n"},
    {0, {"units --help"}, "vgdt units --what position --from inches --to pixels --ppi 96 \"[1 1"},
    {0,
     {"units --what position --from in --to pix --ppi 96 '[1 1 2 2]'"},
     "[96 96 192 192] pixels\n"},
    {0,
     {"units --what height --from in --to cent -2",
      "units --from in --to cent --what height -- -2"},
     "-5.08 centimeters\n"},
    {0,
     {"units --what point --from norm --to pix --reference '[0 0 9 5]' --origin -1 '[1 NaN]' "
      "--json"},
     "{\"ok\":true,\"result\":[8,\"NaN\"]}\n"},
    {1, {"units --what height --from in --to c 1"}, "between centimeters and characters\n"},
    {1, {"units --what height --from inchs --to c 1"}, "did you mean \"inches\"?"},
    {1, {"units --what position --from in --to in 'int8([1 1 -1 1])'"}, "vgdt: negative width or"},
    {2, {"units --what height --from in --to pix"}, "VALUE is required"},
    {2, {"units --what heigth --from in --to pix 1"}, "one of point, position, height, inset"},
    {2, {"units --what height --from in --to pix '[1'"}, "[1\n  ^\n"},
    {2,
     {"units --what height --from in --to pix {1}", "units --what height --from in --to pix true",
      "units --what inset --from in --to pix '[1 2;3 4]'"},
     "a number or a row of numbers"},
    {2, {"eval /nonexistent"}, "/nonexistent"},
    {2, {"eval /"}, "cannot be read"},
    {0, {"eval --table </dev/null"}, "outcome"},
    {2, {"eval </"}, "vgdt: standard input cannot be read\n"},
    {2, {"check"}, "FILE is required"},
    {2, {"check - </dev/null", "check --json -- - </dev/null"}, "vgdt: -:1: column 1: expected a"},
    {1, {"check /dev/fd/3 3<<E\n5\nE\n"}, "/dev/fd/3:1: object\n  error       request\n"},
    {2, {"session /nonexistent", "session /", "session - </"}, "cannot be read"},
    {0, {"session <<'E'\nl=new Line\r\nget l Tag\nquit\nx\nE"}, "l\n''\n"},
    {1, {"session <<E\nl=new Line\nset l Color 2\nE"}, "line 2: l.Color (RGBAColor) does not take"},
    {2, {"session <<E\nline = new Line\nprint [lin]\nE"}, "\"line\"?\nprint [lin]\n       ^\n"},
    {2, {"types >/dev/full", "session <<E >/dev/full\nhelp\nE"}, "cannot be written"}};

TEST(Program, EndsWithTheStatusAndSaysWhy) {
  for (const auto& [status, commands, output] : kCases)
    for (const char* command : commands) {
      const Outcome result = run(command);
      EXPECT_EQ(result.status, status) << command << '\n' << result.output;
      EXPECT_THAT(result.output, HasSubstr(output)) << command;
      EXPECT_THAT(result.output, Not(HasSubstr("\033"))) << "colour is for terminals: " << command;
    }
}

TEST(Program, AnswersEachLineBeforeTheNextIsWritten) {
  // The shell writes the second request only after it has read the reply to the first.
  const Outcome result =
      run("eval < /dev/null; d=$(mktemp -d); mkfifo $d/in $d/out; '" VGDT_PROGRAM
          "' eval $d/in > $d/out & exec 9<$d/out 8>$d/in; echo '{\"id\":1}' >&8; read -r a <&9; "
          "echo '{\"id\":2}' >&8; read -r b <&9; exec 8>&-; wait; rm -r $d; echo \"$a $b\"");
  EXPECT_THAT(result.output, AllOf(HasSubstr("\"id\":1"), HasSubstr("\"id\":2")));
}

TEST(Program, SaysNothingThatMisleads) {
  EXPECT_THAT(run("convert on_off --text yes").output, Not(HasSubstr("did you mean")));
  EXPECT_THAT(run("convert Units --text ''").output, Not(HasSubstr("ambiguous")));
  EXPECT_EQ(run("eval '" VGDT_PROGRAM "' >/dev/full").output,
            "vgdt: the output cannot be written\n");
}

}  // namespace
