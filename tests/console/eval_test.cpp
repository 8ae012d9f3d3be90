#include <gmock/gmock.h>
#include <graphics/datatype/ColorNameTable.h>
#include <graphics/datatype/vgdatatypes.h>
#include <messages/ustring.h>

#include "ProbeType.h"
#include "commands/Commands.h"
#include "requests/Eval.h"
#include "support/FailingNew.h"
#include "text/ColorPage.h"
#include "text/Examples.h"

#include <boost/interprocess/streams/bufferstream.hpp>
#include <cmath>
#include <nlohmann/json.hpp>
#include <random>
#include <sstream>

namespace {

using namespace vgdt;
using namespace std::string_literals;
using graphics::datatype::ColorNameTable;
using testing::HasSubstr;
using testing::StartsWith;

#define ON                                                    \
  R"({"null":false,"word":"0x0000000000000001","text":"on",)" \
  R"("array":{"class":"char","dims":[1,2],"rows":["on"]}})"
#define OFF                                                    \
  R"({"null":false,"word":"0x0000000000000000","text":"off",)" \
  R"("array":{"class":"char","dims":[1,3],"rows":["off"]}})"

constexpr auto kText = GivenValue::Route::Text;
constexpr auto kArray = GivenValue::Route::Array;

class Eval : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    VLInitialize_vgdatatypes();
    [[maybe_unused]] static const bool isDone = (test::registerProbe(), true);
  }

  std::string replyTo(const std::string& line) {
    const auto replies = repliesTo(line);
    EXPECT_EQ(replies.size(), 1U) << line;
    return replies.empty() ? "" : replies.front();
  }

  std::vector<std::string> repliesTo(const std::string& lines) {
    std::istringstream input(lines);
    std::stringstream output;
    status_ = evaluateLines(input, output);
    std::vector<std::string> replies;
    for (std::string line; std::getline(output, line);)
      replies.push_back(line);
    return replies;
  }

  void expectRefusedAndTheNextServed(const std::string& line, const std::string& beginning,
                                     const std::string& problem) {
    const auto replies = repliesTo(line + "\n \t\r\n\n" + R"({"type":"on_off","text":"on"})");
    ASSERT_EQ(replies.size(), 2U) << line.substr(0, 40);
    EXPECT_THAT(replies[0],
                StartsWith(beginning + R"("ok":false,"error":{"kind":"request","id":"",)"));
    EXPECT_THAT(replies[0], HasSubstr(problem));
    EXPECT_EQ(replies[1], R"({"ok":true,"value":)" ON "}");
    EXPECT_EQ(status_, kNotUnderstood);
  }

  static void expectRefusal(const char* type, const GivenValue& given, const char* words) {
    std::ostringstream output;
    const Console console{output, output, Style(ColorDepth::None), Style(ColorDepth::None)};
    EXPECT_EQ(convertValue(console, type, given, {}), kRefused) << type << ' ' << given.content;
    EXPECT_THAT(output.str(), HasSubstr(words)) << type << ' ' << given.content;
  }

  ExitStatus status_ = kDone;
};

TEST_F(Eval, AnswersEachRouteWithTheValue) {
  const std::pair<const char*, const char*> kCases[] = {
      {R"({"id":1,"type":"on_off","text":"oN"})", R"({"id":1,"ok":true,"value":)" ON "}"},
      {R"({"type":"on_off","array":"'OF'"})", R"({"ok":true,"value":)" OFF "}"},
      {R"({"op":"value","type":"on_off","word":"default"})", R"({"ok":true,"value":)" OFF "}"},
      {R"({"type":"on_off","word":"null","java":false})", R"({"ok":true,"value":)" OFF "}"},
      {R"({"text":"on","type":"bool","id":null})",
       R"({"id":null,"ok":true,"value":)"
       R"({"null":false,"word":"0x0000000000000001","text":"on","array":null}})"},
      {R"({"type":"AxisClipping","text":" 3D","equals":{"array":"'3'"}})",
       R"({"ok":true,"value":{"null":false,"text":"3d",)"
       R"("array":{"class":"char","dims":[1,2],"rows":["3d"]}},"equal":true,"compare":0})"},
      {R"({"type":"TickDir","word":"null","equals":{"word":"default"}})",
       R"({"ok":true,"value":{"null":true,"text":null,)"
       R"("array":{"class":"char","dims":[0,0],"rows":[]}},"equal":false,"compare":2})"},
      {R"({"type":"single","text":"0.1"})",
       R"({"ok":true,"value":{"null":false,"word":"0x3fb99999a0000000",)"
       R"("text":"0.100000001","array":null}})"},
      {R"({"type":"string","text":" a "})",
       R"({"ok":true,"value":{"null":false,"text":" a ","array":null}})"},
      {R"({"type":"Probe","word":"default"})",
       R"({"ok":true,"value":{"null":false,"text":"default",)"
       R"("array":{"class":"char","dims":[1,7],"rows":["default"]}}})"},
      {R"({"type":"Probe","word":"null"})",
       R"({"ok":true,"value":{"null":true,"text":null,"array":null}})"},
      {R"({"type":"on_off","word":"default","equals":{"text":"on"}})",
       R"({"ok":true,"value":)" OFF R"(,"equal":false,"compare":-1})"},
  };
  for (const auto& [request, reply] : kCases)
    EXPECT_EQ(replyTo(request), reply) << request;
  EXPECT_EQ(status_, kDone);
}

