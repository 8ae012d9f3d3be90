#include "sheet/PlainValues.h"

#include "ArrayElements.h"
#include "Errors.h"
#include "literal/LiteralValue.h"

#include <fmt/format.h>

#include <utility>

namespace vgdt {
namespace {

using Kind = JsonCursor::Kind;

/// A list whose elements are all numbers, all texts, or all rows of one length.
struct ListForm {
  Kind elements = Kind::Null;  ///< Null for an empty list
  std::size_t count = 0;
  std::size_t rowLength = 0;
};

const char* nameOf(Kind kind) {
  switch (kind) {
    case Kind::Null:
      return "null";
    case Kind::Boolean:
      return "a logical";
    case Kind::Number:
      return "a number";
    case Kind::String:
      return "a text";
    case Kind::List:
      return "a list";
    case Kind::Object:
      break;
  }
  return "an object";
}

[[noreturn]] void refuseElement(std::size_t number, Kind kind, const char* wanted) {
  throw RequestError(fmt::format("element {} of the list is {}; {}", number, nameOf(kind), wanted));
}

std::size_t rowLength(JsonCursor& row, std::size_t rowNumber) {
  std::size_t length = 0;
  row.elements([&](const JsonCursor& element) {
    ++length;
    if (element.kind() != Kind::Number)
      throw RequestError(fmt::format("element {} of row {} is {}; a row has numbers", length,
                                     rowNumber, nameOf(element.kind())));
  });
  return length;
}

void addRow(ListForm& form, JsonCursor& row) {
  const std::size_t length = rowLength(row, form.count);
  if (form.count == 1) form.rowLength = length;
  if (length != form.rowLength)
    throw RequestError(fmt::format("row {} has a length of {}, and the first one of {}", form.count,
                                   length, form.rowLength));
}

ListForm formOf(JsonCursor list) {
  constexpr const char* kLists =
      "a list has numbers, texts, or rows of numbers; a literal says everything else";
  ListForm form;
  list.elements([&form](JsonCursor& element) {
    const Kind kind = element.kind();
    if (++form.count == 1) form.elements = kind;
    const bool isListed = kind == Kind::Number || kind == Kind::String || kind == Kind::List;
    if (!isListed) refuseElement(form.count, kind, kLists);
    if (kind != form.elements)
      refuseElement(form.count, kind, "all elements of a list are of one kind");
    if (kind == Kind::List) addRow(form, element);
  });
  return form;
}

vcos::ArrayOwner makeDouble(std::size_t rows, std::size_t columns) {
  const std::size_t dimensions[] = {rows, columns};
  return makeArray(vxDOUBLE_CLASS, dimensions);
}

vcos::ArrayOwner makeLogical(bool value) {
  constexpr std::size_t kScalar[] = {1, 1};
  vcos::ArrayOwner array = makeArray(vxLOGICAL_CLASS, kScalar);
  writableElementsOf<bool>(array.get()).front() = value;
  return array;
}

/// Writes the numbers of a row to `first` and every `step`-th place behind it.
void readNumbers(JsonCursor& row, std::span<double> target, std::size_t first, std::size_t step) {
  row.elements([&](JsonCursor& element) {
    target[first] = readNumber(element.number());
    first += step;
  });
}

vcos::ArrayOwner readMatrix(JsonCursor& rows, const ListForm& form) {
  vcos::ArrayOwner array = makeDouble(form.count, form.rowLength);
  rows.elements([&, target = writableElementsOf<double>(array.get()), index = std::size_t{0}](
                    JsonCursor& row) mutable { readNumbers(row, target, index++, form.count); });
  return array;
}

vcos::ArrayOwner readRow(JsonCursor& row, std::size_t length) {
  vcos::ArrayOwner array = makeDouble(1, length);
  readNumbers(row, writableElementsOf<double>(array.get()), 0, 1);
  return array;
}

}  // namespace

vcos::ArrayOwner PlainValues::read(JsonCursor& value) {
  switch (value.kind()) {
    case Kind::Boolean:
      return makeLogical(value.boolean());
    case Kind::Number:
      return vcos::ArrayOwner(vxCreateDoubleScalar(readNumber(value.number())));
    case Kind::String:
      return readText(value);
    case Kind::List:
      return readList(value);
    default:
      return makeDouble(0, 0);
  }
}

vcos::ArrayOwner PlainValues::readText(JsonCursor& value) {
  readUtf16(value.string(), characters_);
  return vcos::ArrayOwner(vxCreateString_UTF16(characters_.data(), characters_.size()));
}

vcos::ArrayOwner PlainValues::readList(JsonCursor& value) {
  const ListForm form = formOf(value);
  if (form.elements == Kind::Number) return readRow(value, form.count);
  if (form.elements == Kind::List) return readMatrix(value, form);
  if (form.elements == Kind::Null) return makeDouble(0, 0);
  vcos::ArrayOwner cells(vxCreateCellMatrix(form.count, 1));
  value.elements([&, index = std::size_t{0}](JsonCursor& text) mutable {
    vxSetCell(cells.get(), index++, readText(text).release());
  });
  return cells;
}

}  // namespace vgdt
