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

vcos::COSValue fromLiteral(const Type& type, const std::string& literal) {
  return type.access.fromArray(readLiteral(type, literal).get());
}

vcos::COSValue wordNamed(const Type& type, const std::string& name) {
  requireMoreThanText(type);
  if (name == "default") return type.access.dataType().getDefaultValue();
  if (name == "null") return {};
  throw RequestError("\"word\" is \"default\" or \"null\"");
}

}  // namespace

vcos::ArrayOwner readLiteral(const std::string& literal) {
  try {
    return parseLiteral(literal);
  } catch (const LiteralError& error) {
    throw LiteralError(error.position(),
                       fmt::format("column {} of the literal: {}",
                                   columnOf(literal, error.position()), error.text()));
  }
}

vcos::ArrayOwner readLiteral(const Type& type, const std::string& literal) {
  requireMoreThanText(type);
  return readLiteral(literal);
}

Value::Value(const Type& type, const GivenValue& given) {
  if (given.route == GivenValue::Route::Word) {
    word_ = wordNamed(type, given.content);
    return;
  }
  word_ = given.route == GivenValue::Route::Text ? fromText(type, given.content)
                                                 : fromLiteral(type, given.content);
  owner_.emplace(type.access.dataType(), word_);
}

Value::Value(const Type& type, const vxArray* array) : word_(type.access.fromArray(array)) {
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

ValueForm valueForm(const Type& type, vcos::COSValue word) {
  ValueForm form;
  form.isNull = !type.isImmediate() && word.isNull();
  if (type.isImmediate()) form.wordText = wordText(word);
  form.textFailure = failureOf([&] { form.text = textOf(type, word); });
  form.arrayFailure = failureOf([&] { form.array = arrayOf(type, word); });
  if (form.array) vxSetArrayScope(form.array.get(), 0);
  return form;
}

}  // namespace vgdt