TEST_F(Eval, NamesTheKindOfEveryFailure) {
  const std::pair<const char*, const char*> kCases[] = {
      {R"("type":"on_off","text":"maybe")",
       R"("host","id":"VORTIL:datatypes:onoffboolean:UnknownOnOffBooleanValue",)"},
      {R"("type":"on_off","array":"1:1e18")", R"("host","id":"VORTIL:array:SizeLimitExceeded",)"},
      {R"("type":"on_off","text":"on","equals":{"array":"1"})",
       R"("host","id":"VORTIL:datatypes:onoffboolean:IncorrectValue",)"},
      {R"("type":"Probe","text":"!host")", "\"host\",\"id\":\"A:b\",\"message\":\"text \uFFFD\"}}"},
      {R"("type":"Probe","array":"'!parse'")", R"("parse","id":"","message":""}})"},
      {R"("type":"Probe","text":"!invalid")",
       R"("invalid-value","id":"C:d","message":"out of range"}})"},
      {R"("type":"Probe","text":"!cosmemory")", R"("memory",)"},
      {R"("type":"Probe","text":"!hostmemory")", R"("memory",)"},
      {R"("type":"Probe","text":"!new")", R"("memory",)"},
      {R"("type":"Probe","text":"!standard")", R"("other","id":"","message":"what it says"}})"},
      {R"("type":"Probe","text":"!number")", R"("other","id":"","message":""}})"},
      {R"("op":"units","what":"height","from":"in","to":"p","value":1)",
       R"("host","id":"VORTIL:datatypes:InvalidEnumValue","message":"\"p\" is not a value of)"},
      {R"("op":"units","what":"position","from":"in","to":"in","value":[0,0,-1,1])",
       R"("other","id":"","message":"negative width or height of a rectangle"}})"},
      {R"("op":"units","what":"inset","from":"in","to":"pix","value":[-1,0,1,1])",
       R"("other","id":"","message":"negative margin"}})"},
  };
  for (const auto& [members, failure] : kCases) {
    EXPECT_THAT(replyTo(std::string(R"({"id":"x",)") + members + "}"),
                StartsWith(std::string(R"({"id":"x","ok":false,"error":{"kind":)") + failure));
    EXPECT_EQ(status_, kRefused) << members;
  }
}

TEST_F(Eval, ShowsTheErrorOfAConversionBackInItsMember) {
  EXPECT_EQ(replyTo(R"({"type":"Probe","text":"!to"})"),
            R"({"ok":true,"value":{"null":false,)"
            R"("text":{"error":{"kind":"host","id":"E:f","message":"no text"}},)"
            R"("array":{"error":{"kind":"memory","id":"","message":"out of memory"}}}})");
  EXPECT_THAT(replyTo(R"-({"type":"ColorMap","array":"cell(1,0)"})-"),
              HasSubstr(R"("text":{"error":{"kind":"other","id":"","message":""}},)"));
  EXPECT_EQ(status_, kDone);
}

TEST_F(Eval, SendsAValueToJavaAndBackAndShowsTheErrorOfEachStepInItsMember) {
  const std::pair<const char*, const char*> kCases[] = {
      {R"("type":"Position","array":"[1 2 3 4]","equals":{"word":"null"})",
       R"("compare":2,"java":{"class":"com.lindgrove.vg.types.VGRectangle",)"
       R"("text":"VGRectangle[x=1.0, y=2.0, width=3.0, height=4.0]",)"
       R"("array":{"class":"double","dims":[1,4],"data":[1,2,3,4]}}})"},
      {R"("type":"on_off","text":"on")",
       R"("java":{"class":"java.lang.Boolean","text":"true",)"
       R"("array":{"class":"char","dims":[1,2],"rows":["on"]}}})"},
      {R"-("type":"UTF16String","array":"char([233 0 55357 56832 55357])")-",
       R"("class":"java.lang.String","text":"é\u0000)"
       "\U0001F600\uFFFD\",\"array\":"},
      {R"("type":"NStrings","array":"{'a';'b'}")",
       R"("java":{"class":"java.lang.String[]","text":"[a, b]","array":{"class":"cell",)"},
      {R"("type":"Tick","array":"[0 0.5]")",
       R"("java":{"class":"double[]","text":"[0.0, 0.5]","array":{"class":"double","dims":[1,2],)"},
      {R"("type":"RGBAColor","text":"none")",
       R"("java":{"class":null,"text":null,"array":{"class":"char","dims":[1,4],"rows":["none"])"},
      {R"("type":"Position","word":"null")",
       R"("java":{"class":null,"text":null,"array":{"error":{"kind":"host","id":)"
       R"("VORTIL:class:JavaConversionError","message":"Input parameter for Position must not )"},
      {R"-("type":"TickLength","array":"int8([1 2])")-",
       R"("java":{"error":{"kind":"host","id":"VORTIL:class:JavaConversionError","message":")"},
  };
  for (const auto& [members, java] : kCases) {
    EXPECT_THAT(replyTo(std::string(R"({"java":true,)") + members + "}"), HasSubstr(java));
    EXPECT_EQ(status_, kDone) << members;
  }
}

