#include "literal/BracketBuilder.h"

#include "ArrayElements.h"
#include "literal/ClassCast.h"
#include "literal/Literal.h"

#include <fmt/format.h>

namespace vgdt {

void BracketBuilder::addLogical(bool value, std::size_t position) {
  admit(Kind::Logical, position);
  elements_.push_back(value);
}

void BracketBuilder::addNumber(double number, std::size_t position) {
  admit(Kind::Number, position);
  elements_.push_back(number);
}

void BracketBuilder::addNumbers(std::span<const double> numbers, std::size_t position) {
  admit(Kind::Number, position);
  elements_.insert(elements_.end(), numbers.begin(), numbers.end());
}

void BracketBuilder::addText(const fl::ustring& text, std::size_t position) {
  admit(Kind::Text, position);
  elements_.insert(elements_.end(), text.begin(), text.end());
}

void BracketBuilder::admit(Kind kind, std::size_t position) {
  if (kind_ != Kind::Nothing && (kind == Kind::Text) != (kind_ == Kind::Text))
    throw LiteralError(position, "texts do not mix with numbers or logicals in brackets");
  if (kind_ < kind) kind_ = kind;
}

void BracketBuilder::closeRow(std::size_t position) {
  const std::size_t length = elements_.size() - rowBegin_;
  if (rows_ != 0 && length != columns_)
    throw LiteralError(position, fmt::format("this row has a length of {}, and the first one of {}",
                                             length, columns_));
  columns_ = length;
  rowBegin_ = elements_.size();
  ++rows_;
}

LiteralValue BracketBuilder::finish(std::size_t position) {
  if (kind_ == Kind::Text && columns_ == 0) rows_ = 0;
  const std::size_t dimensions[] = {rows_, columns_};
  LiteralValue result{makeArray(classID(), dimensions), position};
  withElementType(classID(), [&]<class T>(std::type_identity<T>) {
    const auto elements = writableElementsOf<T>(result.array.get());
    for (std::size_t i = 0; i < elements.size(); ++i)
      elements[storageIndex(i)] = castElement<T>(elements_[i]);
  });
  return result;
}

vxClassID BracketBuilder::classID() const {
  if (kind_ == Kind::Text) return vxCHAR_CLASS;
  return kind_ == Kind::Logical ? vxLOGICAL_CLASS : vxDOUBLE_CLASS;
}

std::size_t BracketBuilder::storageIndex(std::size_t index) const {
  return index % columns_ * rows_ + index / columns_;
}

}  // namespace vgdt
