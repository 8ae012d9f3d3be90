// Lower bounds: the least work that does the same, without the class system around it.

#include "contest.h"

#include <array>
#include <cctype>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace peers {
namespace {

constexpr int kNoValue = -1;
constexpr std::size_t kLongestName = 9;

struct Entry {
  std::string_view name;
  int value;
};

using Buffer = std::array<char, kLongestName>;

bool isSpace(char byte) {
  return std::isspace(static_cast<unsigned char>(byte)) != 0;
}

/// The text in lower case and without white space around it. One that is longer than any name gives
/// "", which begins them all.
std::string_view fold(const char* text, Buffer& buffer) {
  const char* end = text + std::strlen(text);
  while (end != text && isSpace(end[-1]))
    --end;
  while (text != end && isSpace(*text))
    ++text;
  const auto size = static_cast<std::size_t>(end - text);
  if (size > buffer.size()) return {};
  for (std::size_t i = 0; i < size; ++i)
    buffer[i] = static_cast<char>(std::tolower(static_cast<unsigned char>(text[i])));
  return {buffer.data(), size};
}

/// Byte by byte: most names differ in the first one, before a call of memcmp would have begun.
bool begins(std::string_view text, std::string_view name) {
  if (text.size() > name.size()) return false;
  std::size_t same = 0;
  while (same < text.size() && text[same] == name[same])
    ++same;
  return same == text.size();
}

/// The value of the name that the text is, or else of the only one that it begins.
template <class Entries>
int match(std::string_view text, const Entries& entries) {
  int value = kNoValue;
  int matches = 0;
  for (const Entry& entry : entries) {
    if (!begins(text, entry.name)) continue;
    if (text.size() == entry.name.size()) return entry.value;
    value = entry.value;
    ++matches;
  }
  return matches == 1 ? value : kNoValue;
}

std::vector<Entry> makeEntries() {
  std::vector<Entry> entries;
  for (const char* name : kNames)
    entries.push_back({name, static_cast<int>(entries.size())});
  return entries;
}

/// All names in turn.
class LinearTable {
 public:
  int valueOf(const char* text) const {
    Buffer buffer;
    return match(fold(text, buffer), entries_);
  }

 private:
  std::vector<Entry> entries_ = makeEntries();
};

/// The names with the text's first character in turn.
class FirstCharacterTable {
 public:
  FirstCharacterTable() {
    for (const Entry& entry : makeEntries())
      entries_[static_cast<unsigned char>(entry.name.front())].push_back(entry);
  }
  int valueOf(const char* text) const {
    Buffer buffer;
    const std::string_view folded = fold(text, buffer);
    if (folded.empty()) return kNoValue;
    return match(folded, entries_[static_cast<unsigned char>(folded.front())]);
  }

 private:
  std::array<std::vector<Entry>, 256> entries_;
};

/// Two interned names.
using NamePair = std::pair<const char*, const char*>;

struct NamePairHash {
  std::size_t operator()(const NamePair& pair) const noexcept {
    const std::hash<const void*> hash;
    return hash(pair.first) * 31 + hash(pair.second);
  }
};

struct Conversion {
  virtual ~Conversion() = default;
  virtual void* from(const char* text) const = 0;
};

/// As large as the library's value objects.
struct Value {
  const void* type;
  int value;
  const void* companion;
};
static_assert(sizeof(Value) == 24);

class EnumConversion final : public Conversion {
 public:
  void* from(const char* text) const override {
    const int value = table_.valueOf(text);
    auto* result = static_cast<Value*>(std::calloc(1, sizeof(Value)));
    if (!result) fail("out of memory");
    result->value = value;
    return result;
  }

 private:
  LinearTable table_;
};

using Conversions = std::unordered_map<NamePair, std::unique_ptr<Conversion>, NamePairHash>;

void addLookUps() {
  static const LinearTable linear;
  static const FirstCharacterTable byFirstCharacter;
  const auto byLine = [](const char* text) { return linear.valueOf(text); };
  const auto byFirst = [](const char* text) { return byFirstCharacter.valueOf(text); };
  verify("linear bound", {{" SQUARE\t", 5}, {"", kNoValue}, {"squares", kNoValue}}, byLine);
  verify("first-character bound", {{" SQUARE\t", 5}, {"", kNoValue}, {"squares", kNoValue}},
         byFirst);
  compete(kNameToValue, "linear-bound", Goal::kOneAndAHalf, exactInputs(), byLine);
  compete(kNameToValue, "first-character-bound", Goal::kNone, exactInputs(), byFirst);
  compete(kAbbreviationToValue, "linear-bound", Goal::kOneAndAHalf, abbreviatedInputs(), byLine);
  compete(kAbbreviationToValue, "first-character-bound", Goal::kNone, abbreviatedInputs(), byFirst);
}

void addSetting() {
  static const NamePair names{"string", "MarkerStyle"};
  static Conversions conversions;
  conversions.emplace(names, std::make_unique<EnumConversion>());
  compete(kSetFromText, "bound", Goal::kTwice, exactInputs(), [](const char* text) {
    void* result = conversions.find(names)->second->from(text);
    benchmark::DoNotOptimize(result);
    const int value = static_cast<Value*>(result)->value;
    std::free(result);
    return value;
  });
}

/// Each type with its two conversions, under interned names.
double startUp(std::size_t types) {
  std::vector<std::string> texts;
  for (std::size_t i = 0; i < types; ++i)
    texts.push_back("vortil.graphics.datatype.Type" + std::to_string(i));

  static std::unordered_set<std::string> names;
  static std::unordered_map<NamePair, const void*, NamePairHash> entries;
  const double seconds = secondsOf([&texts] {
    const auto intern = [](const std::string& text) { return names.insert(text).first->c_str(); };
    for (const std::string& text : texts)
      for (const char* outside : {"", "any", "string"})
        entries.emplace(NamePair(intern(outside), intern(text)), &texts);
  });
  if (entries.size() != 3 * types) fail("the bound's start-up has left out entries");
  return seconds;
}

void addBounds() {
  addLookUps();
  addSetting();
  competeAtStartUp("bound", Goal::kNone, startUp);
}

[[maybe_unused]] const bool added = addContender(addBounds);

}  // namespace
}  // namespace peers
