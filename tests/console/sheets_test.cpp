#include <gmock/gmock.h>
#include <graphics/datatype/vgdatatypes.h>

#include "commands/Commands.h"
#include "faults/Obstacles.h"

#include <boost/interprocess/streams/bufferstream.hpp>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

using namespace vgdt;
using testing::HasSubstr;
using testing::StartsWith;

struct File {
  std::string name;
  std::string content;
};

struct Case {
  int status;
  std::string what;
  std::vector<File> files;  ///< with "output" and "errors" at the end
};

std::vector<Case> readCases() {
  std::ifstream file(VGDT_SHEETS);
  std::vector<Case> cases;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with("== "))
      cases.push_back({std::stoi(line.substr(3)), line, {}});
    else if (line.starts_with("-- "))
      cases.back().files.push_back({line.substr(3), ""});
    else if (!cases.empty() && !cases.back().files.empty() && !line.empty())
      cases.back().files.back().content += line + '\n';
  }
  return cases;
}

/// In a folder of its own.
class Sheets : public testing::Test {
 protected:
  static void SetUpTestSuite() { VLInitialize_vgdatatypes(); }
  void SetUp() override {
    std::string name = std::filesystem::temp_directory_path() / "sheets_XXXXXX";
    ASSERT_NE(mkdtemp(name.data()), nullptr);
    std::filesystem::current_path(folder_ = name);
  }
  void TearDown() override {
    std::filesystem::current_path("/");
    std::filesystem::remove_all(folder_);
  }

  /// Writes the files that can be written, and checks all.
  ExitStatus check(const std::vector<File>& files, bool asJson = true, bool showsProgress = false) {
    std::vector<std::string> names;
    for (const auto& [name, content] : files) {
      names.push_back(name);
      std::ofstream(name, std::ios::binary) << content;
    }
    return checkFiles(names, asJson, showsProgress);
  }
  ExitStatus checkFiles(const std::vector<std::string>& names, bool asJson, bool showsProgress) {
    using Stream = boost::interprocess::obufferstream;  // allocates nothing
    Stream output(outputBytes_.data(), outputBytes_.size());
    Stream errors(errorBytes_.data(), errorBytes_.size());
    const Console console{output, errors, Style(ColorDepth::None), Style(ColorDepth::None)};
    const ExitStatus status = checkSheets(console, names, asJson, showsProgress);
    output_ = {outputBytes_.data(), static_cast<std::size_t>(output.tellp())};
    errors_ = {errorBytes_.data(), static_cast<std::size_t>(errors.tellp())};
    return status;
  }

  std::string folder_;
  std::vector<char> outputBytes_ = std::vector<char>(1U << 18U);
  std::vector<char> errorBytes_ = std::vector<char>(1U << 18U);
  std::string_view output_;
  std::string_view errors_;
};

void expectLines(std::string_view text, const std::string& expected) {
  std::istringstream lines{std::string(text)};
  std::istringstream wanted(expected);
  std::string line;
  for (std::string want; std::getline(wanted, want);) {
    std::getline(lines, line);
    if (want.ends_with("...")) line = line.substr(0, want.size() - 3) + "...";
    EXPECT_EQ(line, want);
  }
  EXPECT_FALSE(std::getline(lines, line)) << line;
}

TEST_F(Sheets, AreCheckedAsTheTextFileSays) {
  const std::vector<Case> cases = readCases();
  EXPECT_GT(cases.size(), 4U);
  for (auto [status, what, files] : cases) {
    SCOPED_TRACE(what);
    const File errors = files.back().name == "errors" ? files.back() : File{"errors", ""};
    if (files.back().name == "errors") files.pop_back();
    const File output = files.back();
    files.pop_back();
    EXPECT_EQ(check(files), status);
    expectLines(output_, output.content);
    expectLines(errors_, errors.content);
  }
}

