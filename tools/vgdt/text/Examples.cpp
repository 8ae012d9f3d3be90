#include "text/Examples.h"

#include "Values.h"
#include "literal/LiteralPrinter.h"
#include "text/Nearest.h"
#include "text/TypeWords.h"

#include <fmt/format.h>
#include <ut/console.h>

#include <algorithm>

namespace vgdt {
namespace {

constexpr std::size_t kMaxExamples = 3;
constexpr std::size_t kMaxElements = 12;

constexpr const char* kSampleLiterals[] = {
    "'yellow'",     "true",      "1",         "''",           "[0 0.5 1]",
    "'text'",       "0.5",       "-1",        "NaN",          "[1 2]",
    "[]",           "[0 1;1 0]", "{'a','b'}", "[0 0 1 1]",    "@fire",
    "zeros(4)",     "1:3",       "{}",        "zeros(1,1,3)", "uint8([0 255])",
    "empty_handle", "[2 1]",     "[0 Inf]",   "[-Inf Inf]",   "[2 2 2]",
};
constexpr const char* kSampleTexts[] = {
    "0", "1", "-1", "0.5", "1e5", "nan", "inf", "A", "true", "on", "", " 1", "99999999999999999999",
};

std::string upperCase(std::string text) {
  std::ranges::transform(text, text.begin(), [](char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  });
  return text;
}

bool isUniquePrefix(const std::string& prefix, const std::vector<std::string>& names) {
  return std::ranges::count_if(
             names, [&](const std::string& name) { return name.starts_with(prefix); }) == 1;
}

/// The first name with a prefix of its own that is shorter than the name, cut to that; empty if
/// there is none.
std::string shortestPrefix(const std::vector<std::string>& names) {
  for (const std::string& name : names)
    for (std::size_t length = 1; length < name.size(); ++length)
      if (isUniquePrefix(name.substr(0, length), names)) return name.substr(0, length);
  return {};
}

/// A single character that begins several names and is none; empty if there is none.
std::string ambiguousCharacter(const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    std::string first = name.substr(0, 1);
    if (!isUniquePrefix(first, names) && std::ranges::find(names, first) == names.end())
      return first;
  }
  return {};
}

/// Names of a finite type, and the other ways in which a user may write them.
std::vector<std::string> sampleNames(const Type& type) {
  const std::vector<std::string> names = possibleValueTexts(type);
  if (names.empty()) return {};
  std::vector<std::string> samples{names.front()};
  if (const std::string upper = upperCase(names.front()); upper != names.front())
    samples.push_back(upper);
  if (const std::string prefix = shortestPrefix(names); !prefix.empty()) samples.push_back(prefix);
  if (const std::string text = ambiguousCharacter(names); !text.empty()) samples.push_back(text);
  samples.insert(samples.end(), names.begin() + 1, names.end());
  return samples;
}

std::vector<GivenValue> samplesFor(const Type& type) {
  std::vector<GivenValue> samples;
  const auto route = type.isScalar ? GivenValue::Route::Text : GivenValue::Route::Array;
  for (const std::string& name : sampleNames(type))
    samples.push_back({route, type.isScalar ? name : fmt::format("'{}'", name)});
  if (type.isScalar)
    for (const char* text : kSampleTexts)
      samples.push_back({route, text});
  for (const std::string& literal : wordsOf(type).samples)
    samples.push_back({route, literal});
  if (!type.isScalar)
    for (const char* literal : kSampleLiterals)
      samples.push_back({route, literal});
  return samples;
}

/// As text, or else as an array: some values have no text, and some have one without a character.
std::string shownValue(const Type& type, vcos::COSValue word) {
  std::optional<std::string> text;
  const auto failure = failureOf([&] { text = textOf(type, word); });
  if (!failure && text && (!text->empty() || type.isScalar)) return *text;
  return formatLiteral(arrayOf(type, word).get(), kMaxElements);
}

bool isNew(const Trial& trial, const std::vector<Trial>& trials, std::string Trial::*member) {
  return std::ranges::find(trials, trial.*member, member) == trials.end();
}

/// The first few, those with an outcome of their own before the others.
std::vector<Trial> mostTelling(const std::vector<Trial>& trials) {
  std::vector<Trial> chosen;
  for (auto member : {&Trial::outcome, &Trial::given})
    for (const Trial& trial : trials)
      if (chosen.size() < kMaxExamples && isNew(trial, chosen, member)) chosen.push_back(trial);
  return chosen;
}

}  // namespace

Examples findExamples(const Type& type) {
  const vghost::ConsoleCapture unheard;  // nobody asked for what the trials print
  Examples all;
  for (const GivenValue& sample : samplesFor(type)) {
    std::string shown;
    const auto failure = failureOf([&] { shown = shownValue(type, Value(type, sample).word()); });
    if (!failure)
      all.taken.push_back({sample.content, shown});
    else
      all.refused.push_back({sample.content, failure->identifier.empty() ? nameOf(failure->kind)
                                                                         : failure->identifier});
  }
  return {mostTelling(all.taken), mostTelling(all.refused)};
}

}  // namespace vgdt
