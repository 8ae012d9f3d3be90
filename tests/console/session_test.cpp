#include "session/SessionLines.h"

#include <graphics/datatype/vgdatatypes.h>
#include <gtest/gtest.h>
#include <ut/memory.h>

#include "session/Completion.h"
#include "support/ChildProcess.h"
#include "support/FailingNew.h"

#include <boost/interprocess/streams/bufferstream.hpp>
#include <fstream>
#include <sstream>

namespace {

using namespace vgdt;

struct Script {
  std::string title;
  std::string lines;
  std::string replies;
};

std::vector<Script> scripts() {
  std::vector<Script> all;
  std::ifstream file(VGDT_SESSIONS);
  for (std::string line; std::getline(file, line);)
    if (line.starts_with("=="))
      all.push_back({line, "", ""});
    else
      (line.starts_with("{\"line\"") ? all.back().replies : all.back().lines) += line + '\n';
  return all;
}

TEST(Session, RepliesToTheLinesOfAScript) {
  ASSERT_EQ(scripts().size(), 4U);
  for (const Script& script : scripts())
    test::inChildProcess([&script] {
      VLInitialize_vgdatatypes();
      std::istringstream input(script.lines);
      std::ostringstream output;
      const Style plain(ColorDepth::None);
      serveSession({output, output, plain, plain}, input, "", true);
      EXPECT_EQ(output.str(), script.replies) << script.title;
    });
}

TEST(Session, DoesAllOfACommandOrNothingWhicheverAllocationFails) {
  VLInitialize_vgdatatypes();
  std::vector<char> bytes(1U << 18U);
  boost::interprocess::obufferstream output(bytes.data(), bytes.size());  // allocates nothing
  JsonWriter writer(output);
  const auto serve = [&](Session& session, std::string_view line) {
    const auto reply = session.serve(line);
    writeSessionReply(writer, 1, *reply);
    return reply->failure ? reply->failure->kind : FailureKind::Other;
  };
  const auto written = [&] {
    const auto count = static_cast<std::size_t>(output.tellp());
    output.seekp(0);
    return std::string(bytes.data(), count);
  };
  for (const char* line :
       {"a_name_that_is_too_long_to_be_short = new Line in a", "gone = new Line in a", "delete a",
        "set b Color [0 0.5 1]", "set b Parent [a b]", "set b Parent gone",
        "set b Tag 'a long text'", "set b Color [0 2 0]", "set b Nonesuch 1", "get b",
        "get f CurrentObject", "objects", "print {a, 'x', [a b; b a]}", "help", "frobnicate",
        "set b Tag ["})
    for (const bool fromThenOn : {false, true}) {
      std::size_t arrays = 0;
      std::size_t blocks = 0;
      std::string good;
      bool isReached = true;
      for (std::uint64_t n = 0; isReached; ++n) {
        {
          Session session;
          for (const char* made : {"f = new Figure", "a = new Axes in f", "b = new Line in a",
                                   "gone = new Light in f", "delete gone", "set f CurrentObject b"})
            session.serve(made);
          const auto state = [&] {
            serve(session, "objects");
            serve(session, "get b");
            return written();
          };
          const std::string before = state();
          const std::uint64_t count = test::newCount();
          // The first time nothing fails, so that what is made once is there.
          if (n != 0) test::failNew(n, fromThenOn);
          const FailureKind failure = serve(session, line);
          test::failNoNew();
          isReached = test::newCount() - count >= n;
          const std::string reply = written();
          if (n == 0) good = reply;
          EXPECT_TRUE(reply == good || reply.find(R"("kind":"memory")") != reply.npos) << reply;
          EXPECT_TRUE(failure != FailureKind::Memory || state() == before) << line << n;
        }
        if (n == 0) {
          arrays = vghost::liveArrays();
          blocks = vghost::liveBlocks();
        }
        EXPECT_EQ(vghost::liveArrays(), arrays) << line << ' ' << n;
        EXPECT_EQ(vghost::liveBlocks(), blocks) << line << ' ' << n;
      }
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
