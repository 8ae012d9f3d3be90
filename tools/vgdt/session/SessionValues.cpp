#include "session/SessionValues.h"

#include "literal/LiteralFunctions.h"
#include "session/CommandWords.h"
#include "text/Nearest.h"
#include "text/TextDisplay.h"

#include <fmt/format.h>
#include <messages/ustring.h>
#include <vx/objects.h>

#include <algorithm>
#include <cctype>

namespace vgdt {
namespace {

WordResolver wordsOf(const Call& call) {
  return [&call](std::string_view word) {
    vcos::ArrayOwner array;
    if (call.words) array = call.words(word);
    const SessionObject* const object = array ? nullptr : call.session.objects().find(word);
    if (object) array.reset(omCreateVCOSScalar(object->object()));
    return array;
  };
}

vcos::ArrayOwner textArray(std::string_view text) {
  const fl::ustring characters = fl::i18n::to_ustring(text);
  return vcos::ArrayOwner(vxCreateString_UTF16(characters.data(), characters.size()));
}

bool isLiteral(std::string_view text) {
  try {
    return parseLiteral(text) != nullptr;
  } catch (const LiteralError&) {
    return false;
  }
}

/// Words that mean something in the code of a callback: source, event, arg1, arg2, ...
bool isReserved(std::string_view word) {
  constexpr std::string_view kArgument = "arg";
  const auto isDigit = [](char byte) { return byte >= '0' && byte <= '9'; };
  return word == "source" || word == "event" ||
         (word.size() > kArgument.size() && word.starts_with(kArgument) &&
          std::ranges::all_of(word.substr(kArgument.size()), isDigit));
}

/// A word that stands where a literal goes wrong may be meant as a name.
std::string hintAt(const Call& call, std::string_view place) {
  const std::string_view word = place.substr(0, place.find_first_of(kWordEnds));
  const bool isWord = !word.empty() && std::isalpha(static_cast<unsigned char>(word.front())) != 0;
  Objects& objects = call.session.objects();
  if (!isWord || objects.find(word) || problemOfName(word) || isLiteralFunction(word)) return {};
  const auto nearest = nearestName(word, objects.livingNames());
  return fmt::format("; there is no object \"{}\"{}", shortened(word),
                     nearest ? fmt::format("; did you mean \"{}\"?", *nearest) : "");
}

}  // namespace

vcos::ArrayOwner readValue(const Call& call, std::string_view text) {
  try {
    return parseLiteral(text, wordsOf(call));
  } catch (const LiteralError& error) {
    if (isBareWord(text)) return textArray(text);
    const auto position =
        static_cast<std::size_t>(text.data() - call.line.data()) + error.position();
    call.details.place = position;
    throw LiteralError(position,
                       fmt::format("column {} of the line: {}{}", columnOf(call.line, position),
                                   error.text(), hintAt(call, text.substr(error.position()))));
  }
}

SessionObject& requireObject(const Call& call, std::string_view name) {
  Objects& objects = call.session.objects();
  const vcos::ArrayOwner array = call.words ? call.words(name) : nullptr;
  if (!array) return objects.requireLiving(name);
  const vcos::COSInterfacePtr object = omIsVCOS(array.get()) && vxIsScalar(array.get())
                                           ? omGetArrayElement(array.get(), 0)
                                           : vcos::COSInterfacePtr();
  const SessionObject* const known = object ? objects.find(*object.get()) : nullptr;
  if (!known) throw RequestError(fmt::format("\"{}\" is no object of the session", name));
  return objects.requireLiving(known->name());
}

const char* problemOfName(std::string_view name) {
  if (!isBareWord(name) || name.find_first_of("=;") != name.npos)
    return "a name is a word without quotes, brackets, commas, semicolons, = and #";
  if (isLiteral(name)) return "it is a literal";
  return isReserved(name) ? "the word has a meaning in callbacks" : nullptr;
}

}  // namespace vgdt