TEST_F(Eval, PassesOnWhatIsPrintedAndWarnedOf) {
  EXPECT_THAT(replyTo(R"({"type":"Probe","text":"!talk"})"),
              HasSubstr(R"("rows":["!talk"]}},"console":["first","second"]})"));
  EXPECT_THAT(replyTo(R"({"type":"Probe","text":"!warn"})"),
              HasSubstr(R"("warnings":[{"id":"VORTIL:array:SizeLimitExceeded","message":")"));
  EXPECT_THAT(replyTo(R"({"type":"Probe","text":"quiet"})"), Not(HasSubstr("console")));
  std::ostringstream output;
  std::ostringstream errors;
  const Console console{output, errors, Style(ColorDepth::None), Style(ColorDepth::None)};
  EXPECT_EQ(convertValue(console, "Probe", {kText, "!talk"}, {}), kDone);
  EXPECT_EQ(errors.str(), "  console     first\n              second\n");
}

TEST_F(Eval, ConvertsBetweenUnitsWhoseNamesMayBeAbbreviated) {
  const std::pair<const char*, const char*> kCases[] = {
      {R"("what":"position","from":"inches","to":" PIX","value":[1,1.5,2,0],"ppi":96)",
       "[96,144,192,0]"},
      {R"("what":"position","from":"pixels","to":"normalized","value":[1,2,3,4])", "[0,0,1,1]"},
      {R"("what":"position","from":"pix","to":"inc","value":[1,1,72,144],"origin":1,"ppi":-1)",
       "[0,0,1,2]"},
      {R"("what":"point","from":"norm","to":"pix","value":[0.5,2],"reference":[9,9,200,100],)"
       R"("origin":1)",
       "[101,201]"},
      {R"("what":"point","from":"pix","to":"characters","value":[3,0])", R"(["Inf","NaN"])"},
      {R"("what":"point","from":"pix","to":"pix","value":["-Inf","NaN"],"origin":1)",
       R"(["-Inf","NaN"])"},
      {R"("what":"height","from":"ch","to":"poi","value":[2],"char":[5,10],"origin":"Inf")",
       "[20]"},
      {R"("what":"height","from":"inc","to":"cent","value":-2)", "[-5.08]"},
      {R"("what":"inset","from":"pix","to":"norm","value":[1,2,3,4],"origin":"NaN")", "[0,0,1,1]"},
      {R"("what":"inset","from":"poi","to":"char","value":[1,2,3,4],"char":[0.5,2])", "[2,1,6,2]"},
  };
  for (const auto& [members, result] : kCases)
    EXPECT_EQ(replyTo(std::string(R"({"id":1,"op":"units",)") + members + "}"),
              std::string(R"({"id":1,"ok":true,"result":)") + result + "}");
}

TEST_F(Eval, DescribesATypeWithEverythingTheClassSystemKnowsAndListsTheTypes) {
  EXPECT_EQ(replyTo(R"({"id":[1],"op":"describe","type":"on_off"})"),
            R"({"id":[1],"ok":true,"type":{"name":"on_off",)"
            R"("dottedName":"vortil.graphics.datatype.on_off","declarationName":"char",)"
            R"("category":"Fundamental","storageType":0,"sizeInBits":8,"valueSizeInBytes":1,)"
            R"("possibleValuesDescription":"on/off","finite":true,)"
            R"("possibleValues":["on","off"],"default":)" OFF "}}");
  EXPECT_THAT(replyTo(R"({"op":"describe","type":"Probe"})"),
              HasSubstr(R"("possibleValuesDescription":null,"finite":false,"possibleValues":[],)"));
  EXPECT_THAT(replyTo(R"({"op":"types"})"), testing::MatchesRegex(R"(.*"on_off".*"Probe".*)"))
      << "by name whatever the case";
}

TEST_F(Eval, FindsTwoOrThreeValuesThatATypeTakesAndAsManyThatItRefuses) {
  const std::set<std::string> takeEveryArray = {"ColorTable", "COSInterface", "JavaPeer"};
  for (const Type& type : libraryTypes()) {
    if (type.name == "Probe") continue;  // takes nearly everything
    const Examples examples = findExamples(type);
    const auto isTwoOrThree = testing::AllOf(testing::Ge(2U), testing::Le(3U));
    EXPECT_THAT(examples.taken.size(), isTwoOrThree) << type.name;
    if (takeEveryArray.contains(type.name))
      EXPECT_TRUE(examples.refused.empty()) << type.name;
    else
      EXPECT_THAT(examples.refused.size(), isTwoOrThree) << type.name;
  }
}

TEST_F(Eval, RefusesARequestThatIsWrongAndServesTheNext) {
  const std::string on = R"("type":"on_off","text":"on")";
  const std::string units = R"("op":"units","from":"in","to":"pix")";
  const std::string point = units + R"(,"what":"point")";
  const std::string tooDeep = std::string(64, '[') + std::string(64, ']');
  // What the reply says of the requests that have these members beside the "id".
  const std::pair<const char*, std::vector<std::string>> kMembers[] = {
      {"type", {R"("text":"on")", R"("type":5,"text":"on")"}},
      {R"(did you mean \"on_off\"?)", {R"("type":"onoff","text":"on")"}},
      {"no text form", {R"("type":"any","text":"on")"}},
      {"no type", {R"("type":"on_off\u0000")", R"("type":"vortil.graphics.datatype.on_off")"}},
      {"exactly one",
       {R"("type":"on_off")", on + R"(,"word":"null")", on + R"(,"equals":{"type":"on_off"})"}},
      {"string", {R"("type":"on_off","text":null)"}},
      {"NUL", {R"("type":"on_off","text":"on\u0000")"}},
      {"default", {R"("type":"on_off","word":"other")"}},
      {"column 5", {R"("type":"on_off","array":"[1 2")", R"("type":"on_off","array":"'é' x")"}},
      {"equals",
       {on + R"(,"equals":"on")", on + R"(,"equals":{})",
        on + R"(,"equals":{"text":"on","word":"null"})"}},
      {"scalar",
       {R"("type":"bool","array":"'on'")", R"("type":"bool","word":"default")",
        R"("type":"bool","text":"on","equals":{"text":"on"})"}},
      {"no Java form", {R"("type":"bool","text":"on","java":true)"}},
      {"java", {on + R"(,"java":1)"}},
      {"the ops are value, describe, types", {R"("op":"colour","name":"red")"}},
      {"op", {R"("op":["types"])"}},
      {"are id, op, name", {R"("op":"color","type":"x")", R"("op":"color","name":"b","text":"")"}},
      {R"(\"name\")", {R"("op":"color","name":null)", R"("op":"color","name":"b\u0000")"}},
      {"what", {R"("op":"units")", units + R"(,"what":"length")", units + R"(,"what":1)"}},
      {"from", {R"("op":"units","what":"height")", point + R"(,"form":"in")"}},
      {R"(\"value\" is missing)", {point}},
      {R"(\"value\" has to be a list of 2 numbers: x and y)",
       {point + R"(,"value":1)", point + R"(,"value":[1])", point + R"(,"value":{"a":1})"}},
      {R"(element 2 of \"value\" has to be a number, or \"NaN\")",
       {point + R"(,"value":[1,"nan"])", point + R"(,"value":[1,true])"}},
      {R"(\"value\" has to be one number)", {units + R"(,"what":"height","value":[])"}},
      {R"(\"ppi\" has to be a number)", {point + R"(,"value":[1,2],"ppi":[96])"}},
      {R"(\"reference\" has to be a list of 4)", {point + R"(,"value":[1,2],"reference":[1])"}},
      {R"(\"char\" has to be a list of 2)", {point + R"(,"value":[1,2],"char":[1,2,3])"}},
      {"Text", {on + R"(,"Text":"on")"}},
      {"twice", {on + R"(,"text":"on")", R"("type":"on_off","text":{"a":1,"b":{},"a":2})"}},
      {"64", {R"("type":"on_off","text":)" + tooDeep}},
  };
  for (const auto& [problem, requests] : kMembers)
    for (const std::string& members : requests)
      expectRefusedAndTheNextServed(R"({"id":7,)" + members + "}", R"({"id":7,)", problem);
}

TEST_F(Eval, RefusesALineThatIsNoRequestAndServesTheNext) {
  for (const std::string& line :
       {"nonsense"s, "[1]"s, "\"on\""s, "null"s, R"({"id":7)"s, R"({"id":7,})"s, R"({"id":1e999})"s,
        "{\"id\":\"\xff\"}"s, "{\"id\":\"\xed\xa0\x80\"}"s, R"({"id":7} {})"s,
        "{\"op\":\"types\"}\0"s, "{\"op\":\"types\"}\0{}"s,
        // Depth must cost no stack and no more than the length's worth of time.
        std::string(4000000, '['), "{\"a\":" + std::string(1000000, '{')})
    expectRefusedAndTheNextServed(line, "{", "");
}

TEST_F(Eval, TakesLinesAsLongAndJsonAsDeepAsTheLimit) {
  const std::string request = R"({"type":"on_off","text":"on"})";
  constexpr std::size_t kLongest = 8U << 20U;
  const std::string line = request + std::string(kLongest - request.size(), ' ');
  EXPECT_EQ(repliesTo(line + '\n' + line).size(), 2U);
  EXPECT_EQ(status_, kDone);
  expectRefusedAndTheNextServed(line + std::string(2U << 20U, 'x'), "{", "8 MiB");
  expectRefusedAndTheNextServed(line + ' ', "{", "8 MiB");
  const std::string id = std::string(63, '[') + std::string(63, ']');
  EXPECT_THAT(replyTo(R"({"id":)" + id + R"(,"type":"on_off","text":"on"})"),
              StartsWith(R"({"id":)" + id + R"(,"ok":true,)"));
}

TEST_F(Eval, EndsWhatItMadeAndSaysThatMemoryHasRunOutWhicheverAllocationFails) {
  std::vector<char> bytes(1U << 18U);
  boost::interprocess::obufferstream output(bytes.data(), bytes.size());  // allocates nothing
  JsonWriter writer(output);
  const auto newsOfWriting = [&](const std::string& line) {
    const Served served = serveLine(line);
    const std::uint64_t before = test::newCount();
    writeReply(writer, served.request, served.reply);
    return test::newCount() - before;
  };
  const auto written = [&] {
    const auto count = static_cast<std::size_t>(output.tellp());
    output.seekp(0);
    return std::string(bytes.data(), count);
  };
  for (const std::string line :
       {R"({"id":[{"a":1},2],"type":"Probe","text":"long enough for the heap","equals":)"
        R"({"array":"['a';'b']"}})",
        R"({"type":"Probe","text":"a","equals":{"text":"!parse"}})",
        R"({"type":"Probe","word":"default","equals":{"word":"null"}})",
        R"({"type":"Probe","text":"!leave"})", R"({"type":"Probe","text":"!talk"})",
        R"({"op":"describe","type":"Probe","id":"a text that is too long to be short"})",
        R"-({"type":"NumericMatrix","array":"reshape([1:90 ones(1,9910)],100,100)"})-",
        R"-({"type":"NumericMatrix","array":"{1,'a',struct('b',{true})}"})-", R"({"op":"color"})",
        R"({"op":"color","name":"bl"})", R"({"op":"describe","type":"MarkerStyle"})",
        R"({"type":"Units","array":"'nonesuch'"})", R"({"type":"nonesuch","text":""})",
        R"({"type":"Position","array":"[1 2 3 4]","java":true})", R"({"id":{"b":[1,2],"a":[[]]}})",
        R"({"op":"units","what":"inset","from":"in","to":"pix","value":[1,2,3,"Inf"]})"}) {
    EXPECT_EQ(newsOfWriting(line), 0U) << line;
    const std::string good = written();
    const std::size_t arrays = vghost::liveArrays();
    const std::size_t blocks = vghost::liveBlocks();
    for (const bool fromThenOn : {false, true}) {
      bool isReached = true;
      for (std::uint64_t n = 1; isReached; ++n) {
        const std::uint64_t before = test::newCount();
        test::failNew(n, fromThenOn);
        newsOfWriting(line);
        test::failNoNew();
        isReached = test::newCount() - before >= n;
        EXPECT_THAT(written(), testing::AnyOf(good, HasSubstr(R"("kind":"memory")"))) << line;
      }
    }
    EXPECT_EQ(vghost::liveArrays(), arrays) << line;
    EXPECT_EQ(vghost::liveBlocks(), blocks) << line;
  }
}

TEST_F(Eval, WritesTextsOfAnyLengthAndAnyBytes) {
  const auto writtenAs = [](auto... text) {
    std::ostringstream output;
    JsonWriter writer(output);
    writer.text(text...);
    writer.flush();
    return output.str();
  };
  // Every place of a character relative to the end of a buffer.
  for (std::size_t shift = 0; shift < 8; ++shift) {
    std::string text(shift, 'x');
    for (int i = 0; i < 5000; ++i)
      text += "\U0001F600é";
    EXPECT_EQ(writtenAs(std::string_view(text)), '"' + text + '"');
    const fl::ustring units = fl::i18n::to_ustring(text);
    EXPECT_EQ(writtenAs(units.data(), units.size(), std::size_t{1}), '"' + text + '"');
  }
  constexpr std::string_view kBytes =
      "A\"\\\x01\n\x7f\x80\x9f\xa0\xbf\xc1\xc3\xe0\xed\xef\xf0\xf4\xf5";
  std::minstd_rand random(1);
  for (int i = 0; i < 3000; ++i) {
    std::string text;
    while (random() % 8 != 0)
      text += kBytes[random() % kBytes.size()];
    EXPECT_EQ(writtenAs(std::string_view(text)),
              nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace));
  }
}

class Colors : public Eval {
 protected:
  void SetUp() override {
    replyTo(R"-({"type":"ColorTable","array":"struct('Pink',[1 0.5 0],'hot',[1 2 0 4])"})-");
    ColorNameTable& table = *ColorNameTable::getInstance();
    table.addNamedColor("a<%s\"é", NAN, -INFINITY, 0.5, true);
    table.addNamedColor("navy", 0, 0, 0.5, true);
  }
  void TearDown() override { ColorNameTable::getInstance()->reset(); }
};

TEST_F(Colors, AreLookedUpAndListedWhateverTheirNamesAndNumbers) {
  const std::pair<const char*, const char*> kCases[] = {
      {R"({"op":"color","name":"RE","id":2})",
       R"({"id":2,"ok":true,"inTable":true,"rgb":[1,0,0]})"},
      {R"({"op":"color","name":"A<%S\"é"})",
       R"({"ok":true,"inTable":true,"rgb":["NaN","-Inf",0.5]})"},
      {R"({"op":"color","name":"Pink"})", R"({"ok":true,"inTable":false,"missing":true})"},
      {R"({"op":"color","name":" red"})", R"({"ok":true,"inTable":false,"missing":true})"},
      {R"({"op":"color","name":"bl"})",
       R"({"ok":true,"inTable":true,"ambiguous":true,"console":["graphics::datatype::)"
       R"(ColorNameTable::getColorValue ambiguous name: bl"]})"},
  };
  for (const auto& [request, reply] : kCases)
    EXPECT_EQ(replyTo(request), reply);
  EXPECT_THAT(replyTo(R"({"op":"color"})"),
              StartsWith(R"({"ok":true,"colors":[{"name":"Pink","rgb":[1,0.5,0]},)"
                         R"({"name":"a<%s\"é","rgb":["NaN","-Inf",0.5]},{"name":"b","rgb":)"));
  std::ostringstream page;
  writeColorPage(page, ColorNameTable::getInstance()->getColorMap());
  EXPECT_THAT(page.str(), testing::AllOf(HasSubstr("undrawn\"></span><span class=\"words\"><bdi>"
                                                   "a&lt;%s\"é</bdi><code>[NaN -Inf 0.5]"),
                                         HasSubstr("background: #ff8000\"></span>")));
}

