#include "session/SessionLines.h"

#include <graphics/datatype/vgdatatypes.h>
#include <gtest/gtest.h>

#include "faults/Obstacles.h"
#include "session/Completion.h"
#include "support/ChildProcess.h"

#include <boost/interprocess/streams/bufferstream.hpp>
#include <fstream>
#include <numeric>
#include <sstream>

namespace {

using namespace vgdt;

struct Script {
  std::string title;
  std::string lines;
  std::vector<std::string> replies;  ///< one a line, empty for one that gets none
};

std::vector<Script> scripts() {
  std::vector<Script> all;
  std::ifstream file(VGDT_SESSIONS);
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with("==")) {
      all.push_back({line, "", {}});
      continue;
    }
    auto& [title, lines, replies] = all.back();
    const bool isReply = line.starts_with("{\"ok\"");
    if (!isReply) lines += line + '\n';
    if (!isReply) replies.emplace_back();
    if (line.empty() || line.starts_with('#')) continue;
    const std::string number = "{\"line\":" + std::to_string(replies.size());
    replies.back() = number + ',' + (isReply ? line.substr(1) : "\"ok\":true}") + '\n';
  }
  return all;
}

TEST(Session, RepliesToTheLinesOfAScript) {
  ASSERT_EQ(scripts().size(), 6U);
  for (const Script& script : scripts())
    test::inChildProcess([&script] {
      VLInitialize_vgdatatypes();
      std::istringstream input(script.lines);
      std::ostringstream output;
      const Style plain(ColorDepth::None);
      serveSession({output, output, plain, plain}, input, "", true);
      EXPECT_EQ(output.str(),
                std::accumulate(script.replies.begin(), script.replies.end(), std::string()))
          << script.title;
    });
}

TEST(Session, DoesAllOfACommandOrNothingWhateverFails) {
  VLInitialize_vgdatatypes();
  std::vector<char> bytes(1U << 18U);
  const auto serve = [&](Session& session, std::initializer_list<const char*> lines) {
    boost::interprocess::obufferstream output(bytes.data(), bytes.size());  // allocates nothing
    JsonWriter writer(output);
    for (const char* line : lines)
      writeSessionReply(writer, 1, *session.serve(line));
    return std::string_view(bytes.data(), static_cast<std::size_t>(output.tellp()));
  };
  for (const char* line :
       {"a_name_that_is_too_long_to_be_short = new Line in a", "gone = new Line in a", "delete a",
        "set b Color [0 0.5 1]", "set b Parent [a b]", "set b Parent gone",
        "set b Tag 'a long text'", "set b Color [0 2 0]", "set b Nonesuch 1", "get b",
        "get f CurrentObject", "objects", "print {a, 'x', [a b; b a]}", "help", "frobnicate",
        "set b Tag [", "set b OnPress {@redraw, 1}", "fire b Press [1 2]", "define redraw x"}) {
    std::string good;
    const auto attempt = [&](const auto& meet) {
      Session session;
      serve(session, {"f = new Figure", "a = new Axes in f", "b = new Line in a",
                      "gone = new Light in f", "delete gone", "set f CurrentObject b",
                      "set b OnPress 'print event, fire f Press'", "set f OnPress 'get a Tag'"});
      const std::string before(serve(session, {"objects", "get b"}));
      std::string_view reply;
      meet([&] { reply = serve(session, {line}); });
      if (good.empty()) good = reply;
      if (reply == good) return;
      const bool isTold = reply.find(R"("error":{"kind")") != reply.npos ||
                          reply.find(R"({"report":)") != reply.npos;
      EXPECT_TRUE(isTold) << reply;
      EXPECT_EQ(serve(session, {"objects", "get b"}), before) << line;
    };
    attempt([](const auto& work) { work(); });
    test::sweep(attempt);
  }
}

TEST(Session, CompletesWordsByTheirPlace) {
  VLInitialize_vgdatatypes();
  Session session;
  for (const char* line : {"fig = new Figure", "line = new Line in fig"})
    session.serve(line);
  const std::pair<const char*, std::vector<std::string>> kCases[] = {
      {"  ob", {"object", "objects"}},
      {"x ", {"="}},
      {"x = ", {"new"}},
      {"x=new Fi", {"Figure"}},
      {"x = new Figure in r", {"root"}},
      {"get f", {"fig"}},
      {"number ", {"fig"}},
      {"set line Co", {"Color"}},
      {"fire line P", {"Press"}},
      {"set nobody Co", {}},
      {"set line LineStyle n", {"none"}},
      {"set line Parent [root, f", {"fig"}},
      {"track ", {"off", "on"}},
      {"get fig Color ", {}},
      {"get # f", {}},
  };
  for (const auto& [line, words] : kCases)
    EXPECT_EQ(completionOf(session, line).words, words) << line;
  EXPECT_EQ(completionOf(session, "get f").begin, 4U);
  EXPECT_EQ(commonBeginning({"object", "objects"}), "object");
}

}  // namespace
