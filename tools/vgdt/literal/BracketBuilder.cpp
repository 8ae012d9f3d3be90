#include "literal/BracketBuilder.h"

#include "ArrayElements.h"
#include "literal/Literal.h"

#include <fmt/format.h>
#include <vcos/COSClass.h>
#include <vx/objects.h>

#include <algorithm>
#include <utility>

namespace vgdt {
namespace {

/// Elements that stand row by row, in storage order and the target's class.
template <class From, class To>
void storeByColumns(const From& from, std::size_t rows, std::span<To> to) {
  const std::size_t columns = to.size() / std::max<std::size_t>(rows, 1);
  for (std::size_t i = 0; i < to.size(); ++i)
    to[i % columns * rows + i / columns] = vghost::castElement<To>(from[i]);
}

}  // namespace

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

void BracketBuilder::addText(fl::ustring text, std::size_t position) {
  admit(Kind::Text, position);
  if (characters_.empty())
    characters_ = std::move(text);
  else
    characters_ += text;
}

void BracketBuilder::addObjects(const vxArray* array, std::size_t position) {
  if (!omIsVCOS(array)) throw LiteralError(position, "only objects stand in brackets by name");
  admit(Kind::Object, position);
  for (std::size_t i = 0; i < vxGetNumberOfElements(array); ++i)
    objects_.push_back(omGetArrayElement(array, i));
}

void BracketBuilder::admit(Kind kind, std::size_t position) {
  const auto differ = [&](Kind one) {
    return kind_ != Kind::Nothing && (kind == one) != (kind_ == one);
  };
  if (differ(Kind::Object))
    throw LiteralError(position, "objects mix with nothing else in brackets");
  if (differ(Kind::Text))
    throw LiteralError(position, "texts do not mix with numbers or logicals in brackets");
  if (kind_ < kind) kind_ = kind;
}

void BracketBuilder::closeRow(std::size_t position) {
  const std::size_t length = count() - rowBegin_;
  if (rows_ != 0 && length != columns_)
    throw LiteralError(position, fmt::format("this row has a length of {}, and the first one of {}",
                                             length, columns_));
  columns_ = length;
  rowBegin_ = count();
  ++rows_;
}

LiteralValue BracketBuilder::finish(std::size_t position) {
  if (kind_ == Kind::Object) return {objects(), position};
  if (kind_ == Kind::Text && columns_ == 0) rows_ = 0;
  const std::size_t dimensions[] = {rows_, columns_};
  LiteralValue result{makeArray(classID(), dimensions), position};
  withElementType(classID(), [&]<class T>(std::type_identity<T>) {
    const auto target = writableElementsOf<T>(result.array.get());
    if (kind_ == Kind::Text)
      storeByColumns(characters_, rows_, target);
    else
      storeByColumns(elements_, rows_, target);
  });
  return result;
}

/// Of the class that all have, or else "handle".
vcos::ArrayOwner BracketBuilder::objects() const {
  const auto classOf = [](const vcos::COSInterfacePtr& object) {
    return object ? object->getClass()->getNameID() : vcos::COSNameID("handle");
  };
  vcos::COSNameID className = objects_.empty() ? vcos::COSNameID("handle") : classOf(objects_[0]);
  const bool isOfOneClass = std::ranges::all_of(
      objects_, [&](const auto& object) { return classOf(object) == className; });
  if (!isOfOneClass) className = vcos::COSNameID("handle");
  vcos::ArrayOwner array(omCreateVCOSMatrix(rows_, columns_, className));
  for (std::size_t i = 0; i < objects_.size(); ++i)
    omSetArrayElement(array.get(), i % columns_ * rows_ + i / columns_, objects_[i]);
  return array;
}

vxClassID BracketBuilder::classID() const {
  if (kind_ == Kind::Text) return vxCHAR_CLASS;
  return kind_ == Kind::Logical ? vxLOGICAL_CLASS : vxDOUBLE_CLASS;
}

}  // namespace vgdt