TEST_F(Colors, AreRefusedWithWhatWasWrong) {
  const std::pair<std::vector<GivenValue>, const char*> kCases[] = {
      {{{kArray, "[1 2 0]"}, {kText, "[1 2 0]"}}, "refused     green is 2; a channel is a number"},
      {{{kText, "[0 0 0 NaN]"}, {kArray, "[0 0 0 NaN]"}}, "refused     alpha is NaN; a channel"},
      {{{kText, "hot"}, {kArray, "'HO'"}}, "the colour name \"hot\": green is 2; a channel"},
      {{{kArray, "[1 0]"}}, "refused     it has 2 elements, not 3 or 4\n"},
      {{{kText, "[1 0]"}}, "refused     its size is 1-by-2, not 1-by-3 or 1-by-4\n"},
      {{{kText, "1 0 0"}}, "numbers stand in brackets\n"},
      {{{kText, "[1 0 0"}}, "the brackets do not hold rows of numbers\n"},
      {{{kArray, "{1,0}"}},
       "its class is cell, not double, logical or char\n              it has 2"},
      {{{kText, "bl"}}, "ambiguous   between black and blue\n"},
      {{{kText, "N"}}, "ambiguous   between the style none and navy\n"},
      {{{kText, "gren"}, {kText, " green "}, {kArray, "'grene'"}}, "did you mean \"green\"?"},
      {{{kText, "nonne"}}, "did you mean \"none\"?"},
      {{{kText, "PINK"}}, "no text finds a name with capitals"},
      {{{kText, "col"}}, "the word \"color\" stands for numbers"},
      {{{kText, ""}, {kText, " \t"}, {kArray, "''"}, {kArray, "char(0)"}}, "the text is empty\n"},
  };
  for (const auto& [values, words] : kCases)
    for (const GivenValue& given : values)
      expectRefusal("RGBAColor", given, words);
  const std::tuple<const char*, const char*, const char*> kOthers[] = {
      {"MarkerColor", "single([0 0.5 1.1])", "blue is 1.1; a channel"},
      {"MarkerColor", "true", "its class is logical, not numeric or char"},
      {"MarkerColor", "uint8([1 2 3 4])", "it has 4 elements, not 3\n"},
      {"MeshColor", "'texturmap'", "did you mean \"texturemap\"?"},
      {"MeshAlpha", "uint8(2)", "alpha is 2; it is a number from 0 to 1\n"},
      {"MeshAlpha", "'-0.5x'", "alpha is -0.5; it is"},
      {"MeshAlpha", "'AL'", "the word \"alpha\" stands for numbers"},
      {"MeshAlpha", "'interpp'", "did you mean \"interp\"?"},
  };
  for (const auto& [type, literal, words] : kOthers)
    expectRefusal(type, {kArray, literal}, words);
}

