#include "literal/LiteralBuilder.h"

#include "ArrayElements.h"
#include "literal/Literal.h"
#include "literal/LiteralFunctions.h"
#include "text/TextDisplay.h"

#include <fmt/format.h>
#include <messages/ustring.h>
#include <vx/objects.h>

#include <algorithm>
#include <cmath>
#include <string>

namespace vgdt {
namespace {

/// The characters of a text in quotes; a quote inside is doubled.
fl::ustring charactersOf(std::string_view token) {
  std::string text(token.substr(1, token.size() - 2));
  bool second = false;
  std::erase_if(text, [&second](char c) { return second = c == '\'' && !second; });
  return fl::i18n::to_ustring(text);
}

}  // namespace

vcos::ArrayOwner LiteralBuilder::range(std::string_view token) const {
  if (std::isnan(*last_ - first_))
    throw LiteralError(positionOf(token), "the ends of a range are two numbers, not NaN");
  return makeRange(first_, *last_);
}

void LiteralBuilder::numberValue(std::string_view token) {
  if (last_) return push(range(token), token);
  push(vxCreateDoubleScalar(first_), token);
}

void LiteralBuilder::logicalValue(std::string_view token) {
  constexpr std::size_t kScalar[] = {1, 1};
  vcos::ArrayOwner array = makeArray(vxLOGICAL_CLASS, kScalar);
  writableElementsOf<bool>(array.get()).front() = token == "true";
  push(std::move(array), token);
}

void LiteralBuilder::textValue(std::string_view token) {
  const fl::ustring text = charactersOf(token);
  push(vxCreateString_UTF16(text.data(), text.size()), token);
}

void LiteralBuilder::handleValue(std::string_view token) {
  push(vxCreateFunctionHandle(std::string(token.substr(1)).c_str()), token);
}

void LiteralBuilder::emptyHandleValue(std::string_view token) {
  push(omCreateVCOSEmpty(vcos::COSNameID("handle")), token);
}

void LiteralBuilder::numberElement(std::string_view token) {
  if (!last_) return bracket_.addNumber(first_, positionOf(token));
  bracket_.addNumbers(elementsOf<double>(range(token).get()), positionOf(token));
}

void LiteralBuilder::logicalElement(std::string_view token) {
  bracket_.addLogical(token == "true", positionOf(token));
}

void LiteralBuilder::textElement(std::string_view token) {
  bracket_.addText(charactersOf(token), positionOf(token));
}

std::size_t LiteralBuilder::knownWord(std::string_view rest, bool isElement) {
  if (!words_) return 0;
  const std::size_t length = std::min(rest.find_first_of(kWordEnds), rest.size());
  const std::size_t next = rest.find_first_not_of(" \t", length);
  const bool isCall = next != rest.npos && rest[next] == '(';
  if (length == 0 || isCall) return 0;
  const std::string_view word = rest.substr(0, length);
  vcos::ArrayOwner array = words_(word);
  if (!array) return 0;
  if (isElement)
    bracket_.addObjects(array.get(), positionOf(word));
  else
    push(std::move(array), word);
  return length;
}

void LiteralBuilder::open(std::string_view token, std::string_view function) {
  if (open_.size() == kMaxLiteralDepth)
    throw LiteralError(positionOf(token),
                       fmt::format("nested more than {} deep", kMaxLiteralDepth));
  open_.push_back({function, values_.size()});
}

void LiteralBuilder::close(vcos::ArrayOwner array, std::string_view token) {
  values_.erase(values_.begin() + static_cast<std::ptrdiff_t>(open_.back().firstValue),
                values_.end());
  open_.pop_back();
  push(std::move(array), token);
}

void LiteralBuilder::openBracket(std::string_view token) {
  open(token, {});
  bracket_ = {};
}

void LiteralBuilder::closeBracket(std::string_view token) {
  open_.pop_back();
  values_.push_back(bracket_.finish(positionOf(token)));
}

void LiteralBuilder::cellRow(std::string_view token) {
  Composite& cell = open_.back();
  const std::size_t length = values_.size() - cell.firstValue - cell.rows * cell.columns;
  if (cell.rows != 0 && length != cell.columns)
    throw LiteralError(
        positionOf(token),
        fmt::format("this row has {} elements, and the first one {}", length, cell.columns));
  cell.columns = length;
  ++cell.rows;
}

void LiteralBuilder::closeCell(std::string_view token) {
  const Composite& cell = open_.back();
  vcos::ArrayOwner array(vxCreateCellMatrix(cell.rows, cell.columns));
  const std::span<LiteralValue> elements = valuesSince(cell.firstValue);
  for (std::size_t i = 0; i < elements.size(); ++i)
    vxSetCell(array.get(), i % cell.columns * cell.rows + i / cell.columns,
              elements[i].array.release());
  close(std::move(array), token);
}

void LiteralBuilder::openCall(std::string_view token) {
  if (!isLiteralFunction(token))
    throw LiteralError(
        positionOf(token),
        fmt::format("\"{0}\" is neither a literal nor a function; as a text it is written '{0}'",
                    shortened(token)));
  open(token, token);
}

void LiteralBuilder::closeCall(std::string_view token) {
  const Composite& call = open_.back();
  close(evaluate({call.function, positionOf(token), valuesSince(call.firstValue)}), token);
}

}  // namespace vgdt
