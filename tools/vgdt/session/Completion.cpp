#include "session/Completion.h"

#include "Classes.h"
#include "literal/Literal.h"
#include "session/CommandWords.h"
#include "session/SessionCommands.h"

#include <algorithm>

namespace vgdt {
namespace {

using Words = std::vector<std::string>;

/// Null for a name that is no object's.
const SessionObject* objectNamed(const Session& session, std::string_view name) {
  const auto& living = session.objects().living();
  const auto found = std::ranges::find_if(
      living, [&](const SessionObject& known) { return known.name() == name; });
  return found == living.end() ? nullptr : &*found;
}

Words figureNames(const Session& session) {
  const vcos::COSClass& figure = requireClass("Figure");
  Words names;
  for (const SessionObject& object : session.objects().living())
    if (&object.ownClass() == &figure) names.push_back(object.name());
  return names;
}

Words properties(const Session& session, const Arguments& arguments) {
  const SessionObject* const object = objectNamed(session, arguments.front());
  return object ? propertyNames(object->ownClass()) : Words();
}

Words events(const Session& session, const Arguments& arguments) {
  const SessionObject* const object = objectNamed(session, arguments.front());
  return object ? eventNames(object->ownClass()) : Words();
}

/// The values of an enumerated property; objects for every other, and where no property is set.
Words values(const Session& session, const Arguments& arguments) {
  const SessionObject* const object =
      arguments.size() > 1 ? objectNamed(session, arguments[0]) : nullptr;
  const auto known = vcos::COSNameID::find(object ? arguments[1] : "");
  const vcos::COSInterfacePtr found =
      object && known ? object->ownClass().findProperty(*known) : vcos::COSInterfacePtr();
  const vcos::COSPropInfo* const property = vcos::COSPropInfoPtrHelper().getObject(found);
  if (!property) return session.objects().livingNames();
  const Type type = typeOf(*property);
  if (!type.access.dataType().isPossibleValuesFinite()) return session.objects().livingNames();
  return possibleValueTexts(type);
}

Words commandNames() {
  Words names;
  for (const SessionCommand& command : sessionCommands())
    names.emplace_back(command.name);
  return names;
}

/// What may stand for a word of a usage.
Words wordsFor(const Session& session, const Usage::Place& place) {
  const std::string_view word = place.word;
  if (word == "NAME" || word == "PARENT") return session.objects().livingNames();
  if (word == "FIGURE") return figureNames(session);
  if (word == "CLASS") return classNames();
  if (word == "PROPERTY") return properties(session, place.before);
  if (word == "EVENT") return events(session, place.before);
  if (word == "VALUE") return values(session, place.before);
  Words words;
  for (const std::string_view choice : choicesOf(word))
    words.emplace_back(choice);
  return words;
}

Words wordsBehind(const Session& session, std::string_view beginning) {
  if (beginning.empty()) return commandNames();
  const SessionCommand* const command = findCommand(beginning);
  if (!command) return {"="};
  const Usage::Place place = command->usage.placeBehind(beginning);
  return place.word.empty() ? Words() : wordsFor(session, place);
}

}  // namespace

Completion completionOf(const Session& session, std::string_view line) {
  if (withoutComment(line).size() != line.size()) return {line.size(), {}};
  const std::size_t end = line.find_last_of(kWordEnds);
  const std::size_t begin = end == line.npos ? 0 : end + 1;
  const std::string_view word = line.substr(begin);
  Words words = wordsBehind(session, withoutBlanks(line.substr(0, begin)));
  std::erase_if(words, [&](const std::string& known) { return !known.starts_with(word); });
  std::ranges::sort(words);
  return {begin, std::move(words)};
}

std::string_view commonBeginning(const std::vector<std::string>& words) {
  if (words.empty()) return {};
  // Of sorted words the first and the last differ first.
  const auto [end, other] = std::ranges::mismatch(words.front(), words.back());
  return {words.front().begin(), end};
}

}  // namespace vgdt