TEST_F(Eval, ExplainsWhatTheTypesOfGeometryRefuseByTheFirstTestThatDoesNotHold) {
  const std::tuple<const char*, GivenValue, const char*> kCases[] = {
      {"Position",
       {kArray, "'ab'"},
       "its class is char, not numeric\n              its size is 1-by"},
      {"Position",
       {kArray, "[1 2; 3 NaN]"},
       "refused     its size is 2-by-2, not 1-by-4 or 4-by-1\n"},
      {"Position", {kArray, "[NaN 0 -1 1]"}, "refused     width is -1; it is a number from 0 upw"},
      {"Position",
       {kArray, "single([0 NaN Inf 1])"},
       "refused     y is NaN; it is a finite number\n"},
      {"Position",
       {kText, "[NaN 0 NaN -0.5]"},
       "height is -0.5; it is a number from 0 upwards, or"},
      {"ScreenPosition", {kArray, "[0 0 1 1]"}, "its class is double, not an integer class\n"},
      {"ScreenPosition", {kArray, "int64([0 0 -4294967296 1])"}, "width is -4294967296; it is a"},
      {"ScreenPosition",
       {kArray, "uint32([0; 0; 4294967295; 1])"},
       "width is 4294967295, as a 32-bit integer -1; it is a number from 0 upwards"},
      {"ScreenPosition",
       {kText, "[0 0 -0.9 NaN]"},
       "height is NaN, as a 32-bit integer -2147483648;"},
      {"Point2", {kArray, "[1 2 3]"}, "refused     it has 3 elements, not 2\n"},
      {"Point2", {kText, "1 2"}, "refused     numbers stand in brackets\n"},
      {"Point2d", {kText, "[1 2 3]"}, "refused     its size is 1-by-3, not 1-by-2\n"},
      {"Point3", {kText, "point"}, "refused     it is no list of numbers in brackets\n"},
      {"PositivePoint3", {kArray, "int8([1 0 2])"}, "y is 0; it is a finite number above 0"},
      {"Rectangle2", {kArray, "[0 0 -0.5 -1.5]"}, "height is -1.5, as a 32-bit integer -1; it is"},
      {"Inset", {kArray, "[1;2;3;4]"}, "its size is 4-by-1, not 1-by-4\n"},
      {"Inset", {kText, "[0 NaN -1 0]"}, "right is -1; it is a number from 0 upwards, or NaN\n"},
      {"BoundingVolume", {kArray, "[0 1 0; 0 -1 0]"}, "the width along y is -2, from 1 to -1; it"},
      {"BoundingVolume",
       {kText, "[0 1 Inf; 0 1 Inf]"},
       "the width along z is NaN, from Inf to Inf"},
      {"Matrix4x4",
       {kArray, "{}"},
       "its class is cell, not numeric\n              its size is 0-by-0, "},
      {"Matrix4x4", {kArray, "zeros(4,2,2)"}, "its size is 4-by-2-by-2, not 4-by-4\n"},
      {"Matrix4x4", {kText, ""}, "the text is empty\n"},
      {"Positive", {kText, "-Inf"}, "the number is -Inf; it is a finite number above 0\n"},
      {"Positive", {kText, "one"}, "refused     it is no number\n"},
      {"Positive", {kText, "1 2"}, "its size is 1-by-2, not 1-by-1\n"},
      {"LightingStrength", {kArray, "2"}, "the number is 2; it is a number from 0 to 1\n"},
  };
  for (const auto& [type, given, words] : kCases)
    expectRefusal(type, given, words);
}