TEST_F(Sheets, SayWhereAFileIsNoJsonOrTooDeep) {
  const auto nested = [](std::size_t depth, const std::string& inner) {
    return std::string(depth, '[') + inner + std::string(depth, ']');
  };
  const std::string deepest = R"({"class":"Line","properties":{"Tag":)" + nested(62, "1") + "}}";
  const std::pair<std::string, const char*> kCases[] = {
      {"", "1: column 1: expected a value"},
      {"\n[1,]", "2: column 4: expected a value"},
      {"[1 2]", "1: column 4: expected a comma or ]"},
      {"\r\n{\"a\":1,}", "2: column 8: expected the name"},
      {"{\"a\" 1}", "1: column 6: expected a colon"},
      {"{\"a\":1 \"b\"}", "1: column 8: expected a comma or }"},
      {"[-]", "1: column 3: expected a digit"},
      {"[1.]", "1: column 4: expected a digit"},
      {"[1e+]", "1: column 5: expected a digit"},
      {"[\"\\x\"]", "1: column 4: expected one of"},
      {"[\"\\u12g4\"]", "1: column 7: expected four hexadecimal digits"},
      {"[\"é\n\"]", "1: column 4: expected a closing quote"},
      {"[\"a\xff\"]", "1: column 4: expected a closing quote"},
      {"[\"\xed\xa0\x80\"]", "1: column 3: expected a closing quote"},
      {"[\"a", "1: column 4: expected a closing quote"},
      {"[nul]", "1: column 2: expected a value"},
      {std::string("{}\0", 3), "1: column 3: expected the end of the file"},
      {nested(65, ""), "1: column 65: nested more than 64 deep"},
      {std::string(4'000'000, '['), "1: column 65: nested more than 64 deep"},
      {"{\"a\":" + deepest + "}", "1: column 103: nested more than 64 deep"},
  };
  for (const auto& [content, error] : kCases) {
    EXPECT_EQ(check({{"a", content}}), kNotUnderstood) << content.substr(0, 40);
    EXPECT_THAT(errors_, StartsWith(std::string("vgdt: a:") + error));
    EXPECT_EQ(output_, "{\"objects\":0,\"values\":0,\"refused\":0}\n");
  }
  EXPECT_EQ(check({{"a", deepest}, {"b", "\xEF\xBB\xBF [\t{\"class\":\"Line\"}\r\n]"}}), kRefused);
  EXPECT_THAT(output_, HasSubstr("{\"objects\":2,\"values\":1,\"refused\":1}\n"));
  EXPECT_EQ(check({{"/", ""}, {"/nonexistent/\x1b", ""}}, false), kNotUnderstood);
  EXPECT_EQ(errors_,
            "vgdt: / cannot be read: Is a directory\n"
            "vgdt: /nonexistent/\\x1b cannot be read: No such file or directory\n");
}

TEST_F(Sheets, TellPeopleWhatWasWrong) {
  const File sheet{"a%s.json",
                   R"({"class":"Axes","name":"left\u001b%s","properties":{"Units":"pixles"},
"children":[{"class":"Line","properties":{"Color":"bl","Width":{"literal":"[1 2"}}},{"Class":1}]})"};
  EXPECT_EQ(check({sheet}, false), kRefused);
  for (const char* part :
       {"a%s.json:1: left\\x1b%s.Units (Units)\n"
        "  error       VORTIL:datatypes:InvalidEnumValue\n  message     \"pixles\" is not a value",
        "  given       'pixles'\n  accepted    inches, ", "  did you mean \"pixels\"?\n",
        "a%s.json:2: Line(/children/0).Color (RGBAColor)\n",
        "  ambiguous   between black and blue\n", "ambiguous name: bl\n",
        "  given       [1 2\n                  ^\n  accepted    1 element",
        "a%s.json:2: object(/children/1)\n  error       request\n  message     \"class\" is "
        "missing\n"
        "  given       {\"Class\":1}\n"})
    EXPECT_THAT(errors_, HasSubstr(part));
  EXPECT_EQ(output_, "3 objects, 3 values, 5 refusals\n");
}

TEST_F(Sheets, ShowOnATerminalHowFarALongCheckIs) {
  const std::string large = R"({"class":"Line"})" + std::string(9U << 20U, ' ');
  EXPECT_EQ(check({{"a", large}}, true, true), kDone);
  EXPECT_THAT(errors_, testing::AllOf(HasSubstr("a: 0 % checked\r"), testing::EndsWith(" \r")));
}

TEST_F(Sheets, GiveAChildItsParent) {
  const auto hostCalls = [this](const char* sheet) {
    const std::uint64_t before = vghost::faults::hostCallCount();
    EXPECT_EQ(check({{"a", sheet}}), kDone);
    return vghost::faults::hostCallCount() - before;
  };
  const char* const side = R"([{"class":"Axes"},{"class":"Line"}])";
  static_cast<void>(hostCalls(side));  // and the classes are defined
  EXPECT_GT(hostCalls(R"({"class":"Axes","children":[{"class":"Line"}]})"), hostCalls(side));
}

TEST_F(Sheets, EndInAnErrorWhicheverAllocationFails) {
  const File sheet{"a",
                   R"({"name":"a name that is too long to be short","class":"Axes","properties":
{"Unitz":[["a"]],"Units":"nonesuch of them","Ticks":[1,2],"TickLabels":["a\n","b"],"Margin":{"literal":"[1"},
"Projection":{"literal":"'ortho'"}},"children":[{"class":"TextPrimitive","properties":{"String":"a\u000ab"}}]})"};
  EXPECT_EQ(check({sheet}), kRefused);
  const std::string good(output_);
  const auto met = test::sweep([&](const auto& meet) {
    output_ = errors_ = "";
    std::optional<Failure> failure;
    meet([&] { failure = failureOf([&] { checkFiles({"a"}, true, false); }); });
    const bool isTold = failure || output_ == good || !errors_.empty() ||
                        output_.find("emory") != output_.npos ||
                        output_.find("InjectedFailure") != output_.npos ||
                        output_.find(R"("kind":"other")") != output_.npos;
    EXPECT_TRUE(isTold) << output_;
  });
  EXPECT_GT(met, 60U);
}

}  // namespace
