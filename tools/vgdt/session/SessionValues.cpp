#include "session/SessionValues.h"

#include "literal/LiteralFunctions.h"
#include "session/CommandWords.h"
#include "text/Nearest.h"
#include "text/TextDisplay.h"

#include <fmt/format.h>
#include <messages/ustring.h>
#include <vx/objects.h>

#include <cctype>

namespace vgdt {
namespace {

WordResolver wordsOf(const Call& call) {
  return [&call](std::string_view word) {
    vcos::ArrayOwner array;
    if (call.callback) array = call.callback->words(word);
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

std::string readText(const Call& call, std::string_view text, const char* what) {
  const vcos::ArrayOwner array = readValue(call, text);
  if (!isTextRow(array.get()))
    throw RequestError(fmt::format("{} is a text, not \"{}\"", what, shortened(text)));
  return vxArrayToStdString(array.get());
}

bool isTextRow(const vxArray* array) {
  return vxGetClassID(array) == vxCHAR_CLASS && vxGetNumberOfDimensions(array) == 2 &&
         vxGetM(array) == (vxGetN(array) == 0 ? 0 : 1);
}

SessionObject& requireObject(const Call& call, std::string_view name) {
  Objects& objects = call.session.objects();
  const vcos::ArrayOwner array = call.callback ? call.callback->words(name) : nullptr;
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