TEST_F(Eval, ExplainsWhichCellOrStyleTheTypesOfTextsRefuse) {
  const std::tuple<const char*, GivenValue, const char*> kCases[] = {
      {"UTF16String", {kArray, "['ab';'cd']"}, "refused     it has 2 rows, not 1; each"},
      {"CaseInsensitiveString", {kArray, "{'a'}"}, "its class is cell, not char\n"},
      {"NStrings", {kArray, "{'a', 'b'; 1, 'c'}"}, "cell 2, at (2,1), is of class double, not"},
      {"NStrings", {kArray, "@f"}, "its class is function_handle, not char or cell\n"},
      {"TextString", {kArray, "{'a','b'}"}, "its size is 1-by-2, not n-by-1\n"},
      {"TextString", {kArray, "reshape('ab',1,1,2)"}, "its size is 1-by-1-by-2, not m-by-n\n"},
      {"TextString", {kArray, "{'a';reshape('ab',1,1,2);1}"}, "cell 2: its size is 1-by-1-by-2,"},
      {"TextString", {kArray, "{'a';{}}"}, "refused     cell 2 is of class cell, not char\n"},
      {"NumericOrString", {kArray, "{1,'a';@f,true}"}, "cell 2, at (2,1), is of class function_"},
      {"NumericOrString", {kArray, "cell(2,1)"}, "cell 1 is null, not char or numeric\n"},
      {"NumericOrString", {kArray, "logical([])"}, "is logical, not char, numeric or cell\n"},
      {"FontName", {kArray, "['a';'b']"}, "refused     its size is 2-by-1, not 1-by-n\n"},
      {"FontName", {kArray, "{}"}, "its class is cell, not char\n              it is empty\n"},
      {"FontName", {kArray, "char([0 65])"}, "it begins with a NUL, which ends a name\n"},
      {"NLineStyles", {kArray, "[]"}, "its class is double, not char or cell\n"},
      {"NLineStyles", {kArray, "{}"}, "refused     it is empty\n"},
      {"NLineStyles", {kArray, "{'-o',1}"}, "cell 2 is of class double, not char\n"},
      {"NLineStyles", {kArray, "{'-','-';'r--',1}"}, "cell 2, at (2,1), \"r--\" has the colour"},
      {"NLineStyles", {kText, "{'-','ok'}"}, "cell 2 \"ok\" has the colour \"k\", and styles"},
      {"NLineStyles", {kText, "-|---"}, "style 2 \"---\" has two line styles, \"--\" and \"-\"\n"},
      {"NLineStyles", {kArray, "'squareo'"}, "has two markers, \"square\" and \"o\"\n"},
      {"NLineStyles", {kArray, "'-||--'"}, "style 2 is empty: one stands on each side of a \"|\""},
      {"NLineStyles", {kArray, "['- ';'--']"}, "row 1 \"- \" ends in a blank, and blanks are no "},
      {"NLineStyles", {kArray, "['- ';'--']"}, "of a style; styles of different lengths go into"},
      {"NLineStyles", {kArray, "'-|- o'"}, "style 2 \"- o\" has a blank, and"},
      {"NLineStyles", {kArray, "{'-|--'}"}, "cell 1 \"-|--\" has a \"|\", which stands between"},
      {"NLineStyles", {kArray, "'-dash'"}, "has \"ash\", which begins with no line style and no"},
      {"NLineStyles", {kText, "{'-', --}"}, "it is no list either, whose styles stand in quotes"},
  };
  for (const auto& [type, given, words] : kCases)
    expectRefusal(type, given, words);
}

