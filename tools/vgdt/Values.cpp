#include "Values.h"

#include "literal/Literal.h"
#include "text/TextDisplay.h"

#include <fmt/format.h>

namespace vgdt {
namespace {

void requireMoreThanText(const Type& type) {
  if (type.isScalar)
    throw RequestError(fmt::format("\"{}\" is a scalar: it takes only a text", type.name));
}

vcos::COSValue fromText(const Type& type, const std::string& text) {
  if (text.find('\0') != std::string::npos)
    throw RequestError("a text for a text conversion cannot hold a NUL");
  return type.access.fromText(text.c_str());
}

vcos::ArrayOwner readLiteral(const std::string& literal) {
  try {
    return parseLiteral(literal);
  } catch (const LiteralError& error) {
    throw LiteralError(error.position(),
                       fmt::format("column {} of the literal: {}",
                                   columnOf(literal, error.position()), error.what()));
  }
}

vcos::COSValue fromLiteral(const Type& type, const std::string& literal) {
  requireMoreThanText(type);
  const vcos::ArrayOwner array = readLiteral(literal);
  return type.access.fromArray(array.get());
}

vcos::COSValue wordNamed(const Type& type, const std::string& name) {
  requireMoreThanText(type);
  if (name == "default") return type.access.dataType().getDefaultValue();
  if (name == "null") return {};
  throw RequestError("\"word\" is \"default\" or \"null\"");
}

/// What `make` gives, or the error that it ends in.
template <class Make>
Json formOr(Make&& make) {
  Json form;
  const auto failure = failureOf([&] { form = make(); });
  return failure ? Json{{"error", jsonOf(*failure)}} : form;
}

}  // namespace

Value::Value(const Type& type, const GivenValue& given) {
  if (given.route == GivenValue::Route::Word) {
    word_ = wordNamed(type, given.content);
    return;
  }
  word_ = given.route == GivenValue::Route::Text ? fromText(type, given.content)
                                                 : fromLiteral(type, given.content);
  owner_.emplace(type.access.dataType(), word_);
}

std::optional<std::string> textOf(const Type& type, vcos::COSValue word) {
  return type.access.toText(word);
}

vcos::ArrayOwner arrayOf(const Type& type, vcos::COSValue word) {
  return type.isScalar ? nullptr : type.access.toArray(word);
}

std::string wordText(vcos::COSValue word) {
  return fmt::format("0x{:016x}", word.bits());
}

Json valueForm(const Type& type, vcos::COSValue word) {
  Json form{{"null", !type.isImmediate() && word.isNull()}};
  if (type.isImmediate()) form["word"] = wordText(word);
  form["text"] = formOr([&]() -> Json {
    const auto text = textOf(type, word);
    return text ? Json(*text) : Json();
  });
  form["array"] = formOr([&] { return jsonOf(arrayOf(type, word).get()); });
  return form;
}

}  // namespace vgdt