TEST_F(Eval, ReportsTheWorstOutcomeInTheStatus) {
  EXPECT_TRUE(repliesTo("\n  \n\t\r\n").empty());
  EXPECT_EQ(status_, kDone);
  const std::string good = "{\"op\":\"types\"}\n";
  const std::string refused = "{\"type\":\"on_off\",\"text\":\"x\"}\n";
  repliesTo(good + refused + good);
  EXPECT_EQ(status_, kRefused);
  repliesTo(refused + "x\n" + refused);
  EXPECT_EQ(status_, kNotUnderstood);
}

TEST_F(Eval, TabulatesRequestsForPeople) {
  std::istringstream input(
      "{\"op\":\"value\",\"type\":\"on_off\",\"text\":\"on\"}\n"
      "{\"type\":\"Probe\",\"array\":\"'!invalid'\"}\n"
      "{\"type\":\"on_off\",\"text\":\"on\",\"equals\":{\"word\":\"null\"}}\n"
      "{\"op\":\"color\",\"name\":\"x\"}\n"
      "{\"op\":\"units\",\"what\":\"height\",\"from\":\"in\",\"to\":\"pix\",\"value\":1,\"ppi\":9}"
      "\n"
      "{\"type\":\"NStrings\",\"text\":\"\"}\n"
      "x\ty\x1b\n");
  std::ostringstream output;
  EXPECT_EQ(tabulateLines(input, output), kNotUnderstood);
  EXPECT_EQ(output.str(),
            "#  type      given                    outcome       message\n"
            "1  on_off    text \"on\"                ok on\n"
            "2  Probe     array '!invalid'         C:d           out of range\n"
            "3  on_off    text \"on\" = word \"null\"  ok on         not equal, compare 1\n"
            "4            \"color\" \"x\"              ok, missing\n"
            "5  height    1 in to pix, ppi 9       ok 9 pixels\n"
            "6  NStrings  text \"\"                  ok cell(0,1)\n"
            "7            x\\ty\\x1b                 request       the line is not valid JSON "
            "(byte 1)\n");
}

}  // namespace
